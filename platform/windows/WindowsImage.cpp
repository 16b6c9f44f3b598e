#include <algorithm>
#include <limits>

#include "platform/Artwork.h"
#include "platform/windows/ImageImpl.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

using windows::OwnedBitmap;
using windows::OwnedMemoryDc;
using windows::Selection;

namespace windows {

OwnedBitmap MakeBitmap(int width, int height, uint32_t*& pixels) {
    pixels = nullptr;
    if (width <= 0 || height <= 0 || width > std::numeric_limits<int>::max() / 4 / height) return nullptr;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;  // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    OwnedBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    pixels = static_cast<uint32_t*>(bits);
    return bitmap;
}

OwnedImageList MaskedImages(const Image& picture, int width, int height, COLORREF mask) {
    if (!picture.IsValid() || width <= 0 || height <= 0) return nullptr;
    // Adding to an image list spoils the bitmap that is given.
    const ink::PixelSurface source = picture.Surface();
    const RECT each = ToDesktop({0, 0, width, height}, picture.PageScale());
    uint32_t* pixels = nullptr;
    const OwnedBitmap copy = MakeBitmap(source.width, source.height, pixels);
    OwnedImageList list(ImageList_Create(each.right, each.bottom, ILC_COLOR24 | ILC_MASK,
                                         static_cast<int>(source.width / each.right), 1));
    if (!copy || !list) return nullptr;
    std::copy_n(source.pixels, source.width * source.height, pixels);
    if (ImageList_AddMasked(list.get(), copy.get(), mask) < 0) return nullptr;
    return list;
}

}  // namespace windows

bool Image::Impl::Create(int pageWidth, int pageHeight, ink::Scale pageScale) {
    const RECT place = windows::ToDesktop({0, 0, pageWidth, pageHeight}, pageScale);
    bitmap = windows::MakeBitmap(place.right, place.bottom, pixels);
    dc.reset(CreateCompatibleDC(nullptr));
    if (!bitmap || !dc || !SelectObject(dc.get(), bitmap.get())) return false;
    width = pageWidth;
    height = pageHeight;
    scale = pageScale;
    size = {place.right, place.bottom};
    return true;
}

Image::Image() = default;
Image::Image(Image&&) noexcept = default;
Image& Image::operator=(Image&&) noexcept = default;
Image::~Image() = default;

Image Image::Make(int width, int height, ink::Scale scale) {
    Image image;
    auto impl = std::make_unique<Impl>();
    if (impl->Create(width, height, scale)) image.impl_ = std::move(impl);
    return image;
}

Image Image::FromResource(int id, ink::Scale scale) {
    const ArtworkSize artwork = ArtworkFor(scale);
    const OwnedBitmap source(
        static_cast<HBITMAP>(LoadImageW(windows::Module(), MAKEINTRESOURCEW(id + artwork.idOffset),
                                        IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    BITMAP shape{};
    if (!source || GetObjectW(source.get(), sizeof shape, &shape) == 0) return {};
    const ink::Point size = windows::ToPage(POINT{shape.bmWidth, shape.bmHeight}, artwork.scale);
    Image image = Make(size.x, size.y, artwork.scale);
    const OwnedMemoryDc from(CreateCompatibleDC(nullptr));
    if (!image.IsValid() || !from) return {};
    const Selection selection(from.get(), source.get());
    BitBlt(image.impl_->dc.get(), 0, 0, shape.bmWidth, shape.bmHeight, from.get(), 0, 0, SRCCOPY);
    GdiFlush();
    const ink::PixelSurface surface = image.Surface();
    for (int32_t i = 0; i < surface.width * surface.height; ++i) surface.pixels[i] &= 0x00FFFFFF;
    return image;
}

bool Image::IsValid() const { return impl_ != nullptr; }
int Image::Width() const { return impl_ ? impl_->width : 0; }
int Image::Height() const { return impl_ ? impl_->height : 0; }
ink::Scale Image::PageScale() const { return impl_ ? impl_->scale : ink::Scale(); }

ink::PixelSurface Image::Surface() const {
    if (!impl_) return {};
    return {impl_->pixels, impl_->size.cx, impl_->size.cy, impl_->size.cx};
}

}  // namespace platform
