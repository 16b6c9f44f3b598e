#include <QColor>
#include <limits>
#include <new>

#include "platform/Artwork.h"
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

QPixmap MaskedPicture(const Image& strip, int index, int width, int height, ink::ColorRef mask,
                      ink::Scale scale) {
    const ink::Rect room = scale.ToSurface({0, 0, width, height});
    QImage picture(room.right, room.bottom, QImage::Format_ARGB32);
    if (picture.isNull() || !strip.IsValid()) return {};
    constexpr uint32_t kNothing = 0x80000000u;  // no pixel of a picture
    picture.fill(kNothing);
    const ink::PixelSurface to{reinterpret_cast<uint32_t*>(picture.bits()), picture.width(), picture.height(),
                               picture.width()};
    const ink::Rect drawn = strip.PageScale().ToSurface({0, 0, width, height});
    const ink::Point corner = InTheMiddleOf(room, drawn.right, drawn.bottom);
    CopyMasked(strip.Surface(), ink::Offset(drawn, index * drawn.right, 0), ink::PixelOf(mask), to, corner);
    for (int y = 0; y < to.height; ++y) {
        for (int x = 0; x < to.width; ++x) {
            uint32_t& pixel = to.Row(y)[x];
            pixel = pixel == kNothing ? 0 : pixel | 0xFF000000u;
        }
    }
    picture.setDevicePixelRatio(scale.Length(1));
    return QPixmap::fromImage(picture);
}

}  // namespace qt

QImage Image::Impl::View() const {
    const ink::Rect size = scale.ToSurface({0, 0, width, height});
    return {reinterpret_cast<uchar*>(pixels.get()), size.right, size.bottom, size.right * 4,
            QImage::Format_RGB32};
}

Image::Image() = default;
Image::Image(Image&&) noexcept = default;
Image& Image::operator=(Image&&) noexcept = default;
Image::~Image() = default;

Image Image::Make(int width, int height, ink::Scale scale) {
    Image image;
    const int64_t count = scale.ToScreen(width) * scale.ToScreen(height);
    if (width <= 0 || height <= 0 || count > std::numeric_limits<int>::max() / 4) return image;
    std::unique_ptr<uint32_t[]> pixels(new (std::nothrow) uint32_t[static_cast<size_t>(count)]());
    if (!pixels) return image;
    image.impl_ = std::make_unique<Impl>();
    image.impl_->width = width;
    image.impl_->height = height;
    image.impl_->scale = scale;
    image.impl_->pixels = std::move(pixels);
    return image;
}

Image Image::FromResource(int id, ink::Scale scale) { return resources::ImageOfBitmap(id, scale); }

bool Image::IsValid() const { return impl_ != nullptr; }
int Image::Width() const { return impl_ ? impl_->width : 0; }
int Image::Height() const { return impl_ ? impl_->height : 0; }

ink::Scale Image::PageScale() const { return impl_ ? impl_->scale : ink::Scale(); }

ink::PixelSurface Image::Surface() const {
    if (!impl_) return {};
    const ink::Rect size = impl_->scale.ToSurface({0, 0, impl_->width, impl_->height});
    return {impl_->pixels.get(), size.right, size.bottom, size.right};
}

}  // namespace platform
