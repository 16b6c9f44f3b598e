// Handwriting made up for measuring: the same strokes on every run and every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/InkPage.h"
#include "ink/PixelSurface.h"

namespace bench {

constexpr int32_t kViewWidth = 480;
constexpr int32_t kViewHeight = 560;
constexpr int32_t kStrokesPerView = 250;
constexpr int32_t kPointsPerStroke = 40;

struct Stroke {
    std::vector<ink::Point> points;
    ink::ColorRef color;
};

// Curved strokes in reading order, kStrokesPerView to a view.
std::vector<Stroke> MakeStrokes(size_t count);

// Fills a page with them.
void FillPage(ink::InkPage& page, const std::vector<Stroke>& strokes);

// A picture that owns its pixels.
struct Picture {
    Picture() : pixels(static_cast<size_t>(kViewWidth) * kViewHeight, 0xFFFFFF) {}
    ink::PixelSurface Surface() { return {pixels.data(), kViewWidth, kViewHeight, kViewWidth}; }
    std::vector<uint32_t> pixels;
};

}  // namespace bench
