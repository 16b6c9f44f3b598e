// Shapes are drawn for real; a text is a bar of its colour, as wide as its characters are many, which is
// enough to see where texts go.
#include "platform/Artwork.h"
#include "platform/Canvas.h"
#include "platform/Pixels.h"
#include "platform/host/HostDevice.h"
#include "platform/host/HostImage.h"

namespace platform {

namespace {

int LineHeight(const Font& font) { return font.tenthPoints * 96 / 720 * 5 / 4; }
int CharacterWidth(const Font& font) { return font.tenthPoints * 96 / 720 / 2 + (font.bold ? 1 : 0); }

}  // namespace

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

ink::ColorRef ColorOf(SystemColor color) {
    switch (color) {
        case SystemColor::ButtonFace:
        case SystemColor::BarFace:
            return ink::MakeColor(240, 240, 240);
        case SystemColor::Window:
            return ink::MakeColor(255, 255, 255);
        case SystemColor::WindowFrame:
        case SystemColor::BarEdge:
            return ink::MakeColor(100, 100, 100);
        case SystemColor::ButtonText:
        case SystemColor::WindowText:
        case SystemColor::BarText:
            break;
    }
    return 0;
}

bool HasHighContrast() { return host::HostDevice::Current().desk.highContrast; }

void Canvas::Fill(const Rect& area, ink::ColorRef color) {
    const ink::PixelSurface surface = image_.Surface();
    const Rect inside = Intersect(image_.PageScale().ToSurface(area), surface.Bounds());
    if (image_.IsValid()) image_.Handle()->Cover(inside);
    FillPixels(surface, inside, ink::PixelOf(color));
}

void Canvas::Text(const std::wstring& text, Point topLeft, const Font& font, ink::ColorRef color,
                  const Rect& clip) {
    const Rect whole = Offset(TextSize(text, font), topLeft.x, topLeft.y);
    Rect bar = whole;
    bar.top += bar.Height() / 2;
    bar.bottom = bar.top + 1;
    Fill(Intersect(bar, clip), color);
    const Rect place = image_.PageScale().ToSurface(Intersect(whole, clip));
    if (image_.IsValid() && !place.IsEmpty()) image_.Handle()->things.push_back({text, place});
}

Rect Canvas::TextSize(const std::wstring& text, const Font& font, ink::Scale) {
    return {0, 0, static_cast<int>(text.size()) * CharacterWidth(font), LineHeight(font)};
}

void Canvas::Draw(const ImageList& images, int index, Point topLeft) {
    if (!images.IsValid()) return;
    const ImageList::Impl& list = *images.Handle();
    const auto side = static_cast<int>(list.strip.PageScale().ToScreen(list.imageSize));
    const Rect room = image_.PageScale().ToSurface(
        {topLeft.x, topLeft.y, topLeft.x + list.imageSize, topLeft.y + list.imageSize});
    const Point start = InTheMiddleOf(room, side, side);
    CopyMasked(list.strip.Surface(), ink::Offset({0, 0, side, side}, index * side, 0), list.mask,
               image_.Surface(), start);
    if (image_.IsValid()) image_.Handle()->things.push_back({L"picture " + std::to_wstring(index), room});
}

void Canvas::Draw(const Image& picture, Point topLeft) {
    const Rect whole = picture.Surface().Bounds();
    const Rect room = image_.PageScale().ToSurface(
        {topLeft.x, topLeft.y, topLeft.x + picture.Width(), topLeft.y + picture.Height()});
    host::CopyPicture(picture, whole, image_, InTheMiddleOf(room, whole.right, whole.bottom));
}

}  // namespace platform
