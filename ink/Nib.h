// The shape of a pen's tip, swept along one segment.
#pragma once

#include <cstdint>

#include "ink/Scale.h"

namespace ink {

// Settings hold a pen's width as a byte of tenths of a page pixel.
constexpr int32_t kWidestPenTenths = 255;
constexpr double kWidestPen = kWidestPenTenths / 10.0;
// By how many pixels the widest pen's ink reaches beyond its points on the finest screen: no nib's Reach is
// larger. What is made of fixed size for the pictures of segments is made for it.
constexpr int32_t kWidestReach = (kWidestPenTenths * Scale::kMostDots / Scale::kPageDots + 9) / 20;

// A segment from the centre of pixel (0, 0) to the centre of pixel (dx, dy), always drawn downwards
// (dy > 0, or dy = 0 and dx >= 0): a line has the same pixels from either end.
struct Sweep {
    int64_t dx = 0;
    int64_t dy = 0;
};

// Columns first..end-1 of a row buffer.
struct CoverSpan {
    int32_t first = 0;
    int32_t end = 0;

    bool IsEmpty() const { return end <= first; }
};

// A row's result depends on segment and row alone, not on which part of it is asked for: pictures painted
// in strips fit together.
class Nib {
  public:
    virtual ~Nib() = default;

    // Whole pixels by which ink reaches beyond the points of a segment, on every side; kWidestReach at most.
    virtual int32_t Reach() const = 0;

    // Whether neighbouring segments must be joined by area (see StrokeTracer).
    virtual bool HasSoftEdges() const = 0;

    // How far row `row` is covered in the columns column..column+width-1: writes one byte per column inside
    // the returned span and leaves the rest of `out` alone.
    virtual CoverSpan CoverRow(const Sweep& sweep, int64_t row, int64_t column, int32_t width,
                               uint8_t* out) = 0;

    // Makes CoverRow ready for rows of up to `width` columns. False when memory is short.
    virtual bool Prepare(int32_t width) = 0;
};

}  // namespace ink
