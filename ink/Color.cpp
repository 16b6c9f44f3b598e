#include "ink/Color.h"

#include <algorithm>
#include <cmath>

namespace ink {
namespace {

// Every product and quotient below is rounded to single precision in the order written: notes and exports
// made elsewhere carry colours computed this way, and they must come out equal to the bit.
struct Hls {
    float hue;  // degrees, 0 to 360
    float lightness;
    float saturation;
};

Hls ToHls(ColorRef color) {
    const int red = Red(color);
    const int green = Green(color);
    const int blue = Blue(color);
    const int high = std::max({red, green, blue});
    const int low = std::min({red, green, blue});
    const float sum = static_cast<float>(high + low);
    Hls hls{0.0f, sum * 0.0019607844f, 0.0f};
    if (high == low) return hls;

    const float range = static_cast<float>(high - low);
    hls.saturation = hls.lightness <= 0.5f ? range / sum : range / (510.0f - sum);
    const float rc = static_cast<float>(high - red) / range;
    const float gc = static_cast<float>(high - green) / range;
    const float bc = static_cast<float>(high - blue) / range;
    if (red == high) hls.hue = 60.0f * (6.0f + bc - gc);
    if (green == high) hls.hue = 60.0f * (2.0f + rc - bc);
    if (blue == high) hls.hue = 60.0f * (4.0f + gc - rc);
    if (hls.hue > 360.0f) hls.hue -= 360.0f;
    return hls;
}

// The low 8 bits of the whole part. Unclamped lightness can leave 0..255 on either side.
uint32_t LowByte(double value) {
    if (!(std::fabs(value) < 9.0e18)) return 0;
    return static_cast<uint32_t>(static_cast<uint64_t>(static_cast<int64_t>(value)) & 0xFF);
}

uint32_t HueValue(float m1, float m2, float hue) {
    if (hue > 360.0f) {
        hue -= 360.0f;
    } else if (hue < 0.0f) {
        hue += 360.0f;
    }
    float value = m1;
    if (hue < 60.0f) {
        value = m1 + (m2 - m1) * hue * 0.016666668f;
    } else if (hue < 180.0f) {
        value = m2;
    } else if (hue < 240.0f) {
        value = m1 + (m2 - m1) * (240.0f - hue) * 0.016666668f;
    }
    const float scaled = value * 255.0f;
    return LowByte(static_cast<double>(scaled));
}

ColorRef FromHls(const Hls& hls) {
    const float l = hls.lightness;
    const float s = hls.saturation;
    if (s == 0.0f) {
        const uint32_t grey = LowByte(static_cast<double>(l) * 255.0);
        return MakeColor(grey, grey, grey);
    }
    const float m2 = l <= 0.5f ? l * s + l : (s + l) - s * l;
    const float m1 = 2.0f * l - m2;
    return MakeColor(HueValue(m1, m2, hls.hue + 120.0f), HueValue(m1, m2, hls.hue),
                     HueValue(m1, m2, hls.hue - 120.0f));
}

int Truncate(float value) { return static_cast<int>(value); }

}  // namespace

ColorRef Shade(ColorRef color, float factor) {
    const Hls hls = ToHls(color);
    const int hue = Truncate(hls.hue * 0.0027777778f * 255.0f);
    const int lightness = Truncate(hls.lightness * 255.0f);
    const int saturation = Truncate(hls.saturation * 255.0f);

    // Beyond +-1000 the result is black or white anyway; the bound keeps the conversion to int in range.
    const float bounded = std::clamp(factor, -1000.0f, 1000.0f);
    const int change = Truncate(static_cast<float>(lightness) * bounded);
    const int shaded = std::clamp(lightness + change, 0, 255);
    return FromHls({static_cast<float>(hue) * 0.003921569f * 360.0f,
                    static_cast<float>(shaded) * 0.003921569f,
                    static_cast<float>(saturation) * 0.003921569f});
}

ColorRef FineShade(ColorRef color, float factor) {
    Hls hls = ToHls(color);
    hls.lightness = hls.lightness * factor + hls.lightness;
    return FromHls(hls);
}

}  // namespace ink
