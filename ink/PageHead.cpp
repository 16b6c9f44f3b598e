#include "ink/PageHead.h"

#include <algorithm>

#include "ink/InkPainter.h"

namespace ink {
namespace {

// Page rows of the head's lines.
constexpr int32_t kTitleRow = 37;
constexpr int32_t kEdgeRow = kHeadRows - 1;
constexpr int32_t kMargin = 14;  // columns left free beside the title line

// How far each part's tone lies between the background and black, or white on dark pages.
constexpr int kPaperShare = 3;  // percent
constexpr int kTitleShare = 16;
constexpr int kEdgeShare = 26;

uint32_t Tone(ColorRef background, int percent) {
    const auto [low, high] = std::minmax({Red(background), Green(background), Blue(background)});
    const int contrast = low + high > 230 ? 0 : 255;
    const auto part = [&](int from) {
        return static_cast<uint32_t>((from * (100 - percent) + contrast * percent + 50) / 100);
    };
    return PixelOf(MakeColor(part(Red(background)), part(Green(background)), part(Blue(background))));
}

}  // namespace

void PaintPageHead(PixelSurface& surface, ColorRef background, int32_t scroll, const Rect& clip) {
    const Rect box = Intersect(clip, surface.Bounds());
    if (box.IsEmpty() || static_cast<int64_t>(scroll) + box.top >= kHeadRows) return;
    const uint32_t paper = Tone(background, kPaperShare);
    const uint32_t title = Tone(background, kTitleShare);
    const uint32_t edge = Tone(background, kEdgeShare);
    for (int32_t y = box.top; y < box.bottom; ++y) {
        const int64_t row = static_cast<int64_t>(scroll) + y;
        if (row < 0 || row >= kHeadRows) continue;
        uint32_t* pixels = surface.Row(y);
        std::fill(pixels + box.left, pixels + box.right, row == kEdgeRow ? edge : paper);
        if (row != kTitleRow) continue;
        const int32_t left = std::max(box.left, kMargin);
        const int32_t right = std::min(box.right, surface.width - kMargin);
        if (left < right) std::fill(pixels + left, pixels + right, title);
    }
}

}  // namespace ink
