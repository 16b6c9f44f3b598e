#include <gtest/gtest.h>

#include "ink/PaletteBitmap.h"
#include "tests/ink/Sketch.h"

namespace {

using ink::PaletteBitmap;
using Start = PaletteBitmap::Start;

uint32_t Get32(const sketch::Bytes& bytes, size_t place) {
    return bytes[place] | bytes[place + 1] << 8 | bytes[place + 2] << 16 |
           static_cast<uint32_t>(bytes[place + 3]) << 24;
}

// The colour of a pixel read from a BMP file's bytes, (0, 0) at the top left.
ink::ColorRef BmpColor(const sketch::Bytes& bmp, uint32_t x, uint32_t y) {
    const uint32_t width = Get32(bmp, 18);
    const uint32_t height = Get32(bmp, 22);
    const uint32_t stride = (width + 3) / 4 * 4;
    const size_t index = bmp[Get32(bmp, 10) + (height - 1 - y) * stride + x];
    return ink::MakeColor(bmp[54 + index * 4 + 2], bmp[54 + index * 4 + 1], bmp[54 + index * 4]);
}

TEST(PaletteBitmap, WritesAFileThatReadsBack) {
    PaletteBitmap bitmap;
    ASSERT_TRUE(bitmap.Create(10, 10, Start::GreyRamp));
    bitmap.SetPixelIndex(3, 0, bitmap.PaletteIndex(0x00112233));
    bitmap.SetPixelIndex(9, 9, bitmap.PaletteIndex(0x00FF8040));
    ink::MemorySink sink;
    ASSERT_TRUE(bitmap.WriteBmp(sink));
    const sketch::Bytes& bmp = sink.Bytes();
    ASSERT_EQ(bmp.size(), 1198u);
    EXPECT_EQ(bmp[0], 'B');
    EXPECT_EQ(bmp[1], 'M');
    // Offsets of the 32-bit fields, and what they hold.
    const std::pair<size_t, uint32_t> fields[] = {
        {2, 1198}, {6, 0},    {10, 1078}, {14, 40}, {18, 10}, {22, 10}, {26, 1 | 8 << 16},
        {30, 0},   {34, 120}, {38, 0},    {42, 0},  {46, 0},  {50, 0}};
    for (const auto& [place, value] : fields) EXPECT_EQ(Get32(bmp, place), value) << place;
    EXPECT_EQ(BmpColor(bmp, 3, 0), 0x00112233u);
    EXPECT_EQ(BmpColor(bmp, 9, 9), 0x00FF8040u);
    EXPECT_EQ(Get32(bmp, 54 + 4 * 200), 0x00C8C8C8u);  // an untouched entry of the ramp
}

TEST(PaletteBitmap, HandsOutEachColourOnceAndThenTheNearest) {
    PaletteBitmap bitmap;
    ASSERT_TRUE(bitmap.Create(4, 4, Start::DefaultTable));
    EXPECT_EQ(bitmap.PaletteIndex(0x123456), 0);
    EXPECT_EQ(bitmap.PaletteIndex(0x123456), 0);
    EXPECT_EQ(bitmap.Used(), 1);
    for (uint32_t i = 1; i < 256; ++i) EXPECT_EQ(bitmap.PaletteIndex(i << 16), static_cast<int>(i));
    EXPECT_EQ(bitmap.Used(), 256);
    EXPECT_EQ(bitmap.PaletteIndex(0x00640302), 100);
    EXPECT_EQ(bitmap.PaletteIndex(0x00133456), 0);
    EXPECT_EQ(bitmap.Used(), 256);
}

TEST(PaletteBitmap, SoftDotDarkensItsNeighbours) {
    PaletteBitmap bitmap;
    ASSERT_TRUE(bitmap.Create(5, 5, Start::GreyRamp));
    const uint8_t white = bitmap.PaletteIndex(0xFFFFFF);
    for (int32_t i = 0; i < 25; ++i) bitmap.SetPixelIndex(i % 5, i / 5, white);
    bitmap.SoftDot(2, 2, 0x0000FF);
    bitmap.SoftDot(0, 0, 0x0000FF);  // at the edge: what lies outside is left out
    EXPECT_EQ(bitmap.PixelColor(2, 2), 0x0000FFu);
    EXPECT_EQ(bitmap.PixelColor(1, 2), ink::FineShade(0xFFFFFF, -0.1f));
    EXPECT_EQ(bitmap.PixelColor(3, 3), ink::FineShade(0xFFFFFF, -0.05f));
    EXPECT_EQ(bitmap.PixelColor(1, 1), ink::FineShade(ink::FineShade(0xFFFFFF, -0.05f), -0.05f));
    EXPECT_EQ(bitmap.PixelColor(4, 0), 0xFFFFFFu);
}

TEST(PaletteBitmap, CopiesASurfaceInItsColours) {
    sketch::Picture picture(7, 3);
    for (size_t i = 0; i < picture.pixels.size(); ++i)
        picture.pixels[i] = static_cast<uint32_t>(i) * 0x050301;
    PaletteBitmap bitmap;
    ASSERT_TRUE(bitmap.Create(6, 4, Start::GreyRamp));
    bitmap.CopyRows(picture.surface, 1);
    for (int32_t y = 0; y < 3; ++y) {
        for (int32_t x = 0; x < 6; ++x) {
            EXPECT_EQ(bitmap.PixelColor(x, y + 1), ink::ColorOf(picture.At(x, y)));
        }
    }
}

TEST(PaletteBitmap, RefusesSizesNoFileCanHave) {
    PaletteBitmap bitmap;
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {2147483647, 2147483647}}) {
        EXPECT_FALSE(bitmap.Create(width, height, Start::GreyRamp));
        EXPECT_EQ(bitmap.PixelIndex(0, 0), 0);
    }
}

}  // namespace
