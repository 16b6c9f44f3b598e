// The unit in which ink is moved: a few neighbouring pixels of one row.
#pragma once

#include <cstddef>
#include <cstdint>

#include "ink/Lanes.h"

namespace ink {

constexpr int32_t kSpot = 4;              // pixels of a spot
constexpr size_t kSpotStep = 4;           // spots that are copied at once
constexpr int32_t kOverhang = kSpot - 1;  // columns by which spots may end behind the last one with ink

// Lists are gone through in this many rounds, each taking one spot of as many. Neighbours in a list often
// overlap, and a load that takes in only part of a store just made waits until that has reached the cache.
constexpr size_t kSpotsApart = 9;

// A spot's first pixel, as seen from the point that the ink belongs to.
struct SpotPlace {
    int16_t x = 0;
    int16_t y = 0;
};

// Spots side by side, so that copying them touches one place of memory.
struct SpotStep {
    uint32_t shares[kSpotStep] = {};   // the coverage of four pixels, a byte each
    uint32_t offsets[kSpotStep] = {};  // from the point's pixel to the spot's first, modulo 2^32
};

// What two segments cover together in the square around their joint, of which the tip is common to both.
inline Bytes16 JoinShares(const SpotStep& before, const SpotStep& after, const SpotStep& tip) {
    return AddClamped(LoadBytes(before.shares), LoadBytes(after.shares) - LoadBytes(tip.shares));
}

// Spots of some ink around a point. The last step may hold fewer than the others.
struct SpotList {
    const SpotStep* steps = nullptr;
    const SpotPlace* places = nullptr;  // what the offsets say, as columns and rows
    size_t count = 0;
};

}  // namespace ink
