// The area that an eraser has swept: a set of pixels.
#pragma once

#include <array>
#include <cstdint>
#include <unordered_map>

namespace ink {

// The union of squares of one size, as a bitmap that is there only where squares are: adding one and looking
// up a pixel take the same time however long the sweep is. No member throws.
class SweptRegion {
  public:
    // A square covers the pixels from kReach left of and above its centre to kReach - 1 beyond it.
    static constexpr int32_t kReach = 7;

    void Clear();

    // False, with the region unchanged, when memory is short.
    bool AddSquare(int64_t x, int64_t y);

    bool IsEmpty() const { return right_ == left_; }
    bool Contains(int64_t x, int64_t y) const;

    // Rows around all squares; `Bottom` is the first below them. Meaningless for an empty region.
    int64_t Top() const { return top_; }
    int64_t Bottom() const { return bottom_; }

  private:
    static constexpr int64_t kTileColumns = 64;
    static constexpr int64_t kTileRows = 16;
    // Bit n of a row is its column n.
    using Tile = std::array<uint64_t, kTileRows>;

    static uint64_t KeyOf(int64_t x, int64_t y);

    std::unordered_map<uint64_t, Tile> tiles_;
    int64_t left_ = 0;
    int64_t top_ = 0;
    int64_t right_ = 0;
    int64_t bottom_ = 0;
};

}  // namespace ink
