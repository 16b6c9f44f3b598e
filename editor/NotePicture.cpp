#include "editor/NotePicture.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "editor/PageScroll.h"
#include "ink/InkPainter.h"
#include "platform/Canvas.h"
#include "platform/Image.h"

namespace editor {

namespace {

using ink::ColorRef;

const std::wstring kLine = L"Created with Inkwright.";
constexpr platform::Font kLineFont{80, false};
constexpr int kMargin = 8;           // pixels around the line
constexpr int32_t kStripRows = 256;  // rows painted at a time: memory does not grow with two pictures
constexpr int kEntries = 256;
constexpr int kLongestRamp = 32;

// Grey that neither shouts nor drowns: away from the paper's own brightness.
ColorRef LineColor(ColorRef paper) {
    const int brightness = (ink::Red(paper) * 3 + ink::Green(paper) * 6 + ink::Blue(paper)) / 10;
    const uint32_t grey = std::abs(brightness - 128) > 48 ? 128 : 40;
    return ink::MakeColor(grey, grey, grey);
}

// The colours of the page's ink, each once, as far as a palette could hold them.
class InkColors {
  public:
    explicit InkColors(const ink::InkPage& page) {
        for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
            const ink::StrokeBand* band = page.Band(slot);
            for (size_t i = 0; band != nullptr && i < band->Count(); ++i) Add(band->At(i).Color());
        }
    }
    const ColorRef* begin() const { return colors_.data(); }
    const ColorRef* end() const { return colors_.data() + count_; }
    size_t Count() const { return count_; }

  private:
    void Add(ColorRef color) {
        if (count_ == colors_.size() || std::find(begin(), end(), color) != end()) return;
        colors_[count_++] = color;
    }

    std::array<ColorRef, kEntries> colors_{};
    size_t count_ = 0;
};

ColorRef Mix(ColorRef from, ColorRef to, int part, int whole) {
    const auto mix = [&](int a, int b) { return static_cast<uint32_t>(a + (b - a) * part / whole); };
    return ink::MakeColor(mix(ink::Red(from), ink::Red(to)), mix(ink::Green(from), ink::Green(to)),
                          mix(ink::Blue(from), ink::Blue(to)));
}

// Soft edges would use up the palette before the last ink is met. Paper, line and inks come first, then some
// shades of each ink, so that the nearest entry is never far.
void ReserveColors(const ink::InkPage& page, ColorRef line, ink::PaletteBitmap& picture) {
    const InkColors inks(page);
    picture.PaletteIndex(page.background);
    picture.PaletteIndex(line);
    for (const ColorRef color : inks) picture.PaletteIndex(color);
    if (inks.Count() == 0) return;
    const int steps = std::min(kLongestRamp, (kEntries - picture.Used()) / static_cast<int>(inks.Count()));
    for (const ColorRef color : inks) {
        for (int step = 1; step < steps; ++step) {
            picture.PaletteIndex(Mix(page.background, color, step, steps));
        }
    }
}

// The row below the last ink that the editor can scroll to; the head decoration always shows.
int32_t InkBottom(const ink::InkPage& page, int32_t reach) {
    int64_t bottom = ink::kHeadRows;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        const ink::StrokeBand* band = page.Band(slot);
        for (size_t i = 0; band != nullptr && i < band->Count(); ++i) {
            if (band->At(i).count > 0) bottom = std::max(bottom, int64_t{band->At(i).maxY} + 1 + reach);
        }
    }
    return static_cast<int32_t>(std::min<int64_t>(bottom, ScrollRangeOf(page).maximum));
}

// The column right of the last ink; of a damaged file no more than screens ever were wide.
int32_t InkRight(const ink::InkPage& page, int32_t reach) {
    constexpr int32_t kWidest = 4096;
    int32_t right = 0;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        const ink::StrokeBand* band = page.Band(slot);
        for (size_t i = 0; band != nullptr && i < band->Count(); ++i) {
            const ink::StrokeRecord& record = band->At(i);
            for (int32_t p = 0; p < record.count; ++p) right = std::max(right, record.Points()[p].x);
        }
    }
    return right == 0 ? 0 : std::min(right, kWidest - 1 - reach) + 1 + reach;
}

}  // namespace

bool MakeNotePicture(const ink::InkPage& page, PictureWidth wanted, ink::PaletteBitmap& picture) {
    ink::InkPainter painter;
    if (!painter.SetPen(page.penStyle, page.PenWidth())) return false;
    const platform::Rect lineSize = platform::Canvas::TextSize(kLine, kLineFont);
    const int32_t inkRight = wanted == PictureWidth::OfInk ? InkRight(page, painter.Reach()) : 0;
    const int32_t width = std::max({page.canvasWidth, inkRight, lineSize.right + 2 * kMargin});
    // In range: views end far enough above the last row that a number can tell.
    const int32_t height = InkBottom(page, painter.Reach()) + lineSize.bottom + 2 * kMargin;
    const platform::Image strip = platform::Image::Make(width, kStripRows);
    if (!strip.IsValid()) return false;
    if (!picture.Create(width, height, ink::PaletteBitmap::Start::GreyRamp)) return false;
    const ColorRef lineColor = LineColor(page.background);
    ReserveColors(page, lineColor, picture);

    const platform::Rect line =
        Offset(lineSize, width - lineSize.right - kMargin, height - lineSize.bottom - kMargin);
    for (int32_t top = 0; top < height; top += kStripRows) {
        ink::PixelSurface surface = strip.Surface();
        if (!painter.Repaint(surface, page, top, surface.Bounds())) return false;
        const platform::Rect lineHere = Offset(line, 0, -top);
        if (!Intersect(lineHere, surface.Bounds()).IsEmpty()) {
            platform::Canvas(strip).Text(kLine, {lineHere.left, lineHere.top}, kLineFont, lineColor,
                                         surface.Bounds());
        }
        picture.CopyRows(surface, top);
    }
    return true;
}

}  // namespace editor
