// Small questions about the bits of a word.
#pragma once

#include <cstdint>

namespace ink {

// The number of the lowest and of the highest set bit of a word that is not zero.
inline int LowestBit(uint64_t bits) { return __builtin_ctzll(bits); }
inline int HighestBit(uint64_t bits) { return 63 - __builtin_clzll(bits); }

}  // namespace ink
