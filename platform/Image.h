#pragma once

#include <memory>

#include "ink/PixelSurface.h"
#include "ink/Scale.h"

namespace platform {

// An off-screen picture of 32-bit pixels (0x00RRGGBB) that windows can show: so many page pixels, each as
// many screen pixels as its scale says. Move-only.
class Image {
  public:
    Image();
    Image(Image&& other) noexcept;
    Image& operator=(Image&& other) noexcept;
    ~Image();

    // Width and height in page pixels. Invalid when memory is short or a side is not positive. Pixels start
    // black.
    static Image Make(int width, int height, ink::Scale scale = ink::Scale());
    // A bitmap of the program's resources, in the largest size drawn for it that `scale` has room for, which
    // is then the scale of the image (see Artwork.h); invalid when there is none.
    static Image FromResource(int id, ink::Scale scale = ink::Scale());

    bool IsValid() const;
    int Width() const;  // page pixels
    int Height() const;
    ink::Scale PageScale() const;
    // The screen pixels, top row first; valid as long as this image is.
    ink::PixelSurface Surface() const;

    // For the ports.
    struct Impl;
    Impl* Handle() const { return impl_.get(); }

  private:
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform
