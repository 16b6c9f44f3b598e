#include <new>
#include <vector>

#include "platform/Image.h"
#include "platform/host/HostDevice.h"
#include "platform/host/HostResources.h"

namespace platform {

using host::HostDevice;

namespace {

// What this device's memory holds; more is refused as memory being short.
constexpr int64_t kMostPixels = int64_t{1} << 26;

}  // namespace

struct Image::Impl {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;
};

Image::Image() = default;
Image::Image(Image&&) noexcept = default;
Image& Image::operator=(Image&&) noexcept = default;
Image::~Image() = default;

Image Image::Make(int width, int height) {
    Image image;
    if (width <= 0 || height <= 0 || int64_t{width} * height > kMostPixels) return image;
    if (HostDevice::Current().picturesLeft-- <= 0) return image;
    try {
        auto impl = std::make_unique<Impl>();
        impl->width = width;
        impl->height = height;
        impl->pixels.resize(static_cast<size_t>(width) * static_cast<size_t>(height));
        image.impl_ = std::move(impl);
    } catch (const std::bad_alloc&) {
        return {};
    }
    return image;
}

Image Image::FromResource(int id) {
    const std::string file = host::FindBitmapFile(id);
    return file.empty() ? Image() : host::LoadBitmapFile(file);
}

bool Image::IsValid() const { return impl_ != nullptr; }
int Image::Width() const { return IsValid() ? impl_->width : 0; }
int Image::Height() const { return IsValid() ? impl_->height : 0; }

ink::PixelSurface Image::Surface() const {
    if (!IsValid()) return {};
    return {impl_->pixels.data(), impl_->width, impl_->height, impl_->width};
}

}  // namespace platform
