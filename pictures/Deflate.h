// Packs pixels and text as zlib streams.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "pictures/Checksums.h"

namespace pictures {

// Made for pictures of ink: it knows repetitions of the pixel before and nothing else, which is where the
// paper is, and gives every block codes of its own. Several times as fast as what looks for any repetition,
// for a file that is somewhat larger. Throws bad_alloc.
class ZlibStream {
  public:
    ZlibStream();

    // `count` pixels, 0x00RRGGBB with nothing in the top byte, as three bytes each.
    void AddPixels(const uint32_t* pixels, size_t count);
    void AddByte(uint8_t byte);
    void Finish();

    // What is packed so far; the caller may take it away at any time.
    std::vector<uint8_t>& Packed() { return packed_; }

  private:
    void Put(uint64_t bits, int count);
    void EndBlock(bool isLast);
    void PutHead(const std::vector<uint8_t>& lengths);

    Adler32 sum_;
    std::vector<uint32_t> tokens_;  // of the block
    size_t tokenCount_ = 0;
    std::vector<uint8_t> packed_;
    std::vector<uint8_t> block_;  // room to pack one
    uint64_t bits_ = 0;           // not yet in `packed_`
    int bitCount_ = 0;
};

}  // namespace pictures
