#pragma once

#include <memory>

#include "ink/PixelSurface.h"

namespace platform {

// An off-screen picture of 32-bit pixels (0x00RRGGBB) that windows can show. Move-only.
class Image {
  public:
    Image();
    Image(Image&& other) noexcept;
    Image& operator=(Image&& other) noexcept;
    ~Image();

    // Invalid when memory is short or a side is not positive. Pixels start black.
    static Image Make(int width, int height);
    // A bitmap of the program's resources; invalid when there is none.
    static Image FromResource(int id);

    bool IsValid() const;
    int Width() const;
    int Height() const;
    // The pixels, top row first; valid as long as this image is.
    ink::PixelSurface Surface() const;

    // For the ports.
    struct Impl;
    Impl* Handle() const { return impl_.get(); }

  private:
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform
