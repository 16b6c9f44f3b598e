// A second painter that anyone can check by reading: it asks every pixel, and cares for nothing else.
#pragma once

#include <algorithm>
#include <cmath>

#include "ink/PenStyle.h"
#include "tests/ink/Sketch.h"

namespace sketch {

// Pages are in page pixels, what becomes of them in the screen's.
struct Pen {
    ink::PenStyle style = ink::PenStyle::Smooth;
    double width = 1;
    int dots = 96;  // per inch of the screen

    double Scaled(double length) const { return length * dots / 96; }
    int32_t OnScreen(double page) const { return static_cast<int32_t>(std::floor(Scaled(page) + 0.5)); }
    double Thick() const { return Scaled(style == ink::PenStyle::Classic ? 2 : width); }
};

// From a segment that begins at (0, 0).
inline double Distance(ink::Point end, double x, double y) {
    const double length = std::max(1.0, 1.0 * end.x * end.x + 1.0 * end.y * end.y);
    const double along = std::clamp((x * end.x + y * end.y) / length, 0.0, 1.0);
    const double right = x - along * end.x;
    const double down = y - along * end.y;
    return std::sqrt(right * right + down * down);
}

// Of so many points, 1/256 pixel apart around x, how many lie within the radius.
inline int Inside(double radius, ink::Point end, double x, double y, int points) {
    const double distance = Distance(end, x, y);
    if (points == 1 || std::abs(distance - radius) > points / 512.0) return distance <= radius ? points : 0;
    const double side = points / 1024.0;
    return Inside(radius, end, x - side, y, points / 2) + Inside(radius, end, x + side, y, points / 2);
}

// The covered part of a pixel, by 16 scan lines of 256 points.
inline int SmoothShare(double radius, ink::Point end, int32_t x, int32_t y) {
    int inside = 0;
    for (int line = 0; line < 16; ++line) inside += Inside(radius, end, x, y + (line + 0.5) / 16 - 0.5, 256);
    return (inside * 255 + 2048) / 4096;
}

// Whether a round brush covers the pixel, moved along a line with one pixel for each step of its longer side.
inline bool IsBrushed(int32_t width, ink::Point end, int32_t x, int32_t y) {
    ink::Point from{};
    if (end.y < 0 || (end.y == 0 && end.x < 0))
        std::swap(from, end);  // halves are rounded from the upper end
    const double dx = end.x - from.x;
    const double dy = end.y - from.y;
    const double steps = std::max(std::abs(dx), std::abs(dy));
    const double middle = width % 2 == 0 ? -0.5 : 0;
    for (double i = 0; i <= steps; ++i) {
        const double right = x - from.x - std::round(i * dx / std::max(steps, 1.0)) - middle;
        const double down = y - from.y - std::round(i * dy / std::max(steps, 1.0)) - middle;
        if (std::hypot(right, down) < width / 2.0) return true;
    }
    return false;
}

// 0 to 255, or of the classic pen the rim 1 and the core 2.
inline int SegmentShare(const Pen& pen, ink::Point end, int32_t x, int32_t y) {
    if (Distance(end, x, y) > pen.Thick() / 2 + 2) return 0;
    if (pen.style == ink::PenStyle::Smooth) return SmoothShare(std::max(pen.Thick(), 0.1) / 2, end, x, y);
    const bool isBrushed = IsBrushed(std::max(static_cast<int32_t>(pen.Thick()), 1), end, x, y);
    if (pen.style == ink::PenStyle::Simple) return isBrushed ? 255 : 0;
    return IsBrushed(static_cast<int32_t>(pen.Scaled(1)), end, x, y) ? 2 : isBrushed ? 1 : 0;
}

// Segments cover by the larger share. Smooth lines that go on share the tip at their joint and nothing else.
inline int LineShare(const Pen& pen, const Points& line, int32_t x, int32_t y) {
    const int32_t reach = static_cast<int32_t>(std::ceil(std::max(pen.Thick(), 1.0) / 2 - 0.5));
    int largest = SegmentShare(pen, {}, x - line[0].x, y - line[0].y);
    ink::Point last{};
    for (size_t i = 1; i < line.size(); ++i) {
        const ink::Point at{x - line[i - 1].x, y - line[i - 1].y};
        const ink::Point step{line[i].x - line[i - 1].x, line[i].y - line[i - 1].y};
        if (step == ink::Point{}) continue;
        int share = SegmentShare(pen, step, at.x, at.y);
        const bool goesOn = int64_t{last.x} * step.x + int64_t{last.y} * step.y >= 0;
        const bool atJoint = goesOn && std::abs(at.x) <= reach && std::abs(at.y) <= reach;
        if (pen.style == ink::PenStyle::Smooth && atJoint) {
            share +=
                SegmentShare(pen, last, at.x + last.x, at.y + last.y) - SegmentShare(pen, {}, at.x, at.y);
        }
        largest = std::max(largest, std::min(share, 255));
        last = step;
    }
    return largest;
}

inline uint32_t Mixed(uint32_t first, uint32_t second, int parts, int of) {
    uint32_t mixed = 0;
    for (const int shift : {0, 8, 16}) {
        const auto channel = [shift](uint32_t pixel) { return static_cast<int>(pixel >> shift & 255); };
        const int sum = channel(first) * (of - parts) + channel(second) * parts;
        mixed |= static_cast<uint32_t>((sum + of / 2) / of) << shift;
    }
    return mixed;
}

template <typename Visit>
inline void EachPixel(Picture& picture, const ink::Rect& clip, Visit&& visit) {
    const ink::Rect area = Intersect(clip, picture.surface.Bounds());
    for (int32_t y = area.top; y < area.bottom; ++y)
        for (int32_t x = area.left; x < area.right; ++x) visit(picture.surface.Row(y)[x], x, y);
}

inline void PlainPaper(Picture& picture, const Pen& pen, ink::ColorRef background, int32_t scroll,
                       const ink::Rect& clip, bool headOnly) {
    const auto [low, high] =
        std::minmax({ink::Red(background), ink::Green(background), ink::Blue(background)});
    const uint32_t contrast = low + high > 230 ? 0 : 0xFFFFFF;
    EachPixel(picture, clip, [&](uint32_t& pixel, int32_t x, int32_t y) {
        const int32_t row = y + pen.OnScreen(scroll);
        const int32_t title = row - pen.OnScreen(37);
        const int32_t fromSide = std::min(x, picture.surface.width - 1 - x);
        const bool inHead = row >= 0 && row < pen.OnScreen(45);
        const bool onLine = title >= 0 && title < pen.OnScreen(1) && fromSide >= pen.OnScreen(14);
        const int percent = !inHead ? 0 : row >= pen.OnScreen(45) - pen.OnScreen(1) ? 26 : onLine ? 16 : 3;
        if (inHead || !headOnly) pixel = Mixed(ink::PixelOf(background), contrast, percent, 100);
    });
}

inline void PlainInk(Picture& picture, const Pen& pen, Points line, ink::ColorRef color, int32_t scroll,
                     const ink::Rect& clip) {
    for (ink::Point& at : line) at = {pen.OnScreen(at.x), pen.OnScreen(at.y) - pen.OnScreen(scroll)};
    const uint32_t levels[] = {0, ink::PixelOf(ink::Shade(color, 0.39f)), ink::PixelOf(color)};
    EachPixel(picture, clip, [&](uint32_t& pixel, int32_t x, int32_t y) {
        const int share = LineShare(pen, line, x, y);
        if (pen.style != ink::PenStyle::Classic) pixel = Mixed(pixel, levels[2], share + share / 128, 256);
        if (pen.style == ink::PenStyle::Classic && share != 0) pixel = levels[share];
    });
}

}  // namespace sketch
