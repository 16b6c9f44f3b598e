#pragma once

#include <QImage>
#include <QPixmap>
#include <memory>
#include <vector>

#include "platform/Image.h"

namespace platform {

// The pixels are ours, so that they stay where they are while the toolkit looks at them.
struct Image::Impl {
    int width = 0;  // page pixels
    int height = 0;
    ink::Scale scale;
    std::unique_ptr<uint32_t[]> pixels;  // screen pixels

    // For drawing on; what draws leaves something in the fourth bytes.
    QImage View() const;
};

namespace qt {

QRect ToQt(const ink::Rect& rect);
ink::Rect FromQt(const QRect& rect);
QColor ToQt(ink::ColorRef color);

// The picture that lies `index` pictures of this size (page pixels) to the right in the strip, transparent
// where it has the colour `mask`. One that was drawn for a smaller scale lies in the middle.
QPixmap MaskedPicture(const Image& strip, int index, int width, int height, ink::ColorRef mask,
                      ink::Scale scale);

}  // namespace qt

}  // namespace platform
