// How ink looks where lines are drawn by whoever shows the picture.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ink/Color.h"
#include "ink/InkPainter.h"
#include "ink/PenStyle.h"

namespace pictures {

// A pen's lines, one over the other, with round caps and joins. Widths in page pixels.
struct PenLine {
    double width;
    float shade;  // of the stroke's colour; 0 leaves it as it is
};
std::vector<PenLine> LinesOf(ink::PenStyle style, double size);
ink::ColorRef ColorOf(const PenLine& line, ink::ColorRef color);

// The decoration of the page's head, in page pixels.
struct HeadBar {
    int32_t left;
    int32_t top;
    int32_t width;
    int32_t height;
    ink::ColorRef color;
};
std::vector<HeadBar> HeadBarsOf(ink::ColorRef background, int32_t width);

// The shortest decimal with up to so many places, 9 at most, whatever the locale; below a billion.
std::string Decimal(double value, int places = 3);

}  // namespace pictures
