#include "ink/PageHead.h"

#include <algorithm>

#include "ink/InkPainter.h"

namespace ink {
namespace {

// How far each part's tone lies between the background and black, or white on dark pages.
constexpr int kPaperShare = 3;  // percent
constexpr int kTitleShare = 16;
constexpr int kEdgeShare = 26;

ColorRef Tone(ColorRef background, int percent) {
    const auto [low, high] = std::minmax({Red(background), Green(background), Blue(background)});
    const int contrast = low + high > 230 ? 0 : 255;
    const auto part = [&](int from) {
        return static_cast<uint32_t>((from * (100 - percent) + contrast * percent + 50) / 100);
    };
    return MakeColor(part(Red(background)), part(Green(background)), part(Blue(background)));
}

}  // namespace

HeadTones HeadTonesOf(ColorRef background) {
    return {Tone(background, kPaperShare), Tone(background, kTitleShare), Tone(background, kEdgeShare)};
}

void PaintPageHead(PixelSurface& surface, ColorRef background, int32_t scroll, const Rect& clip,
                   Scale scale) {
    const Rect box = Intersect(clip, surface.Bounds());
    const int64_t top = scale.ToScreen(scroll);
    const int64_t bottom = scale.ToScreen(kHeadRows);
    if (box.IsEmpty() || top + box.top >= bottom) return;
    const HeadTones tones = HeadTonesOf(background);
    const uint32_t paper = PixelOf(tones.paper);
    const uint32_t title = PixelOf(tones.title);
    const uint32_t edge = PixelOf(tones.edge);
    const int64_t titleTop = scale.ToScreen(kTitleRow);
    // The same for both lines, wherever on the raster they begin.
    const int64_t line = scale.ToScreen(1);
    const int32_t margin = static_cast<int32_t>(scale.ToScreen(kTitleMargin));
    for (int32_t y = box.top; y < box.bottom; ++y) {
        const int64_t row = top + y;
        if (row < 0 || row >= bottom) continue;
        uint32_t* pixels = surface.Row(y);
        std::fill(pixels + box.left, pixels + box.right, row >= bottom - line ? edge : paper);
        if (row < titleTop || row >= titleTop + line) continue;
        const int32_t left = std::max(box.left, margin);
        const int32_t right = std::min(box.right, surface.width - margin);
        if (left < right) std::fill(pixels + left, pixels + right, title);
    }
}

}  // namespace ink
