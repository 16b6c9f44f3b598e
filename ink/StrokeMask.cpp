#include "ink/StrokeMask.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <limits>

namespace ink {
namespace {

constexpr CoverSpan kUntouched{std::numeric_limits<int32_t>::max(), 0};

}  // namespace

bool StrokeMask::Prepare(const Rect& area, int32_t margin) {
    Clear();
    area_ = Rect{};
    // Stamps are moved in whole steps, which may end behind their last column.
    const size_t stride =
        static_cast<size_t>(area.Width()) + 2 * static_cast<size_t>(margin) + StampCache::kStep;
    const size_t rows = static_cast<size_t>(area.Height()) + 2 * static_cast<size_t>(margin);
    try {
        if (bytes_.size() < stride * rows) bytes_.resize(stride * rows, 0);
        if (spans_.size() < rows) spans_.resize(rows, kUntouched);
    } catch (const std::exception&) {
        return false;
    }
    area_ = area;
    left_ = area.left - margin;
    top_ = area.top - margin;
    stride_ = stride;
    rows_ = rows;
    firstRow_ = rows;
    endRow_ = 0;
    return true;
}

void StrokeMask::Touch(size_t row, int32_t first, int32_t end) {
    CoverSpan& span = spans_[row];
    span.first = std::min(span.first, first);
    span.end = std::max(span.end, end);
}

void StrokeMask::Raise(const Stamp& stamp, int32_t x, int32_t y) {
    const int32_t first = x + stamp.left - left_;
    const size_t firstRow = static_cast<size_t>(y + stamp.top - top_);
    const size_t rows = static_cast<size_t>(stamp.rows);
    const size_t width = static_cast<size_t>(stamp.stride);
    uint8_t* to = &bytes_[firstRow * stride_ + static_cast<size_t>(first)];
    const uint8_t* from = stamp.bytes;
    for (size_t i = 0; i < rows; ++i) {
        for (size_t column = 0; column < width; column += StampCache::kStep) {
            // A fixed count lets the compiler take all the bytes in one instruction.
            for (size_t k = column; k < column + StampCache::kStep; ++k) to[k] = std::max(to[k], from[k]);
        }
        Touch(firstRow + i, first, first + stamp.stride);
        to += stride_;
        from += width;
    }
    firstRow_ = std::min(firstRow_, firstRow);
    endRow_ = std::max(endRow_, firstRow + rows);
}

void StrokeMask::RaiseRow(int32_t x, int32_t y, const uint8_t* bytes, int32_t count) {
    uint8_t* to = At(x, y);
    for (int32_t i = 0; i < count; ++i) to[i] = std::max(to[i], bytes[i]);
    const size_t row = static_cast<size_t>(y - top_);
    Touch(row, x - left_, x - left_ + count);
    firstRow_ = std::min(firstRow_, row);
    endRow_ = std::max(endRow_, row + 1);
}

CoverSpan StrokeMask::RowSpan(int32_t y) const {
    const CoverSpan& span = spans_[static_cast<size_t>(y - top_)];
    if (span.end <= span.first) return {};
    return {std::max(span.first + left_, area_.left), std::min(span.end + left_, area_.right)};
}

CoverSpan StrokeMask::Rows() const {
    if (endRow_ <= firstRow_) return {};
    return {std::max(static_cast<int32_t>(firstRow_) + top_, area_.top),
            std::min(static_cast<int32_t>(endRow_) + top_, area_.bottom)};
}

void StrokeMask::Clear() {
    for (size_t row = firstRow_; row < endRow_; ++row) {
        CoverSpan& span = spans_[row];
        if (span.end > span.first) {
            std::memset(&bytes_[row * stride_ + static_cast<size_t>(span.first)], 0,
                        static_cast<size_t>(span.end - span.first));
        }
        span = kUntouched;
    }
    firstRow_ = rows_;
    endRow_ = 0;
}

}  // namespace ink
