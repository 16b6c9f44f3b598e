#include "tests/ink/PlainPainter.h"

#include <algorithm>
#include <cmath>

namespace sketch {
namespace {

using ink::PenStyle;
using ink::Point;
using ink::Rect;

double Distance(double x, double y, Point a, Point b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double along = a == b ? 0 : ((x - a.x) * dx + (y - a.y) * dy) / (dx * dx + dy * dy);
    const double place = std::clamp(along, 0.0, 1.0);
    const double right = x - a.x - place * dx;
    const double down = y - a.y - place * dy;
    return std::sqrt(right * right + down * down);
}

// Where a scan line through the ink of a segment leaves it, to the next 1/256 pixel.
int64_t EdgeOf(double radius, double inside, double outside, double y, Point a, Point b) {
    for (int i = 0; i < 45; ++i) {
        const double middle = (inside + outside) / 2;
        (Distance(middle, y, a, b) <= radius ? inside : outside) = middle;
    }
    return static_cast<int64_t>(std::floor(inside * 256 + 0.5));
}

// The share of each pixel within half the pen's width of the segment, on 16 scan lines.
Bytes SmoothCover(double radius, Point a, Point b, const Rect& area) {
    Bytes cover;
    for (int32_t y = area.top; y < area.bottom; ++y) {
        std::vector<int64_t> covered(static_cast<size_t>(area.Width()));  // of 16 times 256
        for (int line = 0; line < 16; ++line) {
            const double at = y + (line + 0.5) / 16 - 0.5;
            const double along = a.y == b.y ? 0 : std::clamp((at - a.y) / (b.y - a.y), 0.0, 1.0);
            const double nearest = a.x + along * (b.x - a.x);
            if (Distance(nearest, at, a, b) > radius) continue;
            const double far = 2 * radius + std::abs(b.x - a.x) + 1;
            const int64_t left = EdgeOf(radius, nearest, nearest - far, at, a, b);
            const int64_t right = EdgeOf(radius, nearest, nearest + far, at, a, b);
            for (int32_t x = area.left; x < area.right; ++x) {
                const int64_t pixel = int64_t{x} * 256 - 128;
                const int64_t part = std::min(right, pixel + 256) - std::max(left, pixel);
                covered[static_cast<size_t>(x - area.left)] += std::max<int64_t>(part, 0);
            }
        }
        for (const int64_t part : covered) cover.push_back(static_cast<uint8_t>((part * 255 + 2048) / 4096));
    }
    return cover;
}

// A round brush moved along a line of pixels, one for each step of its longer side, from its upper end.
void Brush(int32_t width, uint8_t level, Point a, Point b, const Rect& area, Bytes& cover) {
    if (b.y < a.y || (b.y == a.y && b.x < a.x)) std::swap(a, b);
    const int64_t dx = std::abs(b.x - a.x);
    const int64_t dy = b.y - a.y;
    const int64_t steps = std::max<int64_t>({dx, dy, 1});
    const double middle = width % 2 == 0 ? -0.5 : 0;
    for (int64_t i = 0; i <= std::max(dx, dy); ++i) {
        const int64_t right = (2 * i * dx + steps) / (2 * steps);
        const int64_t x = b.x < a.x ? a.x - right : a.x + right;
        const int64_t y = a.y + (2 * i * dy + steps) / (2 * steps);
        for (int32_t down = -width / 2; down < width - width / 2; ++down) {
            for (int32_t side = -width / 2; side < width - width / 2; ++side) {
                if (width > 2 && std::hypot(side - middle, down - middle) >= width / 2.0) continue;
                const int64_t column = x + side - area.left;
                const int64_t row = y + down - area.top;
                if (column < 0 || column >= area.Width() || row < 0 || row >= area.Height()) continue;
                uint8_t& pixel = cover[static_cast<size_t>(row * area.Width() + column)];
                pixel = std::max(pixel, level);
            }
        }
    }
}

Bytes SegmentCover(const Pen& pen, Point a, Point b, const Rect& area) {
    if (pen.style == PenStyle::Smooth) return SmoothCover(std::max(pen.Width(), 0.1) / 2, a, b, area);
    Bytes cover(static_cast<size_t>(area.Width() * area.Height()));
    const bool classic = pen.style == PenStyle::Classic;
    Brush(classic ? 2 : std::max(pen.tenths / 10, 1), classic ? 1 : 255, a, b, area, cover);
    if (classic) Brush(1, 2, a, b, area, cover);
    return cover;
}

}  // namespace

Bytes PlainCover(const Pen& pen, Points line, const Rect& area) {
    line.erase(std::unique(line.begin(), line.end()), line.end());
    if (line.size() == 1) line.push_back(line[0]);
    const int32_t reach = static_cast<int32_t>(std::ceil(std::max(pen.Width(), 1.0) / 2 - 0.5));
    Bytes cover(static_cast<size_t>(area.Width() * area.Height()));
    Bytes before = cover;
    for (size_t i = 1; i < line.size(); ++i) {
        const Point a = line[i - 1];
        const Point b = line[i];
        const Bytes segment = SegmentCover(pen, a, b, area);
        // Smooth lines that go on share the tip at their joint and nothing else.
        const Point last = i > 1 ? line[i - 2] : a;
        const int64_t turn = int64_t{a.x - last.x} * (b.x - a.x) + int64_t{a.y - last.y} * (b.y - a.y);
        const bool joins = pen.style == PenStyle::Smooth && i > 1 && turn >= 0;
        const Bytes tip = joins ? SegmentCover(pen, a, a, area) : Bytes();
        for (size_t p = 0; p < cover.size(); ++p) {
            const int32_t x = static_cast<int32_t>(p) % area.Width() + area.left;
            const int32_t y = static_cast<int32_t>(p) / area.Width() + area.top;
            int share = segment[p];
            const bool near = std::abs(x - a.x) <= reach && std::abs(y - a.y) <= reach;
            if (joins && near) share = std::min(before[p] + segment[p] - tip[p], 255);
            cover[p] = std::max(cover[p], static_cast<uint8_t>(share));
        }
        before = segment;
    }
    return cover;
}

uint32_t PlainInk(const Pen& pen, uint32_t below, ink::ColorRef color, uint8_t cover) {
    if (pen.style == PenStyle::Classic) {
        return cover == 0 ? below : ink::PixelOf(cover == 1 ? ink::Shade(color, 0.39f) : color);
    }
    const uint32_t parts = cover + cover / 128u;  // of 256
    uint32_t mixed = 0;
    for (const int shift : {0, 8, 16}) {
        const uint32_t from = below >> shift & 255;
        const uint32_t to = ink::PixelOf(color) >> shift & 255;
        mixed |= (from * (256 - parts) + to * parts + 128) / 256 << shift;
    }
    return mixed;
}

uint32_t PlainPaper(ink::ColorRef background, int32_t x, int64_t pageRow, int32_t width) {
    if (pageRow < 0 || pageRow >= 45) return ink::PixelOf(background);
    const bool onLine = pageRow == 37 && x >= 14 && x < width - 14;
    const uint32_t share = pageRow == 44 ? 26 : onLine ? 16 : 3;  // percent
    const auto [low, high] =
        std::minmax({ink::Red(background), ink::Green(background), ink::Blue(background)});
    uint32_t pixel = 0;
    for (const int shift : {0, 8, 16}) {
        const uint32_t from = ink::PixelOf(background) >> shift & 255;
        pixel |= (from * (100 - share) + (low + high > 230 ? 0 : 255) * share + 50) / 100 << shift;
    }
    return pixel;
}

}  // namespace sketch
