// One stroke's coverage of an area, before it is laid over the picture in its colour.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/Geometry.h"
#include "ink/StampCache.h"

namespace ink {

// Segments are united by the larger coverage, so ink that crosses itself gets no darker.
class StrokeMask {
  public:
    // Makes the mask ready for an area; stamps may hang over it by up to `margin` pixels. False when memory
    // is short; the mask then covers nothing.
    bool Prepare(const Rect& area, int32_t margin);

    const Rect& Area() const { return area_; }

    // Unites a stamp that overlaps the area, (x, y) being its segment's start.
    void Raise(const Stamp& stamp, int32_t x, int32_t y);
    // Unites columns x.. of row y, which lie inside the area.
    void RaiseRow(int32_t x, int32_t y, const uint8_t* bytes, int32_t count);
    // A pixel no farther than the margin from the area.
    uint8_t* At(int32_t x, int32_t y) {
        return &bytes_[static_cast<size_t>(y - top_) * stride_ + static_cast<size_t>(x - left_)];
    }

    // The columns inside the area that may be covered in a row of it.
    CoverSpan RowSpan(int32_t y) const;
    // Rows of the area that may be covered: first..end-1.
    CoverSpan Rows() const;

    // Back to nothing covered.
    void Clear();

  private:
    void Touch(size_t row, int32_t first, int32_t end);

    Rect area_;
    int32_t left_ = 0;  // surface position of the first byte
    int32_t top_ = 0;
    size_t stride_ = 0;
    size_t rows_ = 0;
    // Zero wherever nothing was raised since the last Clear.
    std::vector<uint8_t> bytes_;
    // Per row, the columns touched, counted from left_.
    std::vector<CoverSpan> spans_;
    size_t firstRow_ = 0;
    size_t endRow_ = 0;
};

}  // namespace ink
