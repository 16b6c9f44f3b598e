#include <gtest/gtest.h>

#include "ink/Color.h"

namespace {

struct ShadeCase {
    ink::ColorRef color;
    float factor;
    ink::ColorRef shade;
    ink::ColorRef fineShade;
};

constexpr ShadeCase kShades[] = {
#include "tests/ink/ShadeTable.inc"
};

TEST(Color, ShadesEqualTheIndependentTable) {
    for (const ShadeCase& c : kShades) {
        EXPECT_EQ(ink::Shade(c.color, c.factor), c.shade) << std::hex << c.color << " by " << c.factor;
        EXPECT_EQ(ink::FineShade(c.color, c.factor), c.fineShade)
            << std::hex << c.color << " by " << c.factor;
    }
}

TEST(Color, ShadeOfWhiteForThePreviewIsThisGrey) { EXPECT_EQ(ink::Shade(0xFFFFFF, -0.15f), 0xD9D9D9u); }

TEST(Color, ShadeStopsAtBlackAndWhite) {
    for (const ink::ColorRef color : {0x4040FFu, 0x40FF40u, 0xFF4040u, 0x808080u}) {
        EXPECT_EQ(ink::Shade(color, 1e9f), 0xFFFFFFu);
        EXPECT_EQ(ink::Shade(color, -1e9f), 0u);
    }
}

TEST(Color, FineShadeKeepsTheLowByteOfWhatLeavesTheRange) {
    // 255 * 1.5 = 382 = 256 + 126.
    EXPECT_EQ(ink::FineShade(0xFFFFFF, 0.5f), 0x7E7E7Eu);
}

}  // namespace
