// The area that an eraser has swept: a set of pixels.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace ink {

// The union of squares of one size, as a bitmap in rows of tiles, each as wide as it was swept: adding a
// square and looking up a pixel take the same time however long the sweep is. Meant for sweeps over a view or
// a page, since tiles between the outermost ones of a row are there as well. No member throws.
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
    struct TileRow {
        int64_t first = 0;  // place of the first tile, in tiles
        std::vector<Tile> tiles;
    };

    void MakeTile(int64_t column, int64_t row);

    int64_t firstRow_ = 0;
    std::vector<TileRow> rows_;
    int64_t left_ = 0;
    int64_t top_ = 0;
    int64_t right_ = 0;
    int64_t bottom_ = 0;
};

}  // namespace ink
