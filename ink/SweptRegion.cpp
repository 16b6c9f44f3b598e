#include "ink/SweptRegion.h"

#include <algorithm>
#include <exception>

namespace ink {

namespace {

// Rounds toward minus infinity: tiles go on above and left of the page.
int64_t TileOf(int64_t coordinate, int64_t size) {
    return coordinate >= 0 ? coordinate / size : -((-coordinate - 1) / size) - 1;
}

// Where in its tile a coordinate lies.
int64_t InTile(int64_t coordinate, int64_t size) { return coordinate - TileOf(coordinate, size) * size; }

template <typename Item>
Item& At(std::vector<Item>& items, int64_t index) {
    return items[static_cast<size_t>(index)];
}

// Makes the list, whose first item has the place `first`, reach to `wanted`. It grows by as much as it has,
// in both directions: step by step is cheap either way.
template <typename Item>
void Reach(std::vector<Item>& items, int64_t& first, int64_t wanted) {
    if (items.empty()) first = wanted;
    if (wanted < first) {
        const int64_t more = std::max(first - wanted, static_cast<int64_t>(items.size()));
        items.insert(items.begin(), static_cast<size_t>(more), Item());
        first -= more;
    }
    const int64_t needed = wanted - first + 1;
    if (needed > static_cast<int64_t>(items.size())) items.resize(static_cast<size_t>(needed));
}

}  // namespace

void SweptRegion::Clear() { *this = SweptRegion(); }

void SweptRegion::MakeTile(int64_t column, int64_t row) {
    Reach(rows_, firstRow_, row);
    TileRow& tileRow = At(rows_, row - firstRow_);
    Reach(tileRow.tiles, tileRow.first, column);
}

bool SweptRegion::AddSquare(int64_t x, int64_t y) {
    const int64_t left = x - kReach;
    const int64_t top = y - kReach;
    const int64_t right = x + kReach;
    const int64_t bottom = y + kReach;
    const bool isFirst = IsEmpty();
    try {
        // All tiles before any pixel: a square is in the region whole or not at all.
        for (const int64_t tileY : {top, bottom - 1}) {
            for (const int64_t tileX : {left, right - 1}) {
                MakeTile(TileOf(tileX, kTileColumns), TileOf(tileY, kTileRows));
            }
        }
    } catch (const std::exception&) {
        return false;
    }
    for (int64_t pixelRow = top; pixelRow < bottom; ++pixelRow) {
        const int64_t row = TileOf(pixelRow, kTileRows);
        TileRow& tileRow = At(rows_, row - firstRow_);
        for (int64_t first = left; first < right;) {
            const int64_t column = TileOf(first, kTileColumns);
            const int64_t end = std::min(right, (column + 1) * kTileColumns);
            const uint64_t bits = (uint64_t{1} << (end - first)) - 1;
            Tile& tile = At(tileRow.tiles, column - tileRow.first);
            tile[static_cast<size_t>(InTile(pixelRow, kTileRows))] |= bits << InTile(first, kTileColumns);
            first = end;
        }
    }
    left_ = isFirst ? left : std::min(left_, left);
    top_ = isFirst ? top : std::min(top_, top);
    right_ = isFirst ? right : std::max(right_, right);
    bottom_ = isFirst ? bottom : std::max(bottom_, bottom);
    return true;
}

bool SweptRegion::Contains(int64_t x, int64_t y) const {
    if (x < left_ || x >= right_ || y < top_ || y >= bottom_) return false;
    const int64_t row = TileOf(y, kTileRows);
    const TileRow& tileRow = rows_[static_cast<size_t>(row - firstRow_)];
    const int64_t column = TileOf(x, kTileColumns);
    // Left of the first tile is, without a sign, far right of the last.
    const auto tile = static_cast<uint64_t>(column - tileRow.first);
    if (tile >= tileRow.tiles.size()) return false;
    const uint64_t bits = tileRow.tiles[tile][static_cast<size_t>(InTile(y, kTileRows))];
    return (bits >> InTile(x, kTileColumns) & 1) != 0;
}

}  // namespace ink
