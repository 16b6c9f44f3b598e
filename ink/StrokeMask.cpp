#include "ink/StrokeMask.h"

#include <cstring>
#include <exception>
#include <limits>

namespace ink {

bool StrokeMask::Prepare(const Rect& area, int32_t stride) {
    area_ = Rect{};
    const size_t size = static_cast<size_t>(area.Height()) * static_cast<size_t>(stride);
    if (size > static_cast<size_t>(std::numeric_limits<int32_t>::max())) return false;
    const size_t spots = static_cast<size_t>(area.Height()) * static_cast<size_t>(area.Width()) / kSpot;
    try {
        // The last spot may end behind the area.
        if (bytes_.size() < size + kSpot) bytes_.resize(size + kSpot, 0);
        if (pendingPlaces_.empty()) pendingPlaces_.resize(kPendingRoom);
        if (pendingShares_.empty()) pendingShares_.resize(kPendingRoom);
        if (noted_.size() < spots + kPendingRoom) noted_.resize(spots + kPendingRoom);
    } catch (const std::exception&) {
        return false;
    }
    area_ = area;
    stride_ = static_cast<uint32_t>(stride);
    tooMany_ = spots + 1;
    ForgetNotes();
    return true;
}

void StrokeMask::ForgetNotes() {
    // Areas narrower than a spot can't hold one.
    notedCount_ = area_.Width() < kSpot ? tooMany_ : 0;
}

void StrokeMask::Settle(size_t pending) {
    uint8_t* bytes = bytes_.data();
    const uint32_t* places = pendingPlaces_.data();
    const uint32_t* shares = pendingShares_.data();
    for (size_t start = 0; start < kSpotsApart; ++start) {
        for (size_t i = start; i < pending; i += kSpotsApart) {
            uint8_t* to = bytes + places[i];
            StoreFour(to, Larger(LoadFour(to), LoadFour(shares + i)));
        }
    }
}

void StrokeMask::NoteSpot(int64_t x, int64_t y) {
    if (IsAllNoted()) return;
    // A spot that hangs over an edge is moved inside: laying more over the picture than was raised is
    // harmless.
    noted_[notedCount_++] = PlaceOf(std::clamp<int64_t>(x, area_.left, area_.right - kSpot), y);
}

void StrokeMask::RaiseCut(int64_t x, int64_t y, const SpotList& spots) {
    for (size_t i = 0; i < spots.count; ++i) {
        const int64_t left = x + spots.places[i].x;
        const int64_t row = y + spots.places[i].y;
        if (row < area_.top || row >= area_.bottom) continue;
        if (left + kSpot <= area_.left || left >= area_.right) continue;
        const uint32_t& shares = spots.steps[i / kSpotStep].shares[i % kSpotStep];
        if (left >= area_.left && left + kSpot <= area_.right) {
            uint8_t* to = &bytes_[PlaceOf(left, row)];
            StoreFour(to, Larger(LoadFour(to), LoadFour(&shares)));
        } else {
            RaisePart(left, row, shares);
        }
        NoteSpot(left, row);
    }
}

// A spot that an edge of the area goes through.
void StrokeMask::RaisePart(int64_t x, int64_t y, uint32_t shares) {
    uint8_t bytes[kSpot];
    std::memcpy(bytes, &shares, kSpot);
    for (int32_t i = 0; i < kSpot; ++i) {
        if (x + i < area_.left || x + i >= area_.right) continue;
        uint8_t& to = bytes_[PlaceOf(x + i, y)];
        to = std::max(to, bytes[i]);
    }
}

void StrokeMask::RaiseRow(int32_t x, int32_t y, const uint8_t* bytes, int32_t count) {
    uint8_t* to = &bytes_[PlaceOf(x, y)];
    for (int32_t i = 0; i < count; ++i) to[i] = std::max(to[i], bytes[i]);
    for (int32_t i = 0; i < count; i += kSpot) NoteSpot(x + i, y);
}

void StrokeMask::Clear(const Rect& rows) {
    for (int32_t y = rows.top; y < rows.bottom; ++y) {
        std::fill_n(&bytes_[PlaceOf(rows.left, y)], rows.Width(), uint8_t{0});
    }
    ForgetNotes();
}

}  // namespace ink
