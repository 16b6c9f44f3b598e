#include "ink/StrokeMask.h"

#include <cstring>
#include <exception>

#include "ink/Bits.h"

namespace ink {

bool StrokeMask::Prepare(const Rect& area, int32_t margin) {
    Clear();
    area_ = Rect{};
    // Stamps are moved in whole steps, which may end behind their last column and row.
    const size_t width =
        static_cast<size_t>(area.Width()) + 2 * static_cast<size_t>(margin) + StampCache::kStep;
    const size_t rows =
        static_cast<size_t>(area.Height()) + 2 * static_cast<size_t>(margin) + StampCache::kRowStep;
    const size_t stride = (width + StampCache::kStep - 1) / StampCache::kStep * StampCache::kStep;
    const size_t words = stride / kGroup / 64 + 2;
    try {
        if (bytes_.size() < stride * rows) bytes_.resize(stride * rows, 0);
        if (groups_.size() < words * rows) groups_.resize(words * rows, 0);
    } catch (const std::exception&) {
        return false;
    }
    area_ = area;
    left_ = area.left - margin;
    top_ = area.top - margin;
    stride_ = stride;
    words_ = words;
    firstRow_ = rows;
    endRow_ = 0;
    return true;
}

void StrokeMask::RaiseRow(int32_t x, int32_t y, const uint8_t* bytes, int32_t count) {
    uint8_t* to = At(x, y);
    for (int32_t i = 0; i < count; ++i) to[i] = std::max(to[i], bytes[i]);
    Touch(x, y, count);
}

void StrokeMask::Touch(int32_t x, int32_t y, int32_t count) {
    uint64_t* groups = Groups(y);
    const size_t end = static_cast<size_t>(GroupOf(x + count - 1)) + 1;
    for (size_t group = static_cast<size_t>(GroupOf(x)); group < end; ++group) {
        groups[group / 64] |= uint64_t{1} << group % 64;
    }
    const size_t row = static_cast<size_t>(y - top_);
    firstRow_ = std::min(firstRow_, row);
    endRow_ = std::max(endRow_, row + 1);
}

void StrokeMask::Clear() {
    for (size_t row = firstRow_; row < endRow_; ++row) {
        uint8_t* bytes = &bytes_[row * stride_];
        for (size_t word = 0; word < words_; ++word, bytes += 64 * kGroup) {
            uint64_t& groups = groups_[row * words_ + word];
            for (; groups != 0; groups &= groups - 1)
                std::memset(bytes + LowestBit(groups) * kGroup, 0, kGroup);
        }
    }
    SetTaken();
}

void StrokeMask::SetTaken() {
    firstRow_ = groups_.size();
    endRow_ = 0;
}

}  // namespace ink
