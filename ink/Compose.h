// Lays a stroke's coverage over a picture.
#pragma once

#include <cstdint>

#include "ink/PixelSurface.h"
#include "ink/StrokeMask.h"

namespace ink {

// What lies below the ink: the surface itself, or a copy of its pixels with the same stride.
struct ComposeJob {
    PixelSurface to;
    const uint32_t* below = nullptr;
    Rect area;               // where there may be ink to lay over; inside the mask's area
    bool clearMask = false;  // where it was laid over the picture
};

// Pixels become what is below mixed with `pixel` by the mask's shares: 0 keeps it, 255 replaces it.
void ComposeShares(const ComposeJob& job, StrokeMask& mask, uint32_t pixel);

// The same for a mask of levels: 0 keeps what is below, 1 puts `first`, anything else `second`.
void ComposeLevels(const ComposeJob& job, StrokeMask& mask, uint32_t first, uint32_t second);

}  // namespace ink
