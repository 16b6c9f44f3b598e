// What one edit does to the strokes of a page, as a value: it can be made, taken back and made again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/StrokeRecord.h"

namespace ink {

// Consecutive records of one slot before and after a change; a record may be on both sides.
struct BandSplice {
    size_t slot = 0;
    size_t index = 0;  // of the first one in its band
    std::vector<StrokeRecord*> before;
    std::vector<StrokeRecord*> after;
};

// The records lie in the page's StrokePool whether they are on the page now or not.
struct StrokeChange {
    std::vector<BandSplice> splices;   // no two of one slot
    std::vector<StrokeRecord*> born;   // not on the page before
    std::vector<StrokeRecord*> dead;   // not on the page after
    std::vector<StrokeRecord*> moved;  // by `rows`: all that began at page row `from` or below
    int64_t from = 0;
    int32_t rows = 0;

    bool IsEmpty() const { return splices.empty() && moved.empty(); }
};

}  // namespace ink
