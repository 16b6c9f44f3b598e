// The decoration at the top of every page.
#pragma once

#include "ink/PixelSurface.h"

namespace ink {

// Paints the part of the page's first kHeadRows rows that lies inside the clip; surface row 0 shows page row
// `scroll`. The tones follow from the background colour.
void PaintPageHead(PixelSurface& surface, ColorRef background, int32_t scroll, const Rect& clip);

}  // namespace ink
