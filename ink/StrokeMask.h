// One stroke's coverage of an area, before it is laid over the picture in its colour.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/Geometry.h"
#include "ink/Lanes.h"
#include "ink/PixelQuad.h"
#include "ink/StampCache.h"

namespace ink {

// Segments are united by the larger coverage, so ink that crosses itself gets no darker. The mask has as many
// pixels from row to row as the picture, so that one place serves both. It notes the quads in which it was
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

    // Unites and notes those parts of the quads around a pixel that lie inside the area.
    void RaiseClipped(int64_t x, int64_t y, const QuadList& quads);
    // Unites and notes columns x.. of row y, which lie inside the area.
    void RaiseRow(int32_t x, int32_t y, const uint8_t* bytes, int32_t count);

    // The places of quads that were noted, in no order, some of them repeatedly.
    const uint32_t* Noted() const { return noted_.data(); }
    size_t NotedCount() const { return notedCount_; }
    // Whether all of the area is noted, and not those quads only.
    bool IsAllNoted() const { return isAllNoted_; }
    void ForgetNotes();

    // Back to nothing covered, when that was not left by whoever laid the mask over the picture. No more than
    // `rows`, inside the area, was raised.
    void Clear(const Rect& rows);

  private:
    friend class QuadFeed;
    static constexpr size_t kPendingLimit = 256;
    static constexpr size_t kPendingRoom = kPendingLimit + StampCache::kMostQuads + kQuadsPerBatch;

    void RaisePending(size_t pending);
    void SetNotedCount(size_t count);
    void RaiseQuadPart(int64_t x, int64_t y, uint32_t shares);
    void NoteQuad(int64_t x, int64_t y);

    Rect area_;
    uint32_t stride_ = 0;
    std::vector<uint8_t> bytes_;
    std::vector<uint32_t> noted_;
    size_t notedCount_ = 0;
    size_t notedLimit_ = 0;  // noting more would cost more than laying over all of the area
    bool isAllNoted_ = false;
    // Quads that a QuadFeed is to raise.
    std::vector<uint32_t> pendingPlaces_;
    std::vector<uint32_t> pendingShares_;
};

// Puts quads into a mask, all of whose ink lies inside its area, kQuadOverhang columns from the right edge at
// least. Quads are collected first and united afterwards: that goes through them in one even loop instead of
// many short ones, whose ends the processor would guess wrong. A value of its own while a stroke is traced,
// so that its counts stay in registers; nothing else may change the mask until End.
class QuadFeed {
  public:
    explicit QuadFeed(StrokeMask& mask)
        : mask_(mask),
          places_(mask.pendingPlaces_.data()),
          shares_(mask.pendingShares_.data()),
          noted_(mask.noted_.data()),
          notedLimit_(mask.notedLimit_),
          notedCount_(mask.notedCount_) {}

    // Raises the tip's rim around a place, joined of what the segments before and after it cover (see
    // JoinShares). Once at most before each Body, which makes room again.
    void Joint(uint32_t place, const QuadList& rim, const QuadBatch* before, const QuadBatch* after) {
        for (size_t i = 0; i * kQuadsPerBatch < rim.count; ++i) {
            StoreBytes(shares_ + count_ + i * kQuadsPerBatch,
                       JoinShares(before[i], after[i], rim.batches[i]));
            StoreLongs(places_ + count_ + i * kQuadsPerBatch, LoadLongs(rim.batches[i].offsets) + place);
        }
        count_ += rim.count;
    }
    // Raises and notes. There is room for a whole stamp behind the last note that counts.
    void Body(uint32_t place, const QuadList& body) {
        if (count_ > StrokeMask::kPendingLimit) RaisePending();
        uint32_t* note = noted_ + notedCount_;
        const QuadBatch* batch = body.batches;
        for (size_t i = 0; i < body.count; i += kQuadsPerBatch, ++batch) {
            const Longs4 places = LoadLongs(batch->offsets) + place;
            StoreBytes(shares_ + count_ + i, LoadBytes(batch->shares));
            StoreLongs(places_ + count_ + i, places);
            StoreLongs(note + i, places);
        }
        count_ += body.count;
        notedCount_ = std::min(notedCount_ + body.count, notedLimit_);
    }
    void End() {
        RaisePending();
        mask_.SetNotedCount(notedCount_);
    }

  private:
    void RaisePending() {
        mask_.RaisePending(count_);
        count_ = 0;
    }

    StrokeMask& mask_;
    uint32_t* const places_;
    uint32_t* const shares_;
    uint32_t* const noted_;
    const size_t notedLimit_;
    size_t count_ = 0;
    size_t notedCount_;
};

}  // namespace ink
