// Where a long note is cut into sheets.
#pragma once

#include <cstdint>
#include <vector>

namespace pictures {

// Half open, in page pixels.
struct RowSpan {
    int64_t first;
    int64_t end;
};

// The sheets of a page of `height` rows whose strokes cover the given rows, at most `capacity` (at least 1)
// on each. A sheet ends where no stroke crosses, so that lines stay whole, unless that would leave three
// quarters of it empty; then at its very end. Rows that no ink touches fill no sheet of their own.
std::vector<RowSpan> BreakPages(std::vector<RowSpan> strokes, int64_t height, int64_t capacity);

}  // namespace pictures
