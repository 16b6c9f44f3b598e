#include "platform/host/HostImage.h"

#include <algorithm>
#include <new>

#include "platform/Pixels.h"
#include "platform/host/HostDevice.h"
#include "platform/resources/ResourceTables.h"

namespace platform {

using host::HostDevice;

namespace {

// What this device's memory holds; more is refused as memory being short.
constexpr int64_t kMostPixels = int64_t{1} << 26;

}  // namespace

void Image::Impl::Cover(const ink::Rect& area) {
    const auto isCovered = [&area](const DrawnThing& thing) {
        return ink::Intersect(thing.place, area) == thing.place;
    };
    things.erase(std::remove_if(things.begin(), things.end(), isCovered), things.end());
}

Image::Image() = default;
Image::Image(Image&&) noexcept = default;
Image& Image::operator=(Image&&) noexcept = default;
Image::~Image() = default;

Image Image::Make(int width, int height, ink::Scale scale) {
    Image image;
    const int64_t pixels = scale.ToScreen(width) * scale.ToScreen(height);
    if (width <= 0 || height <= 0 || pixels > kMostPixels) return image;
    if (HostDevice::Current().picturesLeft-- <= 0) return image;
    try {
        auto impl = std::make_unique<Impl>();
        impl->width = width;
        impl->height = height;
        impl->scale = scale;
        impl->pixels.resize(static_cast<size_t>(pixels));
        image.impl_ = std::move(impl);
    } catch (const std::bad_alloc&) {
        return {};
    }
    return image;
}

Image Image::FromResource(int id, ink::Scale scale) { return resources::ImageOfBitmap(id, scale); }

bool Image::IsValid() const { return impl_ != nullptr; }
int Image::Width() const { return IsValid() ? impl_->width : 0; }
int Image::Height() const { return IsValid() ? impl_->height : 0; }
ink::Scale Image::PageScale() const { return IsValid() ? impl_->scale : ink::Scale(); }

ink::PixelSurface Image::Surface() const {
    if (!IsValid()) return {};
    const auto width = static_cast<int32_t>(impl_->scale.ToScreen(impl_->width));
    return {impl_->pixels.data(), width, static_cast<int32_t>(impl_->scale.ToScreen(impl_->height)), width};
}

void host::CopyPicture(const Image& from, const ink::Rect& source, const Image& to, ink::Point topLeft) {
    if (!from.IsValid() || !to.IsValid()) return;
    const int dx = topLeft.x - source.left;
    const int dy = topLeft.y - source.top;
    const ink::Rect area = CopyPixels(from.Surface(), source, to.Surface(), topLeft);
    const std::vector<DrawnThing> copied = from.Handle()->things;
    to.Handle()->Cover(area);
    for (const DrawnThing& thing : copied) {
        const ink::Rect place = Offset(thing.place, dx, dy);
        if (!Intersect(place, area).IsEmpty()) to.Handle()->things.push_back({thing.text, place});
    }
}

}  // namespace platform
