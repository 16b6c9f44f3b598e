#include <gtest/gtest.h>

#include "ink/Color.h"

namespace {

TEST(Color, ShadesAndFineShades) {
    const struct {
        ink::ColorRef color, darker, lighter, finelyDarker, finelyLighter;
    } kCases[] = {
        {0xFFFFFF, 0xD9D9D9, 0xFFFFFF, 0xE5E5E5, 0xCACACA},  // fine ones go on beyond white: 459 is 256 + 203
        {0x808080, 0x6D6D6D, 0xB1B1B1, 0x737373, 0xE6E6E6},
        {0xF0E0D0, 0xDFC09E, 0xFFFFFF, 0xE5C9AE, 0x4693DF},
        {0x01FE80, 0x00D76F, 0x61FEB2, 0x00E473, 0xCCFEE5},
    };
    for (const auto& c : kCases) {
        EXPECT_EQ(ink::Shade(c.color, -0.15f), c.darker) << std::hex << c.color;
        EXPECT_EQ(ink::Shade(c.color, 0.39f), c.lighter) << std::hex << c.color;
        EXPECT_EQ(ink::FineShade(c.color, -0.1f), c.finelyDarker) << std::hex << c.color;
        EXPECT_EQ(ink::FineShade(c.color, 0.8f), c.finelyLighter) << std::hex << c.color;
        EXPECT_EQ(ink::Shade(c.color, 1e9f), 0xFFFFFFu);
        EXPECT_EQ(ink::Shade(c.color, -1e9f), 0u);
        EXPECT_EQ(ink::FineShade(c.color, -1e30f), 0u);  // far beyond any byte
    }
}

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
}

}  // namespace
