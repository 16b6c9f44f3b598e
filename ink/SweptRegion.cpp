#include "ink/SweptRegion.h"

#include <algorithm>
#include <new>

namespace ink {

namespace {

// Rounds toward minus infinity: tiles go on above and left of the page.
int64_t TileOf(int64_t coordinate, int64_t size) {
    return coordinate >= 0 ? coordinate / size : -((-coordinate - 1) / size) - 1;
}

}  // namespace

void SweptRegion::Clear() {
    tiles_.clear();
    left_ = top_ = right_ = bottom_ = 0;
}

uint64_t SweptRegion::KeyOf(int64_t x, int64_t y) {
    const auto column = static_cast<uint64_t>(TileOf(x, kTileColumns));
    const auto row = static_cast<uint64_t>(TileOf(y, kTileRows));
    return row << 32 | (column & 0xFFFFFFFF);
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
            for (const int64_t tileX : {left, right - 1}) tiles_[KeyOf(tileX, tileY)];
        }
    } catch (const std::bad_alloc&) {
        return false;
    }
    for (int64_t row = top; row < bottom; ++row) {
        const auto tileRow = static_cast<size_t>(row - TileOf(row, kTileRows) * kTileRows);
        for (int64_t first = left; first < right;) {
            const int64_t tileLeft = TileOf(first, kTileColumns) * kTileColumns;
            const int64_t end = std::min(right, tileLeft + kTileColumns);
            const uint64_t bits = (uint64_t{1} << (end - first)) - 1;
            tiles_.find(KeyOf(first, row))->second[tileRow] |= bits << (first - tileLeft);
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
    const auto tile = tiles_.find(KeyOf(x, y));
    if (tile == tiles_.end()) return false;
    const int64_t column = x - TileOf(x, kTileColumns) * kTileColumns;
    const int64_t row = y - TileOf(y, kTileRows) * kTileRows;
    return (tile->second[static_cast<size_t>(row)] >> column & 1) != 0;
}

}  // namespace ink
