#include "ink/StampCache.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "ink/Require.h"

namespace ink {
namespace {

// Room for so many stamps with so many batches in their bodies: all segments that are common at a hand's
// pace, which is so many page pixels from point to point.
constexpr size_t kUsualStamps = 320;
constexpr size_t kLeastUsualBody = 24;
constexpr int32_t kUsualLength = 6;
static_assert(kUsualStamps * kLeastUsualBody >= 2 * BatchesFor(StampCache::kMostQuads),
              "any two stamps find room, also those of pens without a rim");

size_t Side(int32_t reach) { return 2 * static_cast<size_t>(reach) + 1; }

// Each row that the tip passes has quads across the length and where the tip parts them.
size_t UsualBody(int32_t reach, Scale scale) {
    const size_t length = static_cast<size_t>(scale.ToScreen(kUsualLength));
    return std::max(kLeastUsualBody, (Side(reach) + length) * (length + 6) / (kQuadPixels * kQuadsPerBatch));
}

}  // namespace

StampCache::StampCache(Nib& nib, Scale scale)
    : nib_(nib),
      reach_(nib.Reach()),
      longest_(std::min<int64_t>(scale.ToScreen(kLongestOnPage), kLongest)),
      pitch_(static_cast<size_t>(longest_) + Side(reach_) + kQuadOverhang),
      stamps_(Index(longest_, longest_) + 1),
      tip_(Side(reach_) * Side(reach_)),
      picture_(pitch_ * (static_cast<size_t>(longest_) + Side(reach_))) {
    if (!nib_.Prepare(static_cast<int32_t>(pitch_))) throw std::bad_alloc();
    Draw(0, 0);
    MakeTip(UsualBody(reach_, scale));
}

// The rim comes first, so that it is a list of its own.
void StampCache::MakeTip(size_t usualBody) {
    const int32_t side = 2 * reach_ + 1;
    std::vector<QuadPlace> rim;
    std::vector<QuadPlace> inner;
    for (int32_t y = 0; y < side; ++y) {
        const uint8_t* row = &picture_[static_cast<size_t>(y) * pitch_];
        std::copy_n(row, side, tip_.data() + y * side);
        for (int32_t x = 0; x < side; x += kQuadPixels) {
            const bool whole =
                std::all_of(row + x, row + x + kQuadPixels, [](uint8_t share) { return share == 255; });
            const bool joins = nib_.HasSoftEdges() && !whole;
            (joins ? rim : inner)
                .push_back({static_cast<int16_t>(x - reach_), static_cast<int16_t>(y - reach_)});
        }
    }
    rimCount_ = rim.size();
    rimBatches_ = BatchesFor(rimCount_);
    rim.insert(rim.end(), inner.begin(), inner.end());
    tipCount_ = rim.size();
    batches_.resize(BatchesFor(tipCount_) + kUsualStamps * (2 * rimBatches_ + usualBody));
    places_.resize(batches_.size() * kQuadsPerBatch);
    for (size_t i = 0; i < tipCount_; ++i) {
        const QuadPlace& place = rim[i];
        AddQuad(i, place.x, place.y, PictureAt(place.x + reach_, place.y + reach_));
    }
    used_ = BatchesFor(tipCount_);
}

void StampCache::SetStride(int32_t stride) {
    if (stride_ == static_cast<uint32_t>(stride)) return;
    stride_ = static_cast<uint32_t>(stride);
    for (size_t i = 0; i < used_ * kQuadsPerBatch; ++i) SetOffset(i);
}

Stamp StampCache::Get(int64_t dx, int64_t dy) {
    Require(Index(dx, dy) < stamps_.size(), "a segment longer than any stamp");
    Stamp& stamp = stamps_[Index(dx, dy)];
    if (stamp.IsMade()) return stamp;

    const int32_t x = static_cast<int32_t>(dx);
    const int32_t y = static_cast<int32_t>(dy);
    Draw(x, y);
    // The tip may part a row in two.
    const size_t rowQuads = QuadsAcross(columns_) + 1;
    const size_t most = 2 * rimBatches_ + BatchesFor(static_cast<size_t>(rows_) * rowQuads);
    Require(used_ <= batches_.size(), "more stamps than there is room for");
    if (most > batches_.size() - used_) {
        std::fill(stamps_.begin(), stamps_.end(), Stamp{});
        used_ = BatchesFor(tipCount_);
    }
    const int32_t startX = std::max(-x, 0) + reach_;
    const int32_t startY = std::max(-y, 0) + reach_;
    stamp.first = static_cast<uint32_t>(used_);
    AddRim(startX, startY);
    AddRim(startX + x, startY + y);
    stamp.count = AddBody(startX, startY);
    return stamp;
}

// The segment's coverage, with its box in the picture's corner.
void StampCache::Draw(int32_t dx, int32_t dy) {
    columns_ = std::abs(dx) + 2 * reach_ + 1;
    rows_ = std::abs(dy) + 2 * reach_ + 1;
    std::fill(picture_.begin(), picture_.end(), uint8_t{0});
    const bool upwards = dy < 0 || (dy == 0 && dx < 0);
    const Sweep sweep = upwards ? Sweep{-dx, -dy} : Sweep{dx, dy};
    const int64_t left = std::min<int64_t>(sweep.dx, 0) - reach_;
    for (int32_t y = 0; y < rows_; ++y) {
        nib_.CoverRow(sweep, y - reach_, left, columns_, &picture_[static_cast<size_t>(y) * pitch_]);
    }
}

// What the picture shows in the rim's quads around a pixel. The square ends where the tip does.
void StampCache::AddRim(int32_t centerX, int32_t centerY) {
    for (size_t i = 0; i < rimCount_; ++i) {
        const QuadPlace place = places_[i];
        uint8_t bytes[kQuadPixels] = {};
        std::copy_n(PictureAt(centerX + place.x, centerY + place.y),
                    std::min(reach_ + 1 - place.x, kQuadPixels), bytes);
        AddQuad(used_ * kQuadsPerBatch + i, place.x, place.y, bytes);
    }
    used_ += rimBatches_;
}

// All else of the picture, for a segment that starts at this pixel. Returns how many quads.
uint32_t StampCache::AddBody(int32_t centerX, int32_t centerY) {
    size_t count = 0;
    for (int32_t y = 0; y < rows_; ++y) {
        const uint8_t* row = &picture_[static_cast<size_t>(y) * pitch_];
        const int32_t down = y - centerY;
        for (int32_t x = 0; x < columns_;) {
            const int32_t right = x - centerX;
            if (row[x] == 0 || !IsBody(right, down, row[x])) {
                ++x;
                continue;
            }
            AddQuad(used_ * kQuadsPerBatch + count++, right, down, row + x);
            x += kQuadPixels;
        }
    }
    used_ += BatchesFor(count);
    return static_cast<uint32_t>(count);
}

void StampCache::AddQuad(size_t index, int32_t x, int32_t y, const uint8_t* bytes) {
    std::memcpy(&batches_[index / kQuadsPerBatch].shares[index % kQuadsPerBatch], bytes, kQuadPixels);
    places_[index] = {static_cast<int16_t>(x), static_cast<int16_t>(y)};
    SetOffset(index);
}

void StampCache::SetOffset(size_t index) {
    const QuadPlace& place = places_[index];
    batches_[index / kQuadsPerBatch].offsets[index % kQuadsPerBatch] =
        static_cast<uint32_t>(place.y) * stride_ + static_cast<uint32_t>(place.x);
}

bool StampCache::IsBody(int32_t x, int32_t y, uint8_t share) const {
    if (std::abs(x) > reach_ || std::abs(y) > reach_) return true;
    const uint8_t tip =
        tip_[static_cast<size_t>(y + reach_) * Side(reach_) + static_cast<size_t>(x + reach_)];
    // Soft edges are joined in all of the square.
    return nib_.HasSoftEdges() ? tip == 0 : tip < share;
}

}  // namespace ink
