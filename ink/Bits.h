// Small questions about the bits of a word.
#pragma once

#include <cstdint>

namespace ink {

// The number of the lowest set bit of a word that is not zero.
inline int LowestBit(uint64_t bits) { return __builtin_ctzll(bits); }

}  // namespace ink
