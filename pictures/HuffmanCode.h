// The codes of a deflate block.
#pragma once

#include <cstdint>
#include <vector>

namespace pictures {

struct HuffmanCode {
    std::vector<uint8_t> lengths;  // bits of each symbol; 0 when it does not occur
    std::vector<uint16_t> bits;    // first bit lowest, as deflate packs them
};

// Codes of at most `longest` bits (15 at most, and enough for that many symbols), the shorter the more often
// a symbol occurs. Two symbols at least must occur.
HuffmanCode MakeHuffmanCode(std::vector<uint32_t> counts, int longest);

}  // namespace pictures
