#include "ink/StrokeMask.h"

#include <cstring>
#include <exception>
#include <limits>

namespace ink {

bool StrokeMask::Prepare(const Rect& area, int32_t stride) {
    area_ = Rect{};
    const size_t size = static_cast<size_t>(area.Height()) * static_cast<size_t>(stride);
    if (size > static_cast<size_t>(std::numeric_limits<int32_t>::max())) return false;
    const size_t quads = static_cast<size_t>(area.Height()) * static_cast<size_t>(area.Width()) / kQuadPixels;
    try {
        // The last quad may end behind the area.
        if (bytes_.size() < size + kQuadPixels) bytes_.resize(size + kQuadPixels, 0);
        if (pendingPlaces_.empty()) pendingPlaces_.resize(kPendingRoom);
        if (pendingShares_.empty()) pendingShares_.resize(kPendingRoom);
        if (noted_.size() < quads + kPendingRoom) noted_.resize(quads + kPendingRoom);
    } catch (const std::exception&) {
        return false;
    }
    area_ = area;
    stride_ = static_cast<uint32_t>(stride);
    notedLimit_ = quads + 1;
    ForgetNotes();
    return true;
}

void StrokeMask::ForgetNotes() {
    notedCount_ = 0;
    // Areas narrower than a quad can't hold one.
    isAllNoted_ = area_.Width() < kQuadPixels;
}

void StrokeMask::SetNotedCount(size_t count) {
    notedCount_ = count;
    if (count == notedLimit_) isAllNoted_ = true;
}

void StrokeMask::RaisePending(size_t pending) {
    uint8_t* bytes = bytes_.data();
    const uint32_t* places = pendingPlaces_.data();
    const uint32_t* shares = pendingShares_.data();
    for (size_t start = 0; start < kInterleave; ++start) {
        for (size_t i = start; i < pending; i += kInterleave) {
            uint8_t* to = bytes + places[i];
            StoreFour(to, Larger(LoadFour(to), LoadFour(shares + i)));
        }
    }
}

void StrokeMask::NoteQuad(int64_t x, int64_t y) {
    if (IsAllNoted()) return;
    // A quad that hangs over an edge is moved inside: laying more over the picture than was raised is
    // harmless.
    noted_[notedCount_] = PlaceOf(std::clamp<int64_t>(x, area_.left, area_.right - kQuadPixels), y);
    SetNotedCount(notedCount_ + 1);
}

void StrokeMask::RaiseClipped(int64_t x, int64_t y, const QuadList& quads) {
    for (size_t i = 0; i < quads.count; ++i) {
        const int64_t left = x + quads.places[i].x;
        const int64_t row = y + quads.places[i].y;
        if (row < area_.top || row >= area_.bottom) continue;
        if (left + kQuadPixels <= area_.left || left >= area_.right) continue;
        const uint32_t& shares = quads.batches[i / kQuadsPerBatch].shares[i % kQuadsPerBatch];
        if (left >= area_.left && left + kQuadPixels <= area_.right) {
            uint8_t* to = &bytes_[PlaceOf(left, row)];
            StoreFour(to, Larger(LoadFour(to), LoadFour(&shares)));
        } else {
            RaiseQuadPart(left, row, shares);
        }
        NoteQuad(left, row);
    }
}

// A quad that an edge of the area goes through.
void StrokeMask::RaiseQuadPart(int64_t x, int64_t y, uint32_t shares) {
    uint8_t bytes[kQuadPixels];
    std::memcpy(bytes, &shares, kQuadPixels);
    for (int32_t i = 0; i < kQuadPixels; ++i) {
        if (x + i < area_.left || x + i >= area_.right) continue;
        uint8_t& to = bytes_[PlaceOf(x + i, y)];
        to = std::max(to, bytes[i]);
    }
}

void StrokeMask::RaiseRow(int32_t x, int32_t y, const uint8_t* bytes, int32_t count) {
    uint8_t* to = &bytes_[PlaceOf(x, y)];
    for (int32_t i = 0; i < count; ++i) to[i] = std::max(to[i], bytes[i]);
    for (int32_t i = 0; i < count; i += kQuadPixels) NoteQuad(x + i, y);
}

void StrokeMask::Clear(const Rect& rows) {
    for (int32_t y = rows.top; y < rows.bottom; ++y) {
        std::fill_n(&bytes_[PlaceOf(rows.left, y)], rows.Width(), uint8_t{0});
    }
    ForgetNotes();
}

}  // namespace ink
