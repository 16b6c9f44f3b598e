// One stroke's coverage of an area, before it is laid over the picture in its colour.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/Geometry.h"
#include "ink/Lanes.h"
#include "ink/StampCache.h"

namespace ink {

// Segments are united by the larger coverage, so ink that crosses itself gets no darker. Each row notes in
// one bit per group of four columns where it is covered: what is laid over the picture, or cleared, is in
// proportion to the ink and not to the area.
class StrokeMask {
  public:
    static constexpr int32_t kGroup = StampCache::kGroup;

    // Makes the mask ready for an area; stamps may hang over it by up to `margin` pixels. False when memory
    // is short; the mask then has an empty area.
    bool Prepare(const Rect& area, int32_t margin);

    const Rect& Area() const { return area_; }

    // Unites a stamp of a segment starting at (x, y), which hangs over the area no farther than the margin.
    void Raise(const Stamp& stamp, int32_t x, int32_t y);
    // Unites columns x.. of row y, which lie inside the area.
    void RaiseRow(int32_t x, int32_t y, const uint8_t* bytes, int32_t count);

    // Notes columns x..x+count-1 of row y, no farther than the margin from the area, as covered.
    void Touch(int32_t x, int32_t y, int32_t count);

    // A pixel no farther than the margin from the area, and its row's pitch.
    uint8_t* At(int32_t x, int32_t y) { return &bytes_[Place(x, y)]; }
    const uint8_t* At(int32_t x, int32_t y) const { return &bytes_[Place(x, y)]; }
    size_t Stride() const { return stride_; }

    // A row's groups, 64 to a word; group i starts in column GroupLeft(i).
    size_t GroupWords() const { return words_; }
    uint64_t* Groups(int32_t y) { return &groups_[static_cast<size_t>(y - top_) * words_]; }
    int32_t GroupLeft(int32_t group) const { return left_ + group * kGroup; }
    int32_t GroupOf(int32_t x) const { return (x - left_) / kGroup; }

    // Back to nothing covered.
    void Clear();
    // The same after everything was taken away group by group.
    void SetTaken();

  private:
    size_t Place(int32_t x, int32_t y) const {
        return static_cast<size_t>(y - top_) * stride_ + static_cast<size_t>(x - left_);
    }

    Rect area_;
    int32_t left_ = 0;  // surface position of the first byte
    int32_t top_ = 0;
    size_t stride_ = 0;
    size_t words_ = 0;
    // Zero wherever nothing was raised since the last Clear.
    std::vector<uint8_t> bytes_;
    std::vector<uint64_t> groups_;
    size_t firstRow_ = 0;  // rows touched
    size_t endRow_ = 0;
};

inline void StrokeMask::Raise(const Stamp& stamp, int32_t x, int32_t y) {
    const size_t first = static_cast<size_t>(x + stamp.left - left_);
    const size_t firstRow = static_cast<size_t>(y + stamp.top - top_);
    const size_t rows = static_cast<size_t>(stamp.rows);
    const size_t width = static_cast<size_t>(stamp.stride);
    const size_t group = first / kGroup;
    const unsigned shift = static_cast<unsigned>(group % 64);
    const uint16_t* from = stamp.groups + first % kGroup;
    // Whether some groups may fall into the next word; there always is one.
    const bool straddles = shift > 64 - 16;
    uint64_t* groups = &groups_[firstRow * words_ + group / 64];
    uint8_t* to = &bytes_[firstRow * stride_ + first];
    const uint8_t* bytes = stamp.bytes;
    const auto raiseGroups = [&] {
        const uint64_t bits = *from;
        groups[0] |= bits << shift;
        if (straddles) groups[1] |= bits >> 1 >> (63 - shift);
        from += StampCache::kGroup;
        groups += words_;
    };
    if (width == StampCache::kStep) {
        // Nearly always: rows without a loop across, and several at a time.
        for (size_t row = 0; row < rows; row += StampCache::kRowStep) {
            for (size_t i = 0; i < StampCache::kRowStep; ++i) {
                StoreBytes(to, Larger(LoadBytes(to), LoadBytes(bytes)));
                raiseGroups();
                to += stride_;
                bytes += StampCache::kStep;
            }
        }
    } else {
        for (size_t row = 0; row < rows; ++row) {
            for (size_t column = 0; column < width; column += StampCache::kStep) {
                StoreBytes(to + column, Larger(LoadBytes(to + column), LoadBytes(bytes + column)));
            }
            raiseGroups();
            to += stride_;
            bytes += width;
        }
    }
    firstRow_ = std::min(firstRow_, firstRow);
    endRow_ = std::max(endRow_, firstRow + rows);
}

}  // namespace ink
