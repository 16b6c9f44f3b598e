#include "ink/PageHead.h"

#include <algorithm>
#include <array>

#include "ink/InkPainter.h"

namespace ink {
namespace {

// Page rows of the head's lines.
constexpr int32_t kTitleRow = 37;
constexpr int32_t kEdgeRow = kHeadRows - 1;
constexpr int32_t kMargin = 14;  // columns left free beside the title line

// The share of the background's lightness that a tone differs by.
struct Tones {
    uint32_t paper;
    uint32_t title;
    uint32_t edge;
};

uint8_t Toward(uint8_t from, uint8_t to, float share) {
    return static_cast<uint8_t>(static_cast<float>(from) + static_cast<float>(to - from) * share + 0.5f);
}

// Light pages are darkened. On dark ones that would not be seen, and a share of almost nothing does not
// lighten black: they are mixed with white.
uint32_t Tone(ColorRef background, float share) {
    const int lightness = std::max({Red(background), Green(background), Blue(background)}) +
                          std::min({Red(background), Green(background), Blue(background)});
    if (lightness > 230) return PixelOf(Shade(background, -share));
    return PixelOf(MakeColor(Toward(Red(background), 255, share), Toward(Green(background), 255, share),
                             Toward(Blue(background), 255, share)));
}

}  // namespace

void PaintPageHead(PixelSurface& surface, ColorRef background, int32_t scroll, const Rect& clip) {
    const Rect box = Intersect(clip, surface.Bounds());
    if (box.IsEmpty() || static_cast<int64_t>(scroll) + box.top >= kHeadRows) return;
    const Tones tones{Tone(background, 0.03f), Tone(background, 0.16f), Tone(background, 0.24f)};
    for (int32_t y = box.top; y < box.bottom; ++y) {
        const int64_t row = static_cast<int64_t>(scroll) + y;
        if (row < 0 || row >= kHeadRows) continue;
        uint32_t* pixels = surface.Row(y);
        std::fill(pixels + box.left, pixels + box.right, row == kEdgeRow ? tones.edge : tones.paper);
        if (row != kTitleRow) continue;
        const int32_t left = std::max(box.left, kMargin);
        const int32_t right = std::min(box.right, surface.width - kMargin);
        if (left < right) std::fill(pixels + left, pixels + right, tones.title);
    }
}

}  // namespace ink
