#include <QColor>
#include <limits>
#include <new>

#include "platform/Pixels.h"
#include "platform/qt/ImageImpl.h"
#include "platform/resources/ResourceTables.h"

namespace platform {

namespace qt {

QRect ToQt(const ink::Rect& rect) { return {rect.left, rect.top, rect.Width(), rect.Height()}; }

ink::Rect FromQt(const QRect& rect) {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

QColor ToQt(ink::ColorRef color) { return {ink::Red(color), ink::Green(color), ink::Blue(color)}; }

QPixmap MaskedPicture(const Image& strip, int index, int width, int height, ink::ColorRef mask) {
    QImage picture(width, height, QImage::Format_ARGB32);
    if (picture.isNull()) return {};
    picture.fill(Qt::transparent);
    const ink::PixelSurface surface = strip.Surface();
    const uint32_t maskPixel = ink::PixelOf(mask);
    for (int y = 0; y < std::min(height, surface.height); ++y) {
        for (int x = 0; x < width; ++x) {
            const int from = index * width + x;
            if (from >= surface.width || surface.Row(y)[from] == maskPixel) continue;
            picture.setPixel(x, y, surface.Row(y)[from] | 0xFF000000u);
        }
    }
    return QPixmap::fromImage(picture);
}

}  // namespace qt

QImage Image::Impl::View() const {
    return {reinterpret_cast<uchar*>(pixels.get()), width, height, width * 4, QImage::Format_RGB32};
}

Image::Image() = default;
Image::Image(Image&&) noexcept = default;
Image& Image::operator=(Image&&) noexcept = default;
Image::~Image() = default;

Image Image::Make(int width, int height) {
    Image image;
    if (width <= 0 || height <= 0 || width > std::numeric_limits<int>::max() / 4 / height) return image;
    const size_t count = static_cast<size_t>(width) * static_cast<size_t>(height);
    std::unique_ptr<uint32_t[]> pixels(new (std::nothrow) uint32_t[count]());
    if (!pixels) return image;
    image.impl_ = std::make_unique<Impl>();
    image.impl_->width = width;
    image.impl_->height = height;
    image.impl_->pixels = std::move(pixels);
    return image;
}

Image Image::FromResource(int id) { return resources::ImageOfBitmap(id); }

bool Image::IsValid() const { return impl_ != nullptr; }
int Image::Width() const { return impl_ ? impl_->width : 0; }
int Image::Height() const { return impl_ ? impl_->height : 0; }

ink::PixelSurface Image::Surface() const {
    if (!impl_) return {};
    return {impl_->pixels.get(), impl_->width, impl_->height, impl_->width};
}

}  // namespace platform
