// An 8-bit picture that collects the colours painted into it and can be written out as a BMP file.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "ink/ByteStream.h"
#include "ink/Color.h"
#include "ink/PixelSurface.h"

namespace ink {

// (0, 0) is the picture's top left pixel; the rows lie bottom-up in memory, as in the file. Positions outside
// the picture read as index 0 and are not painted.
class PaletteBitmap {
  public:
    enum class Start { GreyRamp, DefaultTable };

    // Makes a picture with all pixels index 0 and no palette entry handed out. False when a size is not
    // positive or memory is short; the picture is then empty.
    bool Create(int32_t width, int32_t height, Start start);

    int32_t Width() const { return width_; }
    int32_t Height() const { return height_; }
    int Used() const { return used_; }
    ColorRef Entry(uint8_t index) const { return palette_[index]; }

    // The entry holding the colour, handed out on first request. Once all 256 are in use: the nearest one.
    uint8_t PaletteIndex(ColorRef color);

    uint8_t PixelIndex(int32_t x, int32_t y) const;
    ColorRef PixelColor(int32_t x, int32_t y) const { return palette_[PixelIndex(x, y)]; }
    void SetPixelIndex(int32_t x, int32_t y, uint8_t index);

    // A pixel with a slightly darkened fringe.
    void SoftDot(int32_t x, int32_t y, ColorRef color);

    // Copies a painted surface into the rows from `top` on, as far as both reach.
    void CopyRows(const PixelSurface& surface, int32_t top);

    // Writes the whole file; false at the first failed write.
    bool WriteBmp(ByteSink& sink) const;

  private:
    bool Inside(int32_t x, int32_t y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }
    size_t Place(int32_t x, int32_t y) const;
    uint8_t Nearest(ColorRef color) const;
    uint8_t IndexOfPixel(uint32_t pixel);  // 0x00RRGGBB
    void ForgetKnown();
    void Darken(int32_t x, int32_t y, float factor);

    int32_t width_ = 0;
    int32_t height_ = 0;
    size_t stride_ = 0;  // bytes per row, a multiple of 4
    int used_ = 0;
    std::array<ColorRef, 256> palette_{};
    std::vector<uint8_t> pixels_;
    // Pixels looked up by CopyRows and their indices (pixel << 8 | index), placed by a hash. An index once
    // given to a colour stays: exact ones never change, and nearest ones are given only when the palette is
    // full.
    std::vector<uint32_t> known_;
};

}  // namespace ink
