#include <gtest/gtest.h>

#include <cstring>

#include "ink/PaletteBitmap.h"
#include "tests/ink/Sketch.h"

namespace {

using ink::PaletteBitmap;
using Start = PaletteBitmap::Start;

// As a file holds them.
std::vector<uint32_t> Numbers(const sketch::Bytes& bytes, size_t place, size_t count) {
    std::vector<uint32_t> numbers(count);
    std::memcpy(numbers.data(), &bytes[place], count * sizeof(uint32_t));
    return numbers;
}

TEST(PaletteBitmap, WritesAFileThatReadsBack) {
    sketch::Picture picture(11, 7);
    for (size_t i = 0; i < picture.pixels.size(); ++i)
        picture.pixels[i] = static_cast<uint32_t>(i / 2) * 0x050301;
    PaletteBitmap bitmap;
    ASSERT_TRUE(bitmap.Create(10, 9, Start::GreyRamp));
    for (const int32_t top : {-2, 4}) bitmap.CopyRows(picture.surface, top);
    sketch::Bytes bmp;
    testing_support::SweepFaults([&](testing_support::Fault& fault) {
        sketch::FaultySink sink(fault);
        const bool isWritten = bitmap.WriteBmp(sink);
        EXPECT_EQ(isWritten, !fault.HasStruck());
        bmp = sink.Bytes();
    });
    ASSERT_EQ(bmp.size(), 1186u);
    EXPECT_EQ(bmp[0] | bmp[1] << 8, 'B' | 'M' << 8);
    // File: size, pixels at. Picture: bytes of this head, columns, rows, one plane of 8 bits, size.
    EXPECT_EQ(Numbers(bmp, 2, 13),
              (std::vector<uint32_t>{1186, 0, 1078, 40, 10, 9, 1 | 8 << 16, 0, 108, 0, 0, 0, 0}));
    const std::vector<uint32_t> palette = Numbers(bmp, 54, 256);
    EXPECT_EQ(palette[200], 0x00C8C8C8u) << "an entry of the ramp that was not needed";
    for (int32_t y = 0; y < 9; ++y) {
        for (int32_t x = 0; x < 10; ++x) {
            const uint32_t wanted = picture.surface.Row(y < 4 ? y + 2 : y - 4)[x];
            EXPECT_EQ(palette[bmp[static_cast<size_t>(1078 + (8 - y) * 12 + x)]], wanted) << x << "," << y;
        }
    }
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {2147483647, 2147483647}}) {
        EXPECT_FALSE(bitmap.Create(width, height, Start::GreyRamp));
        EXPECT_EQ(bitmap.PixelIndex(3, 3), 0) << "a size no file can have";
    }
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
    EXPECT_EQ(bitmap.PaletteIndex(0x00640302), 100);
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
