// The three kinds of line that a pen can draw.
#pragma once

#include <cstdint>

namespace ink {

// The numbers are those of the settings.
enum class PenStyle : uint8_t {
    Simple = 0,   // solid line of the truncated width
    Classic = 1,  // one-pixel core over a two-pixel lighter line; has no width
    Smooth = 2,   // anti-aliased, any width
};

// What a stored number paints as: those that no style has are smooth as well.
constexpr PenStyle PenStyleOf(uint32_t stored) {
    if (stored == 0) return PenStyle::Simple;
    return stored == 1 ? PenStyle::Classic : PenStyle::Smooth;
}

}  // namespace ink
