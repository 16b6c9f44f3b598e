// Colours and their lighter and darker variants.
#pragma once

#include <cstdint>

namespace ink {

// 0x00BBGGRR: red in the low byte.
using ColorRef = uint32_t;

constexpr ColorRef MakeColor(uint32_t red, uint32_t green, uint32_t blue) {
    return (red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16;
}
constexpr uint8_t Red(ColorRef color) { return static_cast<uint8_t>(color & 0xFF); }
constexpr uint8_t Green(ColorRef color) { return static_cast<uint8_t>(color >> 8 & 0xFF); }
constexpr uint8_t Blue(ColorRef color) { return static_cast<uint8_t>(color >> 16 & 0xFF); }

// The colour with its lightness changed by `factor` of itself (negative darkens), in steps of 1/255 and
// clamped to black and white. Hue and saturation are rounded to bytes on the way, so a factor of 0 may
// still move the colour a little.
ColorRef Shade(ColorRef color, float factor);

// The same without steps and without clamping: a component lightened beyond 255 keeps its low 8 bits.
ColorRef FineShade(ColorRef color, float factor);

}  // namespace ink
