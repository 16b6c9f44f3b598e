#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

#include "ink/InkPainter.h"
#include "ink/Scale.h"
#include "pictures/Pictures.h"
#include "pictures/PngWriter.h"

namespace pictures {

namespace {

constexpr int64_t kMostPixels = int64_t{1} << 30;
constexpr int64_t kStripPixels = 128 * 1024;  // painted at a time: what stays in the processor's cache

// Paints no smaller than the page is: what is smaller is the mean of so many pixels in either direction.
struct PaintScale {
    explicit PaintScale(double wanted)
        : shrink(static_cast<int32_t>(std::ceil(1 / std::min(wanted, 1.0)))),
          scale(static_cast<int32_t>(std::lround(wanted * shrink * ink::Scale::kPageDots))) {}

    int64_t Painted(int64_t page) const { return scale.ToScreen(page); }
    int64_t Shown(int64_t page) const { return (Painted(page) + shrink - 1) / shrink; }
    double Dots() const { return 1.0 * scale.Dots() / shrink; }

    int32_t shrink;
    ink::Scale scale;
};

// Takes painted rows, and hands on the means of squares of them.
class Shrinker {
  public:
    Shrinker(PngWriter& writer, int32_t shrink, int32_t paintedWidth)
        : writer_(writer),
          shrink_(shrink),
          width_((paintedWidth + shrink - 1) / shrink),
          sums_(static_cast<size_t>(width_) * 3),
          row_(static_cast<size_t>(width_)) {}

    bool AddRows(const ink::PixelSurface& strip) {
        if (shrink_ == 1) return writer_.AddRows(strip);
        bool isGood = true;
        for (int32_t y = 0; y < strip.height && isGood; ++y) {
            AddToSums(strip.Row(y), strip.width);
            if (++rows_ == shrink_) isGood = EndRow(strip.width);
        }
        return isGood;
    }
    // The last rows need not be as many as the others.
    bool Finish(int32_t paintedWidth) { return (rows_ == 0 || EndRow(paintedWidth)) && writer_.Finish(); }

  private:
    void AddToSums(const uint32_t* pixels, int32_t count) {
        for (int32_t x = 0; x < count; ++x) {
            uint32_t* sum = &sums_[static_cast<size_t>(x / shrink_) * 3];
            sum[0] += pixels[x] >> 16 & 255;
            sum[1] += pixels[x] >> 8 & 255;
            sum[2] += pixels[x] & 255;
        }
    }
    bool EndRow(int32_t paintedWidth) {
        for (int32_t x = 0; x < width_; ++x) {
            const int32_t columns = std::min(shrink_, paintedWidth - x * shrink_);
            const uint32_t count = static_cast<uint32_t>(columns * rows_);
            uint32_t* sum = &sums_[static_cast<size_t>(x) * 3];
            const auto mean = [&](int i) { return (sum[i] + count / 2) / count; };
            row_[static_cast<size_t>(x)] = mean(0) << 16 | mean(1) << 8 | mean(2);
        }
        std::fill(sums_.begin(), sums_.end(), 0u);
        rows_ = 0;
        return writer_.AddRow(row_.data());
    }

    PngWriter& writer_;
    int32_t shrink_;
    int32_t width_;
    int32_t rows_ = 0;  // in the sums
    std::vector<uint32_t> sums_;
    std::vector<uint32_t> row_;
};

}  // namespace

PictureResult WritePng(const ink::InkPage& page, const PictureSize& size, const PictureOptions& options,
                       ink::ByteSink& sink) {
    const PaintScale scale(options.scale);
    const int64_t width = scale.Shown(size.width);
    const int64_t height = scale.Shown(size.height);
    if (width > kMostSide || height > kMostSide || width * height > kMostPixels)
        return PictureResult::TooLarge;
    ink::InkPainter painter;
    if (!painter.SetPen(options.style, options.size, scale.scale)) throw std::bad_alloc();

    const int32_t paintedWidth = static_cast<int32_t>(scale.Painted(size.width));
    const int64_t stripRows = scale.scale.ToPage(kStripPixels / paintedWidth);
    const int32_t pageRows = static_cast<int32_t>(std::clamp<int64_t>(stripRows, 1, size.height));
    std::vector<uint32_t> pixels(static_cast<size_t>(paintedWidth) *
                                 static_cast<size_t>(scale.Painted(pageRows) + 1));
    PngWriter writer(sink, static_cast<int32_t>(width), static_cast<int32_t>(height), scale.Dots());
    Shrinker shrinker(writer, scale.shrink, paintedWidth);
    for (int32_t top = 0; top < size.height; top += pageRows) {
        const int64_t bottom = std::min<int64_t>(int64_t{top} + pageRows, size.height);
        const int32_t rows = static_cast<int32_t>(scale.Painted(bottom) - scale.Painted(top));
        ink::PixelSurface strip{pixels.data(), paintedWidth, rows, paintedWidth};
        if (!painter.Repaint(strip, page, top, strip.Bounds())) throw std::bad_alloc();
        if (!shrinker.AddRows(strip)) return PictureResult::NotWritten;
    }
    return shrinker.Finish(paintedWidth) ? PictureResult::Made : PictureResult::NotWritten;
}

}  // namespace pictures
