#include <gtest/gtest.h>

#include "ink/Color.h"

namespace {

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
    EXPECT_EQ(ink::Shade(0xF0E0D0, -0.15f), 0xDFC09Eu);
    EXPECT_EQ(ink::FineShade(0xFFFFFF, 0.8f), 0xCACACAu) << "on beyond white: 459 is 256 + 203";
    EXPECT_EQ(ink::FineShade(0xF0E0D0, -1e30f), 0u) << "far beyond any byte";
    EXPECT_EQ(ink::Shade(0xF0E0D0, -1e9f), 0u);
}

}  // namespace
