#include "ink/PaletteBitmap.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <limits>

namespace ink {
namespace {

constexpr uint32_t kFileHeaderSize = 14;
constexpr uint32_t kInfoHeaderSize = 40;
constexpr uint32_t kPaletteSize = 256 * 4;
constexpr uint32_t kPixelOffset = kFileHeaderSize + kInfoHeaderSize + kPaletteSize;
constexpr ColorRef kColorMask = 0x00FFFFFF;
constexpr int kKnownBits = 18;

// An even 6 x 6 x 6 colour cube, then a grey ramp for the other 40 entries.
ColorRef DefaultEntry(uint32_t index) {
    if (index < 216) return MakeColor(index / 36 * 51, index / 6 % 6 * 51, index % 6 * 51);
    const uint32_t grey = (index - 216) * 255 / 39;
    return MakeColor(grey, grey, grey);
}

void Put16(uint8_t* place, uint32_t value) {
    place[0] = static_cast<uint8_t>(value);
    place[1] = static_cast<uint8_t>(value >> 8);
}

void Put32(uint8_t* place, uint32_t value) {
    Put16(place, value);
    Put16(place + 2, value >> 16);
}

int Distance(ColorRef a, ColorRef b) {
    const int red = Red(a) - Red(b);
    const int green = Green(a) - Green(b);
    const int blue = Blue(a) - Blue(b);
    return red * red + green * green + blue * blue;
}

}  // namespace

bool PaletteBitmap::Create(int32_t width, int32_t height, Start start) {
    *this = PaletteBitmap();
    if (width <= 0 || height <= 0) return false;
    const uint64_t stride = ((static_cast<uint64_t>(width) * 8 + 31) >> 3) & ~uint64_t{3};
    const uint64_t size = stride * static_cast<uint64_t>(height);
    // The file's size field has 32 bits.
    if (size > std::numeric_limits<uint32_t>::max() - kPixelOffset) return false;
    try {
        pixels_.assign(static_cast<size_t>(size), 0);
    } catch (const std::exception&) {
        return false;
    }
    width_ = width;
    height_ = height;
    stride_ = static_cast<size_t>(stride);
    for (uint32_t i = 0; i < 256; ++i) {
        palette_[i] = start == Start::GreyRamp ? MakeColor(i, i, i) : DefaultEntry(i);
    }
    return true;
}

size_t PaletteBitmap::Place(int32_t x, int32_t y) const {
    return static_cast<size_t>(height_ - 1 - y) * stride_ + static_cast<size_t>(x);
}

uint8_t PaletteBitmap::PaletteIndex(ColorRef color) {
    const ColorRef wanted = color & kColorMask;
    if (used_ == 256) return Nearest(wanted);
    for (int i = 0; i < used_; ++i) {
        if (palette_[static_cast<size_t>(i)] == wanted) return static_cast<uint8_t>(i);
    }
    palette_[static_cast<size_t>(used_)] = wanted;
    return static_cast<uint8_t>(used_++);
}

// Distances carry their index in the low byte: one plain minimum over all entries, which compilers turn into
// block instructions, gives the first of the nearest.
uint8_t PaletteBitmap::Nearest(ColorRef color) const {
    uint32_t best = std::numeric_limits<uint32_t>::max();
    uint32_t index = 0;
    for (const ColorRef entry : palette_) {
        best = std::min(best, static_cast<uint32_t>(Distance(entry, color)) << 8 | index++);
    }
    return static_cast<uint8_t>(best);
}

uint8_t PaletteBitmap::PixelIndex(int32_t x, int32_t y) const {
    return Inside(x, y) ? pixels_[Place(x, y)] : 0;
}

void PaletteBitmap::SetPixelIndex(int32_t x, int32_t y, uint8_t index) {
    if (Inside(x, y)) pixels_[Place(x, y)] = index;
}

void PaletteBitmap::Darken(int32_t x, int32_t y, float factor) {
    if (Inside(x, y)) SetPixelIndex(x, y, PaletteIndex(FineShade(PixelColor(x, y), factor)));
}

void PaletteBitmap::SoftDot(int32_t x, int32_t y, ColorRef color) {
    constexpr Point kSides[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};
    constexpr Point kCorners[] = {{-1, -1}, {-1, 1}, {1, -1}, {1, 1}};
    for (const Point& p : kSides) Darken(x + p.x, y + p.y, -0.1f);
    for (const Point& p : kCorners) Darken(x + p.x, y + p.y, -0.05f);
    SetPixelIndex(x, y, PaletteIndex(color));
}

uint8_t PaletteBitmap::IndexOfPixel(uint32_t pixel) {
    if (known_.empty()) return PaletteIndex(ColorOf(pixel));
    uint32_t& place = known_[(pixel * 0x9E3779B1u) >> (32 - kKnownBits)];
    if (place >> 8 != pixel) place = pixel << 8 | PaletteIndex(ColorOf(pixel));
    return static_cast<uint8_t>(place);
}

// A page has long runs of one colour: each run is looked up once.
void PaletteBitmap::CopyRows(const PixelSurface& surface, int32_t top) {
    const int32_t width = std::min(surface.width, width_);
    if (known_.empty()) ForgetKnown();
    for (int32_t y = std::max(0, -top); y < surface.height && y < height_ - top; ++y) {
        const uint32_t* row = surface.Row(y);
        uint8_t* indices = &pixels_[Place(0, top + y)];
        for (int32_t x = 0; x < width;) {
            const uint32_t pixel = row[x] & kColorMask;
            int32_t end = x + 1;
            while (end < width && (row[end] & kColorMask) == pixel) ++end;
            std::memset(indices + x, IndexOfPixel(pixel), static_cast<size_t>(end - x));
            x = end;
        }
    }
}

// Without memory for it every lookup searches the palette.
void PaletteBitmap::ForgetKnown() {
    try {
        known_.assign(size_t{1} << kKnownBits, 0);
        known_[0] =
            kColorMask << 8;  // black belongs there, so nothing else but "not black" may stand for empty
    } catch (const std::exception&) {
        known_.clear();
    }
}

bool PaletteBitmap::WriteBmp(ByteSink& sink) const {
    const uint32_t imageSize = static_cast<uint32_t>(pixels_.size());
    std::array<uint8_t, kPixelOffset> head{};
    head[0] = 'B';
    head[1] = 'M';
    Put32(&head[2], imageSize + kPixelOffset);
    Put32(&head[10], kPixelOffset);
    uint8_t* info = &head[kFileHeaderSize];
    Put32(info, kInfoHeaderSize);
    Put32(info + 4, static_cast<uint32_t>(width_));
    Put32(info + 8, static_cast<uint32_t>(height_));
    Put16(info + 12, 1);  // planes
    Put16(info + 14, 8);  // bits per pixel
    Put32(info + 20, imageSize);
    uint8_t* entries = info + kInfoHeaderSize;
    for (size_t i = 0; i < palette_.size(); ++i) Put32(entries + i * 4, PixelOf(palette_[i]));
    if (!sink.Write(head.data(), head.size())) return false;
    return pixels_.empty() || sink.Write(pixels_.data(), pixels_.size());
}

}  // namespace ink
