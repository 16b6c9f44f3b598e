// How many pixels of the screen a pixel of the page measures.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

#include "ink/Geometry.h"

namespace ink {

// Pages are told in page pixels: what a note's file holds, and all geometry. Pictures are told in screen
// pixels, which are as large or smaller. Both are counted from the page's own top left corner, so that a row
// or column lies at the same place of the screen's raster wherever the view stands: page pixel v covers the
// screen pixels ToScreen(v) up to ToScreen(v + 1), of which there is always one.
class Scale {
  public:
    // Dots per inch at which page and screen pixels are the same, and at which screens are finest.
    static constexpr int32_t kPageDots = 96;
    static constexpr int32_t kMostDots = 480;

    constexpr Scale() = default;
    // Dots per inch of the screen; clamped to kPageDots to kMostDots.
    constexpr explicit Scale(int32_t dots) : dots_(std::clamp(dots, kPageDots, kMostDots)) {}

    constexpr int32_t Dots() const { return dots_; }
    // Of a length that need not end at a pixel's edge.
    constexpr double Length(double length) const { return length * dots_ / kPageDots; }

    // Rounded, halves up. Exact for any sum of 32-bit numbers, as is ToPage.
    constexpr int64_t ToScreen(int64_t page) const {
        return FloorDivide(page * dots_ + kPageDots / 2, kPageDots);
    }
    // The page pixel that a screen pixel shows a part of.
    constexpr int64_t ToPage(int64_t screen) const {
        return FloorDivide(screen * kPageDots + kPageDots / 2 - 1, dots_);
    }

    // Between a view, in page pixels with page row `scroll` at its top, and the surface that shows it. What
    // is beyond 32 bits ends there.
    constexpr Rect ToSurface(const Rect& view, int32_t scroll) const {
        const int64_t top = ToScreen(scroll);
        return {Fit(ToScreen(view.left)), Fit(ToScreen(int64_t{view.top} + scroll) - top),
                Fit(ToScreen(view.right)), Fit(ToScreen(int64_t{view.bottom} + scroll) - top)};
    }
    // For surfaces that begin with their own page, such as pictures and windows.
    constexpr Rect ToSurface(const Rect& view) const { return ToSurface(view, 0); }
    constexpr Point ToView(const Point& surface) const { return ToView(surface, 0); }
    constexpr Point ToView(const Point& surface, int32_t scroll) const {
        return {Fit(ToPage(surface.x)), Fit(ToPage(surface.y + ToScreen(scroll)) - scroll)};
    }

  private:
    static constexpr int64_t FloorDivide(int64_t a, int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }
    static constexpr int32_t Fit(int64_t value) {
        return static_cast<int32_t>(std::clamp<int64_t>(value, std::numeric_limits<int32_t>::min(),
                                                        std::numeric_limits<int32_t>::max()));
    }

    int32_t dots_ = kPageDots;
};

constexpr bool operator==(Scale a, Scale b) { return a.Dots() == b.Dots(); }
constexpr bool operator!=(Scale a, Scale b) { return !(a == b); }

}  // namespace ink
