#include "ink/Compose.h"

#include <algorithm>
#include <cstring>

#include "ink/Bits.h"
#include "ink/Lanes.h"

namespace ink {
namespace {

constexpr int32_t kGroup = StrokeMask::kGroup;

Bytes16 FourTimes(uint32_t pixel) {
    const Quads4 pixels = {pixel, pixel, pixel, pixel};
    return reinterpret_cast<Bytes16>(pixels);
}

class ShareMixer {
  public:
    explicit ShareMixer(uint32_t pixel) : over_(LowWords(FourTimes(pixel))) {}

    Bytes16 Mix(Bytes16 below, uint32_t shares) const {
        const Bytes16 spread = Spread(shares);
        return Narrow(MixHalf(LowWords(below), LowWords(spread)),
                      MixHalf(HighWords(below), HighWords(spread)));
    }

  private:
    // Shares are stretched to 0..256, so that 255 is all ink. The sum never leaves 16 bits.
    Words8 MixHalf(Words8 below, Words8 share) const {
        const Words8 part = share + (share >> 7);
        return ((below << 8) + (over_ - below) * part + 128) >> 8;
    }

    Words8 over_;
};

class LevelMixer {
  public:
    LevelMixer(uint32_t first, uint32_t second) : first_(FourTimes(first)), second_(FourTimes(second)) {}

    Bytes16 Mix(Bytes16 below, uint32_t levels) const {
        const Bytes16 spread = Spread(levels);
        const Bytes16 none = reinterpret_cast<Bytes16>(spread == FourTimes(0));
        const Bytes16 one = reinterpret_cast<Bytes16>(spread == FourTimes(0x01010101));
        return (below & none) | (first_ & one) | (second_ & ~(none | one));
    }

  private:
    Bytes16 first_;
    Bytes16 second_;
};

// Four pixels and their mask bytes.
struct Spot {
    size_t pixel;
    uint8_t* mask;
};

// Spots are collected first and painted afterwards: with the choosing out of the way, painting has no
// branches that the processor could guess wrong.
template <typename Mixer>
class Composer {
  public:
    // The spots are filled in as they are found; clearing them for every stroke would cost more than that.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
    Composer(const ComposeJob& job, const Mixer& mixer) : job_(job), mixer_(mixer) {}

    void Run(StrokeMask& mask) {
        const int32_t firstGroup = mask.GroupOf(job_.rows.left);
        const int32_t lastGroup = mask.GroupOf(job_.rows.right - 1);
        // Whole groups are painted where the clip allows, even if they hang over the rows' columns.
        cut_ = mask.GroupLeft(firstGroup) < job_.clip.left || mask.GroupLeft(lastGroup + 1) > job_.clip.right;
        const int32_t firstWord = firstGroup / 64;
        const int32_t lastWord = lastGroup / 64;
        for (int32_t word = firstWord; word <= lastWord; ++word) {
            uint64_t wanted = ~uint64_t{0};
            if (word == firstWord) wanted &= ~uint64_t{0} << firstGroup % 64;
            if (word == lastWord) wanted &= ~uint64_t{0} >> (63 - lastGroup % 64);
            RunColumns(mask, word, wanted);
        }
        Paint();
    }

  private:
    static constexpr size_t kRoom = 512;
    static constexpr size_t kMostAtOnce = 64 + 4;

    // All rows of the 64 groups of one word.
    void RunColumns(StrokeMask& mask, int32_t word, uint64_t wanted) {
        const int32_t left = mask.GroupLeft(word * 64);
        uint64_t* groups = mask.Groups(job_.rows.top) + word;
        uint8_t* bytes = mask.At(left, job_.rows.top);
        int64_t pixel = static_cast<int64_t>(job_.rows.top) * job_.to.stride + left;
        for (int32_t y = job_.rows.top; y < job_.rows.bottom; ++y) {
            const uint64_t found = *groups & wanted;
            if (found != 0) {
                if (job_.take) *groups &= ~wanted;
                if (count_ > kRoom - kMostAtOnce) Paint();
                if (cut_) {
                    CollectCut(bytes, pixel, left, found);
                } else {
                    Collect(bytes, pixel, found);
                }
            }
            groups += mask.GroupWords();
            bytes += mask.Stride();
            pixel += job_.to.stride;
        }
    }

    void Collect(uint8_t* bytes, int64_t pixel, uint64_t groups) {
        do {
            // A row of a line is rarely longer: no loop to leave at a different point each time. The places
            // behind the last bit are not counted and soon overwritten.
            for (int i = 0; i < 3; ++i) {
                const int column = LowestBit(groups | kGuard) * kGroup;
                spots_[count_] = {static_cast<size_t>(pixel + column), bytes + column};
                count_ += groups != 0 ? 1 : 0;
                groups &= groups - 1;
            }
        } while (groups != 0);
    }

    // Groups of which some may lie outside the clip, or be cut by it.
    void CollectCut(uint8_t* bytes, int64_t pixel, int32_t left, uint64_t groups) {
        for (; groups != 0; groups &= groups - 1) {
            const int column = LowestBit(groups) * kGroup;
            const int32_t from = std::max(left + column, job_.clip.left) - left;
            const int32_t to = std::min(left + column + kGroup, job_.clip.right) - left;
            if (to - from == kGroup) {
                spots_[count_++] = {static_cast<size_t>(pixel + column), bytes + column};
                continue;
            }
            for (int32_t i = from; i < to; ++i) {
                Quads4 below = {job_.from[pixel + i], 0, 0, 0};
                const Bytes16 mixed = mixer_.Mix(reinterpret_cast<Bytes16>(below), bytes[i]);
                job_.to.pixels[pixel + i] = reinterpret_cast<Quads4>(mixed)[0];
            }
            if (job_.take) std::memset(bytes + column, 0, kGroup);
        }
    }

    void Paint() {
        for (size_t i = 0; i < count_; ++i) {
            const Spot& spot = spots_[i];
            uint32_t shares = 0;
            std::memcpy(&shares, spot.mask, sizeof shares);
            StoreBytes(job_.to.pixels + spot.pixel, mixer_.Mix(LoadBytes(job_.from + spot.pixel), shares));
            if (job_.take) std::memset(spot.mask, 0, kGroup);
        }
        count_ = 0;
    }

    static constexpr uint64_t kGuard = uint64_t{1} << 63;

    const ComposeJob job_;
    const Mixer mixer_;
    bool cut_ = false;
    size_t count_ = 0;
    Spot spots_[kRoom];
};

}  // namespace

void ComposeShares(const ComposeJob& job, StrokeMask& mask, uint32_t pixel) {
    Composer<ShareMixer>(job, ShareMixer(pixel)).Run(mask);
}

void ComposeLevels(const ComposeJob& job, StrokeMask& mask, uint32_t first, uint32_t second) {
    Composer<LevelMixer>(job, LevelMixer(first, second)).Run(mask);
}

}  // namespace ink
