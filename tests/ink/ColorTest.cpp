// Shades against the arithmetic written out in double precision, with every result rounded to single.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "ink/Color.h"

namespace {

double R(double value) { return static_cast<double>(static_cast<float>(value)); }
int Whole(double value) { return static_cast<int>(std::trunc(value)); }

// Of the lightness model: hue in degrees, the others 0 to 1.
struct Hls {
    double hue;
    double lightness;
    double saturation;
};

Hls Taken(ink::ColorRef color) {
    const double red = ink::Red(color);
    const double green = ink::Green(color);
    const double blue = ink::Blue(color);
    const auto [low, high] = std::minmax({red, green, blue});
    const double lightness = R((low + high) * R(0.0019607844));
    const double range = high - low;
    if (range == 0) return {0, lightness, 0};
    const auto turn = [&](double base, double more, double less) {  // how far from each
        return R(60 * R(R(base + R((high - more) / range)) - R((high - less) / range)));
    };
    double hue = turn(6, blue, green);
    if (green == high) hue = turn(2, red, blue);
    if (blue == high) hue = turn(4, green, red);
    if (hue > 360) hue = R(hue - 360);
    return {hue, lightness, R(range / (lightness <= 0.5 ? low + high : 510 - (low + high)))};
}

uint32_t Part(double m1, double m2, double hue) {
    if (hue > 360) hue = R(hue - 360);
    if (hue < 0) hue = R(hue + 360);
    const auto rising = [&](double angle) { return R(m1 + R(R(R(m2 - m1) * angle) * R(0.016666668))); };
    const double value = hue < 60 ? rising(hue) : hue < 180 ? m2 : hue < 240 ? rising(R(240 - hue)) : m1;
    return static_cast<uint32_t>(Whole(R(value * 255))) & 255;
}

ink::ColorRef Put(const Hls& c) {
    const uint32_t grey = static_cast<uint32_t>(Whole(c.lightness * 255)) & 255;
    if (c.saturation == 0) return grey * 0x010101;
    const double product = R(c.lightness * c.saturation);
    const double m2 =
        c.lightness <= 0.5 ? R(product + c.lightness) : R(R(c.saturation + c.lightness) - product);
    const double m1 = R(2 * c.lightness - m2);
    return Part(m1, m2, R(c.hue + 120)) | Part(m1, m2, c.hue) << 8 | Part(m1, m2, R(c.hue - 120)) << 16;
}

ink::ColorRef PlainShade(ink::ColorRef color, double factor) {
    const Hls c = Taken(color);
    const int hue = Whole(R(R(c.hue * R(0.0027777778)) * 255));
    const int lightness = Whole(R(c.lightness * 255));
    const int saturation = Whole(R(c.saturation * 255));
    const int shaded = std::clamp(lightness + Whole(R(lightness * factor)), 0, 255);
    const double byte = R(0.003921569);
    return Put({R(R(hue * byte) * 360), R(shaded * byte), R(saturation * byte)});
}

ink::ColorRef PlainFineShade(ink::ColorRef color, double factor) {
    const Hls c = Taken(color);
    return Put({c.hue, R(R(c.lightness * factor) + c.lightness), c.saturation});
}

TEST(Color, ShadesAreThoseOfThePlainArithmetic) {
    std::mt19937 random(7);
    std::vector<ink::ColorRef> colors(20000);
    for (ink::ColorRef& color : colors) color = random() & 0xFFFFFF;
    for (uint32_t i = 0; i < 512; ++i) {  // all mixtures of eight levels, where components are equal
        const auto level = [&](uint32_t digit) { return (i >> 3 * digit & 7) * 255 / 7; };
        colors.push_back(ink::MakeColor(level(0), level(1), level(2)));
    }
    for (const ink::ColorRef color : colors) {
        for (const float factor : {-1.0f, -0.15f, -0.1f, -0.05f, 0.0f, 0.39f, 0.8f, 2.5f}) {
            ASSERT_EQ(ink::Shade(color, factor), PlainShade(color, factor)) << color << " by " << factor;
            ASSERT_EQ(ink::FineShade(color, factor), PlainFineShade(color, factor))
                << color << " by " << factor;
        }
    }
}

// Numbers worked out by hand.
TEST(Color, ShadesStopAtBlackAndWhiteAndFineOnesGoOn) {
    EXPECT_EQ(ink::Shade(0xFFFFFF, -0.15f), 0xD9D9D9u);    // 255 - 38
    EXPECT_EQ(ink::FineShade(0xFFFFFF, 0.5f), 0x7E7E7Eu);  // 382 = 256 + 126
    for (const ink::ColorRef color : {0x4040FFu, 0x40FF40u, 0xFF4040u, 0x808080u}) {
        EXPECT_EQ(ink::Shade(color, 1e9f), 0xFFFFFFu);
        EXPECT_EQ(ink::Shade(color, -1e9f), 0u);
        EXPECT_EQ(ink::FineShade(color, -1e30f), 0u);  // far beyond any byte
    }
}

}  // namespace
