#include "platform/Pixels.h"

#include <algorithm>
#include <cstdlib>

namespace platform {

using ink::PixelSurface;
using ink::Point;
using ink::Rect;

namespace {

// Where `source`, as far as there is any, comes to lie in the target.
Rect CoveredArea(const PixelSurface& from, const Rect& source, const PixelSurface& to, Point topLeft) {
    const Rect there = Intersect(source, from.Bounds());
    return Intersect(Offset(there, topLeft.x - source.left, topLeft.y - source.top), to.Bounds());
}

}  // namespace

Rect CopyPixels(const PixelSurface& from, const Rect& source, const PixelSurface& to, Point topLeft) {
    const Rect area = CoveredArea(from, source, to, topLeft);
    const int dx = topLeft.x - source.left;
    for (int y = area.top; y < area.bottom; ++y) {
        const uint32_t* row = from.Row(y - topLeft.y + source.top) - dx;
        std::copy(row + area.left, row + area.right, to.Row(y) + area.left);
    }
    return area;
}

void CopyMasked(const PixelSurface& from, const Rect& source, uint32_t mask, const PixelSurface& to,
                Point topLeft) {
    const Rect area = CoveredArea(from, source, to, topLeft);
    for (int y = area.top; y < area.bottom; ++y) {
        const uint32_t* row = from.Row(y - topLeft.y + source.top) - (topLeft.x - source.left);
        for (int x = area.left; x < area.right; ++x) {
            if (row[x] != mask) to.Row(y)[x] = row[x];
        }
    }
}

void FillPixels(const PixelSurface& surface, const Rect& area, uint32_t pixel) {
    const Rect inside = Intersect(area, surface.Bounds());
    for (int y = inside.top; y < inside.bottom; ++y)
        std::fill(surface.Row(y) + inside.left, surface.Row(y) + inside.right, pixel);
}

void InvertPixels(const PixelSurface& surface, const Rect& area) {
    const Rect inside = Intersect(area, surface.Bounds());
    for (int y = inside.top; y < inside.bottom; ++y) {
        for (int x = inside.left; x < inside.right; ++x) surface.Row(y)[x] ^= 0x00FFFFFFu;
    }
}

void MoveRows(const PixelSurface& surface, int dy) {
    const int rows = surface.height - std::min(surface.height, std::abs(dy));
    for (int i = 0; i < rows; ++i) {
        const int from = dy > 0 ? rows - 1 - i : i - dy;
        std::copy_n(surface.Row(from), surface.width, surface.Row(from + dy));
    }
}

}  // namespace platform
