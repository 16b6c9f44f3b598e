#include <algorithm>

#include "platform/Artwork.h"
#include "platform/Canvas.h"
#include "platform/windows/ImageImpl.h"
#include "platform/windows/ScreenScale.h"

namespace platform {

using windows::OwnedFont;
using windows::OwnedMemoryDc;
using windows::Selection;

namespace {

constexpr int kTenthPointsPerInch = 720;

OwnedFont FontFor(const Font& font, ink::Scale scale) {
    const int height = -MulDiv(font.tenthPoints, scale.Dots(), kTenthPointsPerInch);
    return OwnedFont(CreateFontW(height, 0, 0, 0, font.bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE,
                                 DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                 DEFAULT_PITCH | FF_DONTCARE, L"Tahoma"));
}

// The system may write anything into the fourth byte of a pixel that it draws.
void ClearFourthByte(const Image& image, const Rect& area) {
    GdiFlush();
    const ink::PixelSurface surface = image.Surface();
    const Rect inside = Intersect(area, surface.Bounds());
    for (int y = inside.top; y < inside.bottom; ++y) {
        for (int x = inside.left; x < inside.right; ++x) surface.Row(y)[x] &= 0x00FFFFFF;
    }
}

// Keeps drawing inside an area.
class Clipping {
  public:
    Clipping(HDC dc, const Rect& area) : dc_(dc), saved_(SaveDC(dc)) {
        IntersectClipRect(dc, area.left, area.top, area.right, area.bottom);
    }
    Clipping(const Clipping&) = delete;
    Clipping& operator=(const Clipping&) = delete;
    ~Clipping() { RestoreDC(dc_, saved_); }

  private:
    HDC dc_;
    int saved_;
};

}  // namespace

struct ImageList::Impl {
    windows::OwnedImageList list;
    int imageSize = 0;  // page pixels
};

ImageList::ImageList() = default;
ImageList::ImageList(ImageList&&) noexcept = default;
ImageList& ImageList::operator=(ImageList&&) noexcept = default;
ImageList::~ImageList() = default;

ImageList ImageList::FromResource(int bitmapId, int imageSize, ink::ColorRef mask, ink::Scale scale) {
    ImageList result;
    auto impl = std::make_unique<Impl>();
    impl->list = windows::MaskedImages(Image::FromResource(bitmapId, scale), imageSize, imageSize, mask);
    impl->imageSize = imageSize;
    if (impl->list) result.impl_ = std::move(impl);
    return result;
}

void Canvas::Fill(const Rect& area, ink::ColorRef color) {
    const ink::PixelSurface surface = image_.Surface();
    const Rect inside = Intersect(image_.PageScale().ToSurface(area), surface.Bounds());
    for (int y = inside.top; y < inside.bottom; ++y) {
        std::fill_n(surface.Row(y) + inside.left, inside.Width(), ink::PixelOf(color));
    }
}

void Canvas::Text(const std::wstring& text, Point topLeft, const Font& font, ink::ColorRef color,
                  const Rect& clip) {
    if (!image_.IsValid() || clip.IsEmpty()) return;
    const ink::Scale scale = image_.PageScale();
    const Rect area = scale.ToSurface(clip);
    const HDC dc = image_.Handle()->dc.get();
    const OwnedFont shape = FontFor(font, scale);
    const Clipping clipping(dc, area);
    const Selection selection(dc, shape.get());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, color);
    RECT place = windows::ToDesktop({topLeft.x, topLeft.y, topLeft.x, topLeft.y}, scale);
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &place,
              DT_LEFT | DT_TOP | DT_NOPREFIX | DT_NOCLIP);
    ClearFourthByte(image_, area);
}

Rect Canvas::TextSize(const std::wstring& text, const Font& font, ink::Scale scale) {
    const OwnedMemoryDc dc(CreateCompatibleDC(nullptr));
    const OwnedFont shape = FontFor(font, scale);
    const Selection selection(dc.get(), shape.get());
    SIZE size{};
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.get(), &metrics);  // the height of an empty text too
    GetTextExtentPoint32W(dc.get(), text.data(), static_cast<int>(text.size()), &size);
    return {0, 0, windows::WholePagePixels(size.cx, scale),
            windows::WholePagePixels(metrics.tmHeight, scale)};
}

void Canvas::Draw(const ImageList& images, int index, Point topLeft) {
    if (!image_.IsValid() || !images.IsValid()) return;
    const ImageList::Impl& source = *images.Handle();
    const Rect room = image_.PageScale().ToSurface(
        {topLeft.x, topLeft.y, topLeft.x + source.imageSize, topLeft.y + source.imageSize});
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(source.list.get(), &width, &height);
    const Point place = InTheMiddleOf(room, width, height);
    ImageList_Draw(source.list.get(), index, image_.Handle()->dc.get(), place.x, place.y, ILD_TRANSPARENT);
    ClearFourthByte(image_, room);
}

void Canvas::Draw(const Image& picture, Point topLeft) {
    if (!image_.IsValid() || !picture.IsValid()) return;
    const Rect room = image_.PageScale().ToSurface(
        {topLeft.x, topLeft.y, topLeft.x + picture.Width(), topLeft.y + picture.Height()});
    const SIZE size = picture.Handle()->size;
    const Point place = InTheMiddleOf(room, size.cx, size.cy);
    BitBlt(image_.Handle()->dc.get(), place.x, place.y, size.cx, size.cy, picture.Handle()->dc.get(), 0, 0,
           SRCCOPY);
    GdiFlush();  // pixels are also read and written without the system
}

}  // namespace platform
