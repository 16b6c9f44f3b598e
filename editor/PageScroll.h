#pragma once

#include <cstdint>

#include "ink/InkPage.h"
#include "platform/Window.h"

// The arithmetic of scrolling a page that is some views tall.
namespace editor {

// The scroll bar for the page: as many views as its slots need, at least one; the position kept inside.
platform::ScrollState ScrollRangeOf(const ink::InkPage& page);

// Where a scroll request leads from `scroll`. A step down at the end of the range, or beyond it, leads to the
// end (0 or less on a page of one view) unless the page is to grow.
struct ScrollTarget {
    int32_t position = 0;
    bool atEnd = false;  // a step down was asked for at the end of the range
};
ScrollTarget ScrollTargetOf(platform::ScrollCode code, const platform::ScrollState& scroll,
                            int thumbPosition);

// True when the last whole band of the page (even slot) holds ink, so that there is reason to make room.
bool LastBandHoldsInk(const ink::InkPage& page);

// The nearest page row that a view may begin with: rows of pen positions in it can be reckoned in 32 bits.
int32_t PositionWithin(int64_t position);

// By how many rows the page moves on when the writer reaches its end.
int32_t AdvanceRows(const ink::InkPage& page);

}  // namespace editor
