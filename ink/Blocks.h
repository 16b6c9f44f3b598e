// Files that only grow: blocks with checksums, one after another. Whatever ends in the middle of a block, or
// was damaged, is recognised. All numbers are little-endian.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ink/ByteStream.h"

namespace ink {

using BlockBytes = std::vector<uint8_t>;

// Puts a block together. Throws bad_alloc.
class BlockPacker {
  public:
    explicit BlockPacker(uint32_t kind);
    void Number(uint32_t number);
    void LongNumber(uint64_t number);
    void Text(const std::wstring& text);
    void Raw(const void* bytes, size_t size);
    // The whole block. More than 4 GB are no block: then it is empty.
    BlockBytes Finish();

  private:
    BlockBytes bytes_;
};

// Reads the content of a block. What asks for more than there is gets nothing, and everything after it too.
class BlockParser {
  public:
    explicit BlockParser(const BlockBytes& content) : next_(content.data()), left_(content.size()) {}
    uint32_t Number();
    uint64_t LongNumber();
    std::wstring Text();
    // `size` bytes in place, or null.
    const uint8_t* Raw(uint64_t size);
    // Everything asked for was there.
    bool IsGood() const { return isGood_; }
    size_t Left() const { return left_; }

  private:
    const uint8_t* next_;
    size_t left_;
    bool isGood_ = true;
};

// The next whole block; false at the end, or where the rest is no block. Takes memory for what is there, not
// for what is claimed. Throws bad_alloc.
bool NextBlock(ByteSource& source, uint32_t& kind, BlockBytes& content);

}  // namespace ink
