#include "platform/DarkBars.h"

#include <algorithm>

namespace platform {

namespace {

constexpr uint32_t kDark = 160;  // brightest channel of what would be lost on a dark bar
constexpr uint32_t kLight = 224;

uint32_t Lightened(uint32_t pixel) {
    const uint32_t red = pixel >> 16 & 0xFF;
    const uint32_t green = pixel >> 8 & 0xFF;
    const uint32_t blue = pixel & 0xFF;
    const uint32_t brightest = std::max({red, green, blue});
    if (brightest >= kDark) return pixel;
    const uint32_t step = kLight - brightest;
    return (red + step) << 16 | (green + step) << 8 | (blue + step);
}

}  // namespace

void LightenPictures(const ink::PixelSurface& surface, uint32_t mask) {
    for (int32_t y = 0; y < surface.height; ++y) {
        uint32_t* const row = surface.Row(y);
        for (int32_t x = 0; x < surface.width; ++x) {
            if (row[x] != mask) row[x] = Lightened(row[x]);
        }
    }
}

}  // namespace platform
