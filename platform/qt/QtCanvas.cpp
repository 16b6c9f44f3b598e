#include <QApplication>
#include <QFontMetrics>
#include <QPainter>

#include "platform/Artwork.h"
#include "platform/Canvas.h"
#include "platform/Pixels.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/ImageImpl.h"
#include "platform/qt/ScreenScale.h"
#include "platform/qt/Text.h"

namespace platform {

namespace {

constexpr int kTextFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip;

// What draws text fills the fourth byte of a pixel. The area is one of screen pixels.
void ClearFourthByte(const Image& image, const Rect& area) {
    const ink::PixelSurface surface = image.Surface();
    const Rect inside = Intersect(area, surface.Bounds());
    for (int y = inside.top; y < inside.bottom; ++y) {
        for (int x = inside.left; x < inside.right; ++x) surface.Row(y)[x] &= 0x00FFFFFF;
    }
}

}  // namespace

namespace qt {

QFont FontOf(int tenthPoints, bool isBold, ink::Scale scale) {
    constexpr int kTenthPointsPerInch = 720;
    QFont font = QApplication::font();
    const int pixels = (tenthPoints * scale.Dots() + kTenthPointsPerInch / 2) / kTenthPointsPerInch;
    font.setPixelSize(std::max(1, pixels));
    font.setBold(isBold);
    // Coloured edges would lie beside the text's own place.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

}  // namespace qt

struct ImageList::Impl {
    Image strip;
    int imageSize = 0;  // page pixels
    uint32_t mask = 0;
};

ImageList::ImageList() = default;
ImageList::ImageList(ImageList&&) noexcept = default;
ImageList& ImageList::operator=(ImageList&&) noexcept = default;
ImageList::~ImageList() = default;

ImageList ImageList::FromResource(int bitmapId, int imageSize, ink::ColorRef mask, ink::Scale scale) {
    ImageList list;
    Image strip = Image::FromResource(bitmapId, scale);
    if (!strip.IsValid()) return list;
    list.impl_ = std::make_unique<Impl>();
    list.impl_->strip = std::move(strip);
    list.impl_->imageSize = imageSize;
    list.impl_->mask = ink::PixelOf(mask);
    return list;
}

void Canvas::Fill(const Rect& area, ink::ColorRef color) {
    FillPixels(image_.Surface(), image_.PageScale().ToSurface(area), ink::PixelOf(color));
}

void Canvas::Text(const std::wstring& text, Point topLeft, const Font& font, ink::ColorRef color,
                  const Rect& clip) {
    if (!image_.IsValid() || clip.IsEmpty()) return;
    const ink::Scale scale = image_.PageScale();
    const Rect inside = scale.ToSurface(clip);
    const Rect place = scale.ToSurface({topLeft.x, topLeft.y, topLeft.x + 1, topLeft.y + 1});
    QImage view = image_.Handle()->View();
    {
        QPainter painter(&view);
        painter.setClipRect(qt::ToQt(inside));
        painter.setFont(qt::FontOf(font.tenthPoints, font.bold, scale));
        painter.setPen(qt::ToQt(color));
        painter.drawText(qt::ToQt(place), kTextFlags, qt::ToQt(text));
    }
    ClearFourthByte(image_, inside);
}

Rect Canvas::TextSize(const std::wstring& text, const Font& font, ink::Scale scale) {
    const QFontMetrics metrics(qt::FontOf(font.tenthPoints, font.bold, scale));
    return {0, 0, qt::WholePagePixels(metrics.horizontalAdvance(qt::ToQt(text)), scale),
            qt::WholePagePixels(metrics.height(), scale)};
}

void Canvas::Draw(const ImageList& images, int index, Point topLeft) {
    if (!images.IsValid()) return;
    const ImageList::Impl& list = *images.Handle();
    const auto side = static_cast<int>(list.strip.PageScale().ToScreen(list.imageSize));
    const Rect room = image_.PageScale().ToSurface(
        {topLeft.x, topLeft.y, topLeft.x + list.imageSize, topLeft.y + list.imageSize});
    CopyMasked(list.strip.Surface(), ink::Offset({0, 0, side, side}, index * side, 0), list.mask,
               image_.Surface(), InTheMiddleOf(room, side, side));
}

void Canvas::Draw(const Image& picture, Point topLeft) {
    const ink::PixelSurface pixels = picture.Surface();
    const Rect room = image_.PageScale().ToSurface(
        {topLeft.x, topLeft.y, topLeft.x + picture.Width(), topLeft.y + picture.Height()});
    CopyPixels(pixels, pixels.Bounds(), image_.Surface(), InTheMiddleOf(room, pixels.width, pixels.height));
}

}  // namespace platform
