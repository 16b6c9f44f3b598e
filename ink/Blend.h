// Lays a stroke's coverage over a picture.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ink {

// Writes `count` pixels: `below` mixed with `pixel` by the mask's shares (0 keeps it, 255 replaces it).
// `out` and `below` may be the same.
void BlendRow(uint32_t* out, const uint32_t* below, const uint8_t* mask, size_t count, uint32_t pixel);

// The same for masks of levels: 0 keeps what is below, 1 puts `first`, anything else `second`.
void ReplaceRow(uint32_t* out, const uint32_t* below, const uint8_t* mask, size_t count, uint32_t first,
                uint32_t second);

}  // namespace ink
