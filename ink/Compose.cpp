#include "ink/Compose.h"

#include <algorithm>

#include "ink/Lanes.h"

namespace ink {
namespace {

Bytes16 FourTimes(uint32_t pixel) {
    const Longs4 pixels = {pixel, pixel, pixel, pixel};
    return reinterpret_cast<Bytes16>(pixels);
}

class ShareMixer {
  public:
    explicit ShareMixer(uint32_t pixel)
        : even_(reinterpret_cast<Words8>(FourTimes(pixel)) & kLow),
          odd_(reinterpret_cast<Words8>(FourTimes(pixel)) >> 8) {}

    // Every other byte is mixed in the sixteen bits of its word, the ones between likewise; all of a pixel
    // take the same share. Shares are stretched to 0..256, so that 255 is all ink; the sum never leaves 16
    // bits.
    Bytes16 Mix(Bytes16 below, Bytes16 shares) const {
        const Words8 words = reinterpret_cast<Words8>(below);
        const Words8 spread = reinterpret_cast<Words8>(Spread(shares)) & kLow;
        const Words8 parts = spread + (spread >> 7);
        const Words8 even = (words << 8) + (even_ - (words & kLow)) * parts + kHalf;
        const Words8 odd = (words & ~kLow) + (odd_ - (words >> 8)) * parts + kHalf;
        return reinterpret_cast<Bytes16>((even >> 8) | (odd & ~kLow));
    }

  private:
    static constexpr uint16_t kLow = 255;
    static constexpr uint16_t kHalf = 128;

    const Words8 even_;
    const Words8 odd_;
};

class LevelMixer {
  public:
    LevelMixer(uint32_t first, uint32_t second) : first_(FourTimes(first)), second_(FourTimes(second)) {}

    Bytes16 Mix(Bytes16 below, Bytes16 levels) const {
        const Bytes16 spread = Spread(levels);
        const Bytes16 none = reinterpret_cast<Bytes16>(spread == FourTimes(0));
        const Bytes16 one = reinterpret_cast<Bytes16>(spread == FourTimes(0x01010101));
        return (below & none) | (first_ & one) | (second_ & ~(none | one));
    }

  private:
    Bytes16 first_;
    Bytes16 second_;
};

template <typename Mixer>
class Composer {
  public:
    Composer(const ComposeJob& job, StrokeMask& mask, const Mixer& mixer)
        : area_(job.area), clearsMask_(job.clearMask), mask_(mask), bytes_(mask.Bytes()), mixer_(mixer) {
        const Rect& area = mask.Area();
        const int64_t corner = static_cast<int64_t>(area.top) * job.to.stride + area.left;
        to_ = job.to.pixels + corner;
        below_ = job.below + corner;
    }

    void Run() const {
        if (mask_.IsAllNoted()) {
            PaintRows();
        } else {
            PaintQuads();
        }
    }

  private:
    // Quads that lie over each other do no harm: over a copy of what is below they are painted alike, and of
    // a mask that is cleared nothing is left the second time.
    void PaintQuads() const {
        // A copy that nobody else knows of stays in registers while pixels are stored.
        const Composer local(*this);
        const uint32_t* places = mask_.Noted();
        const size_t count = mask_.NotedCount();
        for (size_t start = 0; start < kInterleave; ++start) {
            for (size_t i = start; i < count; i += kInterleave) local.PaintQuad(places[i]);
        }
    }

    void PaintRows() const {
        const Composer local(*this);
        const size_t width = static_cast<size_t>(area_.Width());
        for (int32_t y = area_.top; y < area_.bottom; ++y) {
            const size_t place = mask_.PlaceOf(area_.left, y);
            size_t x = 0;
            for (; x + kQuadPixels <= width; x += kQuadPixels) local.PaintQuad(place + x);
            if (x < width) PaintPart(place + x, width - x);
        }
    }

    void PaintQuad(size_t place) const {
        const Bytes16 shares = LoadFour(bytes_ + place);
        StoreBytes(to_ + place, mixer_.Mix(LoadBytes(below_ + place), shares));
        if (clearsMask_) StoreFour(bytes_ + place, Bytes16{});
    }

    // Less than a quad, at the end of a row.
    void PaintPart(size_t place, size_t count) const {
        uint8_t shares[kQuadPixels] = {};
        uint32_t pixels[kQuadPixels] = {};
        std::copy_n(bytes_ + place, count, shares);
        std::copy_n(below_ + place, count, pixels);
        StoreBytes(pixels, mixer_.Mix(LoadBytes(pixels), LoadFour(shares)));
        std::copy_n(pixels, count, to_ + place);
        if (clearsMask_) std::fill_n(bytes_ + place, count, uint8_t{0});
    }

    const Rect area_;
    const bool clearsMask_;
    const StrokeMask& mask_;
    uint8_t* const bytes_;
    const Mixer mixer_;
    // The pixels at the mask's place 0.
    uint32_t* to_;
    const uint32_t* below_;
};

}  // namespace

void ComposeShares(const ComposeJob& job, StrokeMask& mask, uint32_t pixel) {
    Composer<ShareMixer>(job, mask, ShareMixer(pixel)).Run();
}

void ComposeLevels(const ComposeJob& job, StrokeMask& mask, uint32_t first, uint32_t second) {
    Composer<LevelMixer>(job, mask, LevelMixer(first, second)).Run();
}

}  // namespace ink
