// Ready-made pictures of short segments.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/Nib.h"

namespace ink {

// The coverage of one segment. Row i covers row `top + i` from the segment's start, its bytes the columns
// from `left` on; `stride` is a multiple of StampCache::kStep, with zeros behind the covered columns.
struct Stamp {
    int32_t left = 0;
    int32_t top = 0;
    int32_t rows = 0;
    int32_t stride = 0;
    const uint8_t* bytes = nullptr;
};

// A pen's samples lie a few pixels apart, so the same short segments come again and again. Their stamps are
// made on first use in memory taken beforehand; when that is full, all are forgotten.
class StampCache {
  public:
    static constexpr int32_t kMaxDelta = 24;  // longest dx or dy kept
    static constexpr int32_t kStep = 16;      // bytes that are moved at once

    // Throws bad_alloc. The nib must outlive the cache.
    explicit StampCache(Nib& nib);

    static bool Fits(const Sweep& sweep) {
        return sweep.dx <= kMaxDelta && sweep.dx >= -kMaxDelta && sweep.dy <= kMaxDelta;
    }

    // Of a sweep that fits; valid until the next call.
    const Stamp& Get(const Sweep& sweep);

  private:
    const Stamp& Make(const Sweep& sweep, Stamp& stamp);

    Nib& nib_;
    std::vector<Stamp> stamps_;  // by dx and dy; without bytes while not made
    std::vector<uint8_t> bytes_;
    size_t used_ = 0;
};

}  // namespace ink
