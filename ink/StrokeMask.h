// One stroke's coverage of an area, before it is laid over the picture in its colour.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/Geometry.h"
#include "ink/Lanes.h"
#include "ink/Spot.h"
#include "ink/StampCache.h"

namespace ink {

// Segments are united by the larger coverage, so ink that crosses itself gets no darker. The mask has as many
// pixels from row to row as the picture, so that one place serves both. It notes the spots in which it was
// raised: what is laid over the picture is in proportion to the ink and not to the area. When that would be
// more than the area, it notes that all of it is wanted.
class StrokeMask {
  public:
    // Makes the mask ready for an area of a picture with that many pixels from row to row. False when memory
    // is short; the mask then has an empty area.
    bool Prepare(const Rect& area, int32_t stride);

    const Rect& Area() const { return area_; }
    // The place of a pixel, modulo 2^32 for those outside the area.
    uint32_t PlaceOf(int64_t x, int64_t y) const {
        return static_cast<uint32_t>(y - area_.top) * stride_ + static_cast<uint32_t>(x - area_.left);
    }
    uint8_t* Bytes() { return bytes_.data(); }

    // Unites and notes those parts of the spots around a pixel that lie inside the area.
    void RaiseCut(int64_t x, int64_t y, const SpotList& spots);
    // Unites and notes columns x.. of row y, which lie inside the area.
    void RaiseRow(int32_t x, int32_t y, const uint8_t* bytes, int32_t count);

    // The places of spots that were noted, in no order, some of them repeatedly.
    const uint32_t* Noted() const { return noted_.data(); }
    size_t NotedCount() const { return notedCount_; }
    // Whether all of the area is noted, and not those spots only.
    bool IsAllNoted() const { return notedCount_ == tooMany_; }
    void ForgetNotes();

    // Back to nothing covered, when that was not left by whoever laid the mask over the picture. No more than
    // `rows`, inside the area, was raised.
    void Clear(const Rect& rows);

  private:
    friend class SpotFeed;
    static constexpr size_t kManyPending = 256;
    static constexpr size_t kPendingRoom = kManyPending + StampCache::kMostSpots + kSpotStep;

    void Settle(size_t pending);
    void RaisePart(int64_t x, int64_t y, uint32_t shares);
    void NoteSpot(int64_t x, int64_t y);

    Rect area_;
    uint32_t stride_ = 0;
    std::vector<uint8_t> bytes_;
    std::vector<uint32_t> noted_;
    size_t notedCount_ = 0;
    size_t tooMany_ = 0;  // where counting ends
    // Spots that a SpotFeed is to raise.
    std::vector<uint32_t> pendingPlaces_;
    std::vector<uint32_t> pendingShares_;
};

// Puts spots into a mask, all of whose ink lies inside its area, kOverhang columns from the right edge at
// least. Spots are collected first and united afterwards: that goes through them in one even loop instead of
// many short ones, whose ends the processor would guess wrong. A value of its own while a stroke is traced,
// so that its counts stay in registers; nothing else may change the mask until End.
class SpotFeed {
  public:
    explicit SpotFeed(StrokeMask& mask)
        : mask_(mask),
          places_(mask.pendingPlaces_.data()),
          shares_(mask.pendingShares_.data()),
          noted_(mask.noted_.data()),
          tooMany_(mask.tooMany_),
          notedCount_(mask.notedCount_) {}

    // Raises the tip's rim around a place, joined of what the segments before and after it cover (see
    // JoinShares). Once at most before each Body, which makes room again.
    void Joint(uint32_t place, const SpotList& rim, const SpotStep* before, const SpotStep* after) {
        for (size_t i = 0; i * kSpotStep < rim.count; ++i) {
            StoreBytes(shares_ + count_ + i * kSpotStep, JoinShares(before[i], after[i], rim.steps[i]));
            StoreQuads(places_ + count_ + i * kSpotStep, LoadQuads(rim.steps[i].offsets) + place);
        }
        count_ += rim.count;
    }
    // Raises and notes. There is room for a whole stamp behind the last note that counts.
    void Body(uint32_t place, const SpotList& body) {
        if (count_ > StrokeMask::kManyPending) Settle();
        uint32_t* note = noted_ + notedCount_;
        const SpotStep* step = body.steps;
        for (size_t i = 0; i < body.count; i += kSpotStep, ++step) {
            const Quads4 places = LoadQuads(step->offsets) + place;
            StoreBytes(shares_ + count_ + i, LoadBytes(step->shares));
            StoreQuads(places_ + count_ + i, places);
            StoreQuads(note + i, places);
        }
        count_ += body.count;
        notedCount_ = std::min(notedCount_ + body.count, tooMany_);
    }
    void End() {
        Settle();
        mask_.notedCount_ = notedCount_;
    }

  private:
    void Settle() {
        mask_.Settle(count_);
        count_ = 0;
    }

    StrokeMask& mask_;
    uint32_t* const places_;
    uint32_t* const shares_;
    uint32_t* const noted_;
    const size_t tooMany_;
    size_t count_ = 0;
    size_t notedCount_;
};

}  // namespace ink
