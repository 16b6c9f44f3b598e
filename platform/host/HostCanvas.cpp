// Shapes are drawn for real; a text is a bar of its colour, as wide as its characters are many, which is
// enough to see where texts go.
#include "platform/Canvas.h"
#include "platform/Pixels.h"
#include "platform/host/HostImage.h"

namespace platform {

namespace {

int LineHeight(const Font& font) { return font.tenthPoints * 96 / 720 * 5 / 4; }
int CharacterWidth(const Font& font) { return font.tenthPoints * 96 / 720 / 2 + (font.bold ? 1 : 0); }

}  // namespace

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
            return ink::MakeColor(240, 240, 240);
        case SystemColor::ButtonText:
            return 0;
        case SystemColor::WindowFrame:
            return ink::MakeColor(100, 100, 100);
    }
    return 0;
}

void Canvas::Fill(const Rect& area, ink::ColorRef color) {
    const ink::PixelSurface surface = image_.Surface();
    const Rect inside = Intersect(area, surface.Bounds());
    if (image_.IsValid()) image_.Handle()->Cover(inside);
    FillPixels(surface, inside, ink::PixelOf(color));
}

void Canvas::Text(const std::wstring& text, Point topLeft, const Font& font, ink::ColorRef color,
                  const Rect& clip) {
    Rect bar = Offset(TextSize(text, font), topLeft.x, topLeft.y);
    bar.top += bar.Height() / 2;
    bar.bottom = bar.top + 1;
    Fill(Intersect(bar, clip), color);
    const Rect place = Intersect(Offset(TextSize(text, font), topLeft.x, topLeft.y), clip);
    if (image_.IsValid() && !place.IsEmpty()) image_.Handle()->things.push_back({text, place});
}

Rect Canvas::TextSize(const std::wstring& text, const Font& font) {
    return {0, 0, static_cast<int>(text.size()) * CharacterWidth(font), LineHeight(font)};
}

void Canvas::Draw(const ImageList& images, int index, Point topLeft) {
    if (!images.IsValid()) return;
    const ImageList::Impl& list = *images.Handle();
    const Rect size{0, 0, list.imageSize, list.imageSize};
    CopyMasked(list.strip.Surface(), Offset(size, index * list.imageSize, 0), list.mask, image_.Surface(),
               topLeft);
    const Rect place = Offset(size, topLeft.x, topLeft.y);
    if (image_.IsValid()) image_.Handle()->things.push_back({L"picture " + std::to_wstring(index), place});
}

void Canvas::Draw(const Image& picture, Point topLeft) {
    host::CopyPicture(picture, {0, 0, picture.Width(), picture.Height()}, image_, topLeft);
}

}  // namespace platform
