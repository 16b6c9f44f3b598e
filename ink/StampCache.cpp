#include "ink/StampCache.h"

#include <algorithm>
#include <cstring>

namespace ink {
namespace {

constexpr size_t kDeltas = 2 * StampCache::kMaxDelta + 1;
constexpr size_t kCapacity = 256 * 1024;

}  // namespace

StampCache::StampCache(Nib& nib)
    : nib_(nib), stamps_(kDeltas * (StampCache::kMaxDelta + 1)), bytes_(kCapacity) {}

const Stamp& StampCache::Get(const Sweep& sweep) {
    const size_t row = static_cast<size_t>(sweep.dy);
    Stamp& stamp = stamps_[row * kDeltas + static_cast<size_t>(sweep.dx + kMaxDelta)];
    return stamp.bytes != nullptr ? stamp : Make(sweep, stamp);
}

const Stamp& StampCache::Make(const Sweep& sweep, Stamp& stamp) {
    const int32_t reach = nib_.Reach();
    const int32_t dx = static_cast<int32_t>(sweep.dx);
    const int32_t width = std::max(dx, -dx) + 2 * reach + 1;
    const int32_t rows = static_cast<int32_t>(sweep.dy) + 2 * reach + 1;
    const int32_t stride = (width + kStep - 1) / kStep * kStep;
    const size_t size = static_cast<size_t>(rows) * static_cast<size_t>(stride);
    if (size > kCapacity - used_) {
        std::fill(stamps_.begin(), stamps_.end(), Stamp{});
        used_ = 0;
    }
    uint8_t* bytes = bytes_.data() + used_;
    used_ += size;
    std::memset(bytes, 0, size);
    stamp = {std::min(dx, 0) - reach, -reach, rows, stride, bytes};
    for (int32_t i = 0; i < rows; ++i) {
        nib_.CoverRow(sweep, stamp.top + i, stamp.left, width,
                      bytes + static_cast<size_t>(i) * static_cast<size_t>(stride));
    }
    return stamp;
}

}  // namespace ink
