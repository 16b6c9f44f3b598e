// The decoration at the top of every page.
#pragma once

#include "ink/PixelSurface.h"
#include "ink/Scale.h"

namespace ink {

constexpr int32_t kTitleRow = 37;     // page row of the title line; the head's last row is a line as well
constexpr int32_t kTitleMargin = 14;  // page columns left free beside the title line

// The colours of the head on a page of a background.
struct HeadTones {
    ColorRef paper;
    ColorRef title;
    ColorRef edge;
};
HeadTones HeadTonesOf(ColorRef background);

// Paints the part of the page's first kHeadRows rows that lies inside the clip (surface coordinates); surface
// row 0 is the first screen row of page row `scroll`. The tones follow from the background colour. Lines are
// a page pixel wide, rounded to whole screen pixels.
void PaintPageHead(PixelSurface& surface, ColorRef background, int32_t scroll, const Rect& clip, Scale scale);

}  // namespace ink
