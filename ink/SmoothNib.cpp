#include "ink/SmoothNib.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>

namespace ink {
namespace {

constexpr int kLines = 16;   // scan lines per pixel row
constexpr int kUnits = 256;  // horizontal units per pixel

// The y of a scan line's middle, from the middle of row 0; lines are counted from that row's top.
double LineY(int64_t line) { return (static_cast<double>(line) + 0.5) / kLines - 0.5; }

int64_t ToUnits(double x) {
    const double scaled = x * kUnits + 0.5;
    const int64_t whole = static_cast<int64_t>(scaled);
    return whole - (scaled < static_cast<double>(whole) ? 1 : 0);
}

}  // namespace

struct SmoothNib::Extent {
    int64_t left = std::numeric_limits<int64_t>::max();
    int64_t right = std::numeric_limits<int64_t>::min();

    void Include(int64_t from, int64_t to) {
        left = std::min(left, from);
        right = std::max(right, to);
    }
};

// The two long sides of the swept disc, at distance `radius` from the segment.
struct SmoothNib::Edges {
    Edges(const Sweep& sweep, double radius) : dy(static_cast<double>(sweep.dy)) {
        if (sweep.dy == 0) return;
        const double dx = static_cast<double>(sweep.dx);
        const double scale = radius / std::sqrt(dx * dx + dy * dy);
        sideX = -dy * scale;
        sideY = dx * scale;
        slope = dx / dy;
    }

    void Include(double y, Extent& extent) const {
        for (const double side : {1.0, -1.0}) {
            const double down = y - side * sideY;
            if (down < 0.0 || down > dy) continue;
            const int64_t x = ToUnits(side * sideX + down * slope);
            extent.Include(x, x);
        }
    }

    double dy;
    double sideX = 0.0;
    double sideY = 0.0;
    double slope = 0.0;
};

SmoothNib::SmoothNib(double width)
    : radius_(std::max(width, 0.1) / 2), reach_(std::max(0, static_cast<int32_t>(std::ceil(radius_ - 0.5)))) {
    const int64_t lines = (2 * static_cast<int64_t>(reach_) + 1) * kLines;
    for (int64_t i = 0; i < lines; ++i) {
        const double y = LineY(i - static_cast<int64_t>(reach_) * kLines);
        const double square = radius_ * radius_ - y * y;
        halfWidths_.push_back(square > 0.0 ? static_cast<int32_t>(std::lround(std::sqrt(square) * kUnits))
                                           : -1);
    }
}

bool SmoothNib::Prepare(int32_t width) {
    const size_t wanted = static_cast<size_t>(width) + 2;
    if (sums_.size() >= wanted) return true;
    try {
        sums_.resize(wanted, 0);
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

void SmoothNib::AddDisc(int64_t line, int64_t centerX, Extent& extent) const {
    const int64_t index = line + static_cast<int64_t>(reach_) * kLines;
    if (index < 0 || index >= static_cast<int64_t>(halfWidths_.size())) return;
    const int32_t halfWidth = halfWidths_[static_cast<size_t>(index)];
    if (halfWidth >= 0) extent.Include(centerX * kUnits - halfWidth, centerX * kUnits + halfWidth);
}

CoverSpan SmoothNib::CoverRow(const Sweep& sweep, int64_t row, int64_t column, int32_t width, uint8_t* out) {
    const Edges edges(sweep, radius_);
    const int64_t origin = column * kUnits - kUnits / 2;
    const int64_t limit = static_cast<int64_t>(width) * kUnits;
    int64_t low = limit;
    int64_t high = 0;
    for (int64_t line = row * kLines; line < (row + 1) * kLines; ++line) {
        Extent extent;
        AddDisc(line, 0, extent);
        AddDisc(line - sweep.dy * kLines, sweep.dx, extent);
        if (sweep.dy != 0) edges.Include(LineY(line), extent);
        if (extent.right <= extent.left) continue;
        const int64_t left = std::clamp<int64_t>(extent.left - origin, 0, limit);
        const int64_t right = std::clamp<int64_t>(extent.right - origin, 0, limit);
        if (right <= left) continue;
        low = std::min(low, left);
        high = std::max(high, right);
        // A column's share is the running sum of these changes: an end inside a column is split between
        // it and the next one.
        const int32_t leftPart = static_cast<int32_t>(left % kUnits);
        const int32_t rightPart = static_cast<int32_t>(right % kUnits);
        int32_t* from = &sums_[static_cast<size_t>(left / kUnits)];
        int32_t* to = &sums_[static_cast<size_t>(right / kUnits)];
        from[0] += kUnits - leftPart;
        from[1] += leftPart;
        to[0] -= kUnits - rightPart;
        to[1] -= rightPart;
    }
    if (high <= low) return {};

    const CoverSpan span{static_cast<int32_t>(low / kUnits),
                         static_cast<int32_t>((high + kUnits - 1) / kUnits)};
    int32_t sum = 0;
    for (int32_t x = span.first; x < span.end; ++x) {
        int32_t& change = sums_[static_cast<size_t>(x)];
        sum += change;
        change = 0;
        out[x] = static_cast<uint8_t>((sum * 255 + kLines * kUnits / 2) / (kLines * kUnits));
    }
    // A right end exactly between two columns is noted behind the span.
    sums_[static_cast<size_t>(span.end)] = 0;
    return span;
}

}  // namespace ink
