#include <gtest/gtest.h>

#include "ink/Color.h"
#include "ink/PaletteBitmap.h"
#include "tests/ink/Sketch.h"

namespace {

using ink::PaletteBitmap;
using Start = PaletteBitmap::Start;

// Notes and pictures made elsewhere carry such colours: not one may come out differently. The digest is that
// of the formulas in double precision, with every product and quotient rounded to single.
TEST(Color, ShadesAreEqualToTheBit) {
    uint32_t digest = 0;
    for (uint32_t color = 0; color <= 0xFFFFFF; color += 517) {
        for (const float factor : {-1.0f, -0.15f, -0.1f, -0.05f, 0.0f, 0.39f, 0.8f, 2.5f}) {
            digest = (digest ^ ink::Shade(color, factor)) * 16777619;
            digest = (digest ^ ink::FineShade(color, factor)) * 16777619;
        }
    }
    EXPECT_EQ(digest, 3183317167u);
    EXPECT_EQ(ink::FineShade(0xFFFFFF, 0.8f), 0xCACACAu) << "on beyond white: 459 is 256 + 203";
    EXPECT_EQ(ink::FineShade(0xF0E0D0, -1e30f), 0u) << "far beyond any byte";
    EXPECT_EQ(ink::Shade(0xF0E0D0, -1e9f), 0u);
}

TEST(PaletteBitmap, HasNoSizeThatNoFileCanHave) {
    PaletteBitmap bitmap;
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {2147483647, 2147483647}})
        EXPECT_FALSE(bitmap.Create(width, height, Start::GreyRamp));
    EXPECT_EQ(bitmap.PixelIndex(3, 3), 0);
}

TEST(PaletteBitmap, HandsOutEachColourOnceAndThenTheNearest) {
    PaletteBitmap bitmap;
    ASSERT_TRUE(bitmap.Create(4, 4, Start::DefaultTable));
    EXPECT_EQ(bitmap.Entry(215), 0xFFFFFFu) << "the end of the cube";
    EXPECT_EQ(bitmap.Entry(216 + 13), 0x555555u) << "a third of the ramp";
    EXPECT_EQ(bitmap.Entry(6 + 2), ink::MakeColor(0, 51, 102));
    for (uint32_t i = 0; i < 256; ++i) {
        for (int again = 0; again < 2; ++again) EXPECT_EQ(bitmap.PaletteIndex(0xFF000302 + (i << 16)), i);
        EXPECT_EQ(bitmap.Used(), static_cast<int>(i) + 1);
    }
    EXPECT_EQ(bitmap.PaletteIndex(0x00133456), 19);
    EXPECT_EQ(bitmap.Used(), 256);
}

// At the edge, what lies outside is left out.
TEST(PaletteBitmap, SoftDotsDarkenTheirNeighbours) {
    PaletteBitmap bitmap;
    ASSERT_TRUE(bitmap.Create(4, 4, Start::GreyRamp));
    bitmap.CopyRows(sketch::Picture(4, 4).surface, 0);
    bitmap.SoftDot(2, 2, 0x0000FF);
    bitmap.SoftDot(0, 0, 0x0000FF);
    std::string seen;
    for (int32_t i = 0; i < 16; ++i)
        seen += std::to_string(ink::Green(bitmap.PixelColor(i % 4, i / 4))) + " ";
    EXPECT_EQ(seen, "0 229 255 255 229 229 229 242 255 229 0 229 255 242 229 242 ");
}

}  // namespace
