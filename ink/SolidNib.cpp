#include "ink/SolidNib.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace ink {
namespace {

struct Columns {
    int64_t left;
    int64_t right;
};

// Rounds up, and what is negative to anything not above zero.
int64_t CeilDivide(int64_t a, int64_t b) { return (a + b - 1) / b; }

// The pixels of the line in row y (0..dy), for dx >= 0: along the longer side one pixel per step, rounded
// to the nearest in the other direction.
Columns LineRow(int64_t dx, int64_t dy, int64_t y) {
    if (dy == 0) return {0, dx};
    if (dy >= dx) {
        const int64_t x = (2 * y * dx + dy) / (2 * dy);
        return {x, x};
    }
    const int64_t left = CeilDivide((2 * y - 1) * dx, 2 * dy);
    const int64_t right = CeilDivide((2 * y + 1) * dx, 2 * dy) - 1;
    return {std::clamp<int64_t>(left, 0, dx), std::clamp<int64_t>(right, 0, dx)};
}

}  // namespace

SolidNib::SolidNib(const std::vector<BrushLayer>& layers) {
    for (const BrushLayer& layer : layers) {
        brushes_.push_back(MakeBrush(layer));
        reach_ = std::max(reach_, layer.width / 2);
    }
}

SolidNib::Brush SolidNib::MakeBrush(const BrushLayer& layer) {
    Brush brush{layer.level, {}};
    const int32_t first = -(layer.width / 2);
    const int32_t last = first + layer.width - 1;
    // Doubled distances from the middle of the brush, which for even widths lies between pixels. A little
    // less than the full radius rounds the corners of small brushes.
    const int32_t middle = first + last;
    const int32_t limit = layer.width <= 2 ? 2 * layer.width * layer.width : layer.width * layer.width - 1;
    for (int32_t y = first; y <= last; ++y) {
        BrushRow row{y, std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::min()};
        for (int32_t x = first; x <= last; ++x) {
            const int32_t fromX = 2 * x - middle;
            const int32_t fromY = 2 * y - middle;
            if (fromX * fromX + fromY * fromY > limit) continue;
            row.left = std::min(row.left, x);
            row.right = std::max(row.right, x);
        }
        if (row.left <= row.right) brush.rows.push_back(row);
    }
    return brush;
}

CoverSpan SolidNib::CoverRow(const Sweep& sweep, int64_t row, int64_t column, int32_t width, uint8_t* out) {
    const bool mirrored = sweep.dx < 0;
    const int64_t dx = mirrored ? -sweep.dx : sweep.dx;
    CoverSpan whole;
    for (const Brush& brush : brushes_) {
        int64_t left = std::numeric_limits<int64_t>::max();
        int64_t right = std::numeric_limits<int64_t>::min();
        for (const BrushRow& part : brush.rows) {
            const int64_t y = row - part.y;
            if (y < 0 || y > sweep.dy) continue;
            const Columns line = LineRow(dx, sweep.dy, y);
            left = std::min(left, (mirrored ? -line.right : line.left) + part.left);
            right = std::max(right, (mirrored ? -line.left : line.right) + part.right);
        }
        if (left > right) continue;
        const int32_t first = static_cast<int32_t>(std::clamp<int64_t>(left - column, 0, width));
        const int32_t end = static_cast<int32_t>(std::clamp<int64_t>(right + 1 - column, 0, width));
        if (end <= first) continue;
        std::memset(out + first, brush.level, static_cast<size_t>(end - first));
        // The first brush is the widest: the others lie inside its span.
        if (whole.IsEmpty()) whole = {first, end};
        whole = {std::min(whole.first, first), std::max(whole.end, end)};
    }
    return whole;
}

}  // namespace ink
