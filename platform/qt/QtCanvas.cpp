#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QPalette>

#include "platform/Canvas.h"
#include "platform/Pixels.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/ImageImpl.h"
#include "platform/qt/Text.h"

namespace platform {

namespace {

constexpr int kTextFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip;

// What draws text fills the fourth byte of a pixel.
void ClearFourthByte(const Image& image, const Rect& area) {
    const ink::PixelSurface surface = image.Surface();
    const Rect inside = Intersect(area, surface.Bounds());
    for (int y = inside.top; y < inside.bottom; ++y) {
        for (int x = inside.left; x < inside.right; ++x) surface.Row(y)[x] &= 0x00FFFFFF;
    }
}

}  // namespace

namespace qt {

QFont FontOf(int tenthPoints, bool isBold) {
    QFont font = QApplication::font();
    font.setPixelSize(std::max(1, PixelsOf(tenthPoints)));
    font.setBold(isBold);
    // Coloured edges would lie beside the text's own place.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

}  // namespace qt

struct ImageList::Impl {
    Image strip;
    int imageSize = 0;
    uint32_t mask = 0;
};

ImageList::ImageList() = default;
ImageList::ImageList(ImageList&&) noexcept = default;
ImageList& ImageList::operator=(ImageList&&) noexcept = default;
ImageList::~ImageList() = default;

ImageList ImageList::FromResource(int bitmapId, int imageSize, ink::ColorRef mask) {
    ImageList list;
    Image strip = Image::FromResource(bitmapId);
    if (strip.IsValid()) list.impl_.reset(new Impl{std::move(strip), imageSize, ink::PixelOf(mask)});
    return list;
}

ink::ColorRef ColorOf(SystemColor color) {
    constexpr QPalette::ColorRole kRoles[] = {QPalette::Button, QPalette::ButtonText, QPalette::Dark};
    const QColor chosen = QApplication::palette().color(kRoles[static_cast<size_t>(color)]);
    return ink::ColorOf(chosen.rgb());
}

void Canvas::Fill(const Rect& area, ink::ColorRef color) {
    FillPixels(image_.Surface(), area, ink::PixelOf(color));
}

void Canvas::Text(const std::wstring& text, Point topLeft, const Font& font, ink::ColorRef color,
                  const Rect& clip) {
    if (!image_.IsValid() || clip.IsEmpty()) return;
    QImage view = image_.Handle()->View();
    {
        QPainter painter(&view);
        painter.setClipRect(qt::ToQt(clip));
        painter.setFont(qt::FontOf(font.tenthPoints, font.bold));
        painter.setPen(qt::ToQt(color));
        painter.drawText(QRect(topLeft.x, topLeft.y, 1, 1), kTextFlags, qt::ToQt(text));
    }
    ClearFourthByte(image_, clip);
}

Rect Canvas::TextSize(const std::wstring& text, const Font& font) {
    const QFontMetrics metrics(qt::FontOf(font.tenthPoints, font.bold));
    return {0, 0, metrics.horizontalAdvance(qt::ToQt(text)), metrics.height()};
}

void Canvas::Draw(const ImageList& images, int index, Point topLeft) {
    if (!images.IsValid()) return;
    const ImageList::Impl& list = *images.Handle();
    CopyMasked(list.strip.Surface(),
               ink::Offset({0, 0, list.imageSize, list.imageSize}, index * list.imageSize, 0), list.mask,
               image_.Surface(), topLeft);
}

void Canvas::Draw(const Image& picture, Point topLeft) {
    const ink::PixelSurface pixels = picture.Surface();
    CopyPixels(pixels, pixels.Bounds(), image_.Surface(), topLeft);
}

}  // namespace platform
