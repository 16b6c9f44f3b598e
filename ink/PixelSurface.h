// A view of somebody else's 32-bit picture.
#pragma once

#include <cstdint>

#include "ink/Color.h"
#include "ink/Geometry.h"

namespace ink {

// Pixels are 0x00RRGGBB, top row first, `stride` pixels from one row to the next: the layout of a 32-bit
// device independent bitmap. The owner keeps the pixels alive and in place.
struct PixelSurface {
    uint32_t* pixels = nullptr;
    int32_t width = 0;
    int32_t height = 0;
    int32_t stride = 0;

    uint32_t* Row(int32_t y) const { return pixels + static_cast<int64_t>(y) * stride; }
    Rect Bounds() const { return Rect{0, 0, width, height}; }
};

constexpr uint32_t PixelOf(ColorRef color) {
    return static_cast<uint32_t>(Red(color)) << 16 | static_cast<uint32_t>(Green(color)) << 8 | Blue(color);
}
constexpr ColorRef ColorOf(uint32_t pixel) { return MakeColor(pixel >> 16, pixel >> 8, pixel); }

}  // namespace ink
