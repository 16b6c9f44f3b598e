// The unit in which ink is moved: four neighbouring pixels of one row.
#pragma once

#include <cstddef>
#include <cstdint>

#include "ink/Lanes.h"

namespace ink {

constexpr int32_t kQuadPixels = 4;                  // pixels of a quad
constexpr size_t kQuadsPerBatch = 4;                // quads that are copied at once
constexpr int32_t kQuadOverhang = kQuadPixels - 1;  // columns by which quads may end behind the last ink

// Quads that it takes to cover so many columns.
constexpr size_t QuadsAcross(int32_t columns) {
    return static_cast<size_t>((columns + kQuadPixels - 1) / kQuadPixels);
}
constexpr size_t BatchesFor(size_t quads) { return (quads + kQuadsPerBatch - 1) / kQuadsPerBatch; }

// Lists are gone through in this many rounds, each taking one quad of as many. Neighbours in a list often
// overlap, and a load that takes in only part of a store just made waits until that has reached the cache.
constexpr size_t kInterleave = 9;

// A quad's first pixel, as seen from the point that the ink belongs to.
struct QuadPlace {
    int16_t x = 0;
    int16_t y = 0;
};

// Quads side by side, so that copying them touches one place of memory.
struct QuadBatch {
    uint32_t shares[kQuadsPerBatch] = {};   // the coverage of four pixels, a byte each
    uint32_t offsets[kQuadsPerBatch] = {};  // from the point's pixel to the quad's first, modulo 2^32
};

// What two segments cover together in the square around their joint, of which the tip is common to both.
inline Bytes16 JoinShares(const QuadBatch& before, const QuadBatch& after, const QuadBatch& tip) {
    return AddClamped(LoadBytes(before.shares), LoadBytes(after.shares) - LoadBytes(tip.shares));
}

// Quads of some ink around a point. The last batch may hold fewer than the others.
struct QuadList {
    const QuadBatch* batches = nullptr;
    const QuadPlace* places = nullptr;  // what the offsets say, as columns and rows
    size_t count = 0;
};

}  // namespace ink
