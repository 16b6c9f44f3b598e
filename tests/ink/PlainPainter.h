// A second painter that anyone can check by reading: it asks every pixel, and cares for nothing else.
#pragma once

#include "ink/PenStyle.h"
#include "tests/ink/Sketch.h"

namespace sketch {

struct Pen {
    ink::PenStyle style = ink::PenStyle::Smooth;
    int32_t tenths = 10;

    double Width() const { return tenths * 0.1; }
};

// How far a line covers the pixels of an area, row by row: 0 to 255, or the classic pen's rim 1 and core 2.
Bytes PlainCover(const Pen& pen, Points line, const ink::Rect& area);

// A pixel with ink of that coverage over it.
uint32_t PlainInk(const Pen& pen, uint32_t below, ink::ColorRef color, uint8_t cover);

// A pixel of an empty page.
uint32_t PlainPaper(ink::ColorRef background, int32_t x, int64_t pageRow, int32_t width);

}  // namespace sketch
