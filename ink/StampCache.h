// Ready-made pictures of short segments.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/Nib.h"

namespace ink {

// The coverage of one segment, as seen from the point it starts at. Row i covers row `top + i`, its bytes the
// columns from `left` on. Behind the covered columns and rows lie zeros, up to the next multiple of
// StampCache::kStep and of StampCache::kRowStep.
struct Stamp {
    const uint8_t* bytes = nullptr;
    // Four words per row: bit i is set when group i of kGroup columns is covered, with the stamp's first
    // column in place 0, 1, 2 or 3 of group 0.
    const uint16_t* groups = nullptr;
    int16_t left = 0;
    int16_t top = 0;
    int16_t rows = 0;
    int16_t stride = 0;
    // Where the square around the start and around the end of the segment begins in `bytes`.
    int16_t startTip = 0;
    int16_t endTip = 0;
};

// A pen's samples lie a few pixels apart, so the same short segments come again and again. Their stamps are
// made on first use in memory taken beforehand; when that is full, all are forgotten.
class StampCache {
  public:
    static constexpr int32_t kMaxDelta = 24;  // longest dx or dy kept
    static constexpr int32_t kStep = 16;      // bytes that are moved at once
    static constexpr int32_t kRowStep = 4;    // rows that are moved at once
    static constexpr int32_t kGroup = 4;      // columns whose coverage is noted together

    // Throws bad_alloc. The nib must outlive the cache.
    explicit StampCache(Nib& nib);

    static bool Fits(int64_t dx, int64_t dy) {
        return static_cast<uint64_t>(dx + kMaxDelta) <= 2 * kMaxDelta &&
               static_cast<uint64_t>(dy + kMaxDelta) <= 2 * kMaxDelta;
    }

    // The stamp of a segment that fits, or null while it is not made.
    const Stamp* Find(int64_t dx, int64_t dy) const {
        const Stamp& stamp = stamps_[Index(dx, dy)];
        return stamp.bytes != nullptr ? &stamp : nullptr;
    }
    // The same, made if need be. Making one may end all others; the two made last are always there.
    const Stamp& Get(int64_t dx, int64_t dy);

  private:
    void NoteGroups(const uint8_t* bytes, int32_t rows, int32_t stride, uint16_t* groups) const;
    static size_t Index(int64_t dx, int64_t dy) {
        return static_cast<size_t>((dy + kMaxDelta) * (2 * kMaxDelta + 1) + dx + kMaxDelta);
    }

    Nib& nib_;
    std::vector<Stamp> stamps_;
    std::vector<uint8_t> bytes_;
    std::vector<uint16_t> groups_;
    size_t used_ = 0;
    size_t groupsUsed_ = 0;
};

}  // namespace ink
