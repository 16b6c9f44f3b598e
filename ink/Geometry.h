// Points and rectangles in pixels. x grows to the right, y downwards.
#pragma once

#include <algorithm>
#include <cstdint>

namespace ink {

struct Point {
    int32_t x = 0;
    int32_t y = 0;
};

inline bool operator==(const Point& a, const Point& b) { return a.x == b.x && a.y == b.y; }
inline bool operator!=(const Point& a, const Point& b) { return !(a == b); }

// Half open: `right` and `bottom` lie outside. A rectangle whose right is not beyond its left, or whose
// bottom is not beyond its top, is empty, whatever its other numbers say.
struct Rect {
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;

    bool IsEmpty() const { return right <= left || bottom <= top; }
    int32_t Width() const { return right - left; }
    int32_t Height() const { return bottom - top; }
    bool Contains(Point p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
};

inline bool operator==(const Rect& a, const Rect& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
inline bool operator!=(const Rect& a, const Rect& b) { return !(a == b); }

// The common part; an empty rectangle (all zero) when there is none.
inline Rect Intersect(const Rect& a, const Rect& b) {
    const Rect r{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                 std::min(a.bottom, b.bottom)};
    return r.IsEmpty() ? Rect{} : r;
}

// The smallest rectangle around both; an empty one adds nothing.
inline Rect Unite(const Rect& a, const Rect& b) {
    if (a.IsEmpty()) return b.IsEmpty() ? Rect{} : b;
    if (b.IsEmpty()) return a;
    return Rect{std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                std::max(a.bottom, b.bottom)};
}

inline Rect Inflate(const Rect& r, int32_t dx, int32_t dy) {
    return Rect{r.left - dx, r.top - dy, r.right + dx, r.bottom + dy};
}

inline Rect Offset(const Rect& r, int32_t dx, int32_t dy) {
    return Rect{r.left + dx, r.top + dy, r.right + dx, r.bottom + dy};
}

// The rectangle moved as little as needed to lie inside `area`; what is larger keeps its top left there.
inline Rect MovedInto(const Rect& r, const Rect& area) {
    const int32_t left = std::max(std::min(r.left, area.right - r.Width()), area.left);
    const int32_t top = std::max(std::min(r.top, area.bottom - r.Height()), area.top);
    return Offset(r, left - r.left, top - r.top);
}

}  // namespace ink
