#include "ink/StampCache.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace ink {
namespace {

constexpr size_t kCapacity = 256 * 1024;
constexpr size_t kGroupsPerRow = StampCache::kGroup;
// Rows are at least kStep bytes long.
constexpr size_t kGroupsCapacity = kCapacity / StampCache::kStep * kGroupsPerRow;

int32_t RoundUp(int32_t value, int32_t step) { return (value + step - 1) / step * step; }

}  // namespace

// The squares at a segment's ends are read in whole steps, beyond the last stamp's end as well.
StampCache::StampCache(Nib& nib)
    : nib_(nib), stamps_(Index(kMaxDelta, kMaxDelta) + 1), bytes_(kCapacity + 64), groups_(kGroupsCapacity) {}

const Stamp& StampCache::Get(int64_t dx, int64_t dy) {
    Stamp& stamp = stamps_[Index(dx, dy)];
    if (stamp.bytes != nullptr) return stamp;

    const int32_t reach = nib_.Reach();
    const int32_t columns = static_cast<int32_t>(std::abs(dx)) + 2 * reach + 1;
    const int32_t rows = static_cast<int32_t>(std::abs(dy)) + 2 * reach + 1;
    const int32_t stride = RoundUp(columns, kStep);
    const size_t size = static_cast<size_t>(RoundUp(rows, kRowStep)) * static_cast<size_t>(stride);
    if (size > kCapacity - used_) {
        std::fill(stamps_.begin(), stamps_.end(), Stamp{});
        used_ = 0;
        groupsUsed_ = 0;
    }
    uint8_t* bytes = bytes_.data() + used_;
    used_ += size;
    std::memset(bytes, 0, size);

    const bool upwards = dy < 0 || (dy == 0 && dx < 0);
    const Sweep sweep = upwards ? Sweep{-dx, -dy} : Sweep{dx, dy};
    const int64_t left = std::min<int64_t>(sweep.dx, 0) - reach;
    for (int32_t i = 0; i < rows; ++i) {
        nib_.CoverRow(sweep, i - reach, left, columns,
                      bytes + static_cast<size_t>(i) * static_cast<size_t>(stride));
    }
    uint16_t* groups = groups_.data() + groupsUsed_;
    groupsUsed_ += static_cast<size_t>(RoundUp(rows, kRowStep)) * kGroupsPerRow;
    NoteGroups(bytes, RoundUp(rows, kRowStep), stride, groups);

    const int64_t right = std::max<int64_t>(dx, 0);
    const int64_t below = std::max<int64_t>(dy, 0);
    stamp.bytes = bytes;
    stamp.groups = groups;
    stamp.left = static_cast<int16_t>(right - columns + 1 + reach);
    stamp.top = static_cast<int16_t>(below - rows + 1 + reach);
    stamp.rows = static_cast<int16_t>(RoundUp(rows, kRowStep));
    stamp.stride = static_cast<int16_t>(stride);
    stamp.startTip = static_cast<int16_t>((-reach - stamp.top) * stride - reach - stamp.left);
    stamp.endTip = static_cast<int16_t>((dy - reach - stamp.top) * stride + dx - reach - stamp.left);
    return stamp;
}

void StampCache::NoteGroups(const uint8_t* bytes, int32_t rows, int32_t stride, uint16_t* groups) const {
    for (int32_t y = 0; y < rows; ++y, bytes += stride) {
        for (int32_t place = 0; place < kGroup; ++place, ++groups) {
            uint32_t bits = 0;
            for (int32_t x = 0; x < stride; ++x) {
                if (bytes[x] != 0) bits |= 1u << (x + place) / kGroup;
            }
            *groups = static_cast<uint16_t>(bits);
        }
    }
}

}  // namespace ink
