#pragma once

#include "platform/Image.h"
#include "platform/windows/Guards.h"

namespace platform {

// A top-down DIB section, selected into its own memory device context for as long as it lives.
struct Image::Impl {
    int width = 0;  // page pixels
    int height = 0;
    ink::Scale scale;
    SIZE size{};                 // screen pixels
    uint32_t* pixels = nullptr;  // belongs to `bitmap`
    windows::OwnedBitmap bitmap;
    windows::OwnedMemoryDc dc;  // declared last: goes first, so that the bitmap is free again

    bool Create(int pageWidth, int pageHeight, ink::Scale pageScale);
};

namespace windows {

// A new 32-bit bitmap, selected nowhere; `pixels` receives the place of its top row. Null when memory is
// short.
OwnedBitmap MakeBitmap(int width, int height, uint32_t*& pixels);

// The pictures, each of this size in page pixels, that stand side by side in `picture`, transparent where it
// has the colour `mask`. Null when memory is short or `picture` is invalid.
OwnedImageList MaskedImages(const Image& picture, int width, int height, COLORREF mask);

}  // namespace windows

}  // namespace platform
