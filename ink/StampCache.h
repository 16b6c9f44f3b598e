// Ready-made pictures of short segments.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/Nib.h"
#include "ink/PixelQuad.h"
#include "ink/Scale.h"

namespace ink {

// The coverage of one segment, as seen from the point it starts at.
struct Stamp {
    uint32_t first = 0;  // of its batches in the cache
    uint32_t count = 0;  // quads of its body

    // The first batches are the tip's.
    bool IsMade() const { return first != 0; }
};

// A pen's samples lie a few pixels apart, so the same short segments come again and again. Their stamps are
// made on first use in memory taken beforehand; when that is full, all are forgotten.
//
// A stamp comes in three parts: what it covers around its start, the same around its end, and its body. The
// body is all beyond the tip at the start, the tip at the end included. Around the ends it is seen in the
// quads of the tip's rim, which is all of the tip's square but the quads that the tip covers wholly: in those
// there is nothing to join. Nibs without soft edges have no rim.
class StampCache {
  public:
    // Longest dx or dy kept: as far as a hand's points lie apart, and no more of the finest screens.
    static constexpr int32_t kLongestOnPage = 24;  // page pixels
    static constexpr int32_t kLongest = 72;
    // No stamp's tip and body have more quads together. The tip may part each row of the body in two.
    static constexpr int32_t kWidestTip = 2 * kWidestReach + 1;
    static constexpr int32_t kWidestStamp = kLongest + kWidestTip;
    static constexpr size_t kMostQuads =
        kWidestTip * QuadsAcross(kWidestTip) + kWidestStamp * (QuadsAcross(kWidestStamp) + 1);

    // Throws bad_alloc. The nib must outlive the cache.
    explicit StampCache(Nib& nib, Scale scale = Scale());

    bool Fits(int64_t dx, int64_t dy) const {
        return static_cast<uint64_t>(dx + longest_) <= 2 * static_cast<uint64_t>(longest_) &&
               static_cast<uint64_t>(dy + longest_) <= 2 * static_cast<uint64_t>(longest_);
    }

    // Offsets are for pictures of this many pixels from row to row.
    void SetStride(int32_t stride);

    // The stamp of a segment that fits and is not a point, which may not be made yet.
    Stamp Find(int64_t dx, int64_t dy) const { return stamps_[Index(dx, dy)]; }
    // The same, made if need be. Making one may end all others; the two made last are always there.
    Stamp Get(int64_t dx, int64_t dy);

    // The tip's own coverage around a point: what a segment without length covers.
    QuadList Tip() const { return List(0, tipCount_); }
    // The same in the rim's quads.
    QuadList Rim() const { return List(0, rimCount_); }
    size_t RimBatches() const { return rimBatches_; }

    const QuadBatch* StartRim(const Stamp& stamp) const { return &batches_[stamp.first]; }
    const QuadBatch* EndRim(const Stamp& stamp) const { return &batches_[stamp.first + rimBatches_]; }
    QuadList Body(const Stamp& stamp) const { return List(stamp.first + 2 * rimBatches_, stamp.count); }

  private:
    QuadList List(size_t first, size_t count) const {
        return {&batches_[first], &places_[first * kQuadsPerBatch], count};
    }
    size_t Index(int64_t dx, int64_t dy) const {
        return static_cast<size_t>((dy + longest_) * (2 * longest_ + 1) + dx + longest_);
    }

    const uint8_t* PictureAt(int32_t x, int32_t y) const {
        return &picture_[static_cast<size_t>(y) * pitch_ + static_cast<size_t>(x)];
    }
    void Draw(int32_t dx, int32_t dy);
    void MakeTip(size_t usualBody);
    void AddRim(int32_t centerX, int32_t centerY);
    uint32_t AddBody(int32_t centerX, int32_t centerY);
    void AddQuad(size_t index, int32_t x, int32_t y, const uint8_t* bytes);
    void SetOffset(size_t index);
    bool IsBody(int32_t x, int32_t y, uint8_t share) const;

    Nib& nib_;
    const int32_t reach_;
    const int64_t longest_;
    const size_t pitch_;  // from row to row of picture_; a quad may end behind the widest stamp
    size_t tipCount_ = 0;
    size_t rimCount_ = 0;
    size_t rimBatches_ = 0;
    uint32_t stride_ = 0;
    std::vector<Stamp> stamps_;
    // The quads of all stamps, the tip first, and their places; `used_` batches.
    std::vector<QuadBatch> batches_;
    std::vector<QuadPlace> places_;
    size_t used_ = 0;
    std::vector<uint8_t> tip_;  // the coverage in its square, row by row
    // The segment that a stamp is being made of.
    std::vector<uint8_t> picture_;
    int32_t columns_ = 0;
    int32_t rows_ = 0;
};

}  // namespace ink
