#include "options/palette/ColorPalette.h"

#include <algorithm>

#include "platform/Canvas.h"
#include "platform/Screen.h"

namespace options {

namespace {

using ink::ColorRef;
using platform::Rect;

constexpr int kColumns = 8;
constexpr int kCell = 24;   // page pixels: wide enough for a fingertip of a stylus
constexpr int kMargin = 4;  // around the grid
constexpr int kInset = 2;   // from a cell's edge to its colour
constexpr ColorRef kFace = 0xF0F0F0;
constexpr ColorRef kEdge = 0x909090;
constexpr ColorRef kMark = 0x202020;

constexpr ColorRef Rgb(uint32_t rgb) { return ink::MakeColor(rgb >> 16, rgb >> 8 & 0xFF, rgb & 0xFF); }

// Greys, clear pen colours, the same deep and dark for long writing, then highlighters and paper tints.
constexpr uint32_t kGrid[] = {
    0x000000, 0x404040, 0x606060, 0x808080, 0xA0A0A0, 0xC0C0C0, 0xE0E0E0, 0xFFFFFF,  //
    0xFF4040, 0xFF9020, 0xFFD800, 0x40FF40, 0x20C0B0, 0x40A0FF, 0x4040FF, 0xFF40FF,  //
    0xC00000, 0xC05800, 0xA08000, 0x008000, 0x007878, 0x0060B0, 0x0000C0, 0x900090,  //
    0x700000, 0x703000, 0x585000, 0x004800, 0x004848, 0x003868, 0x000070, 0x500050,  //
    0xFFA0A0, 0xFFC890, 0xFFF090, 0xB0F0A0, 0xA0E8E0, 0xA8D4FF, 0xB0B0FF, 0xF0B0F0,  //
    0xFFF0F0, 0xFFF4E4, 0xFFFCE0, 0xF0FCE8, 0xE8FAF6, 0xEAF4FF, 0xF0F0FF, 0xFCF0FC,
};

}  // namespace

ColorPalette::ColorPalette(ColorRef current) : chosen_(current), pressed_(0) {
    for (const uint32_t rgb : kGrid) colors_.push_back(Rgb(rgb));
    if (std::find(colors_.begin(), colors_.end(), current) == colors_.end()) colors_.push_back(current);
    pressed_ = colors_.size();
}

bool ColorPalette::Choose(platform::Window& owner, ColorRef& color) {
    const platform::ScreenSize screen = platform::HandheldScreen(owner);
    const int width = kColumns * kCell + 2 * kMargin;
    const int height = Rows() * kCell + 2 * kMargin;
    // Above the tool bar's colour buttons, which are what calls it.
    const platform::Point corner{width, screen.height - platform::kBarHeight};
    if (RunModal(&owner, L"Color Palette", corner, width, height) != platform::kIdOk) return false;
    color = chosen_;
    return true;
}

bool ColorPalette::OnCreate() {
    picture_ = platform::Image::Make(ClientWidth(), ClientHeight(), PageScale());
    if (!picture_.IsValid()) return false;
    platform::Canvas(picture_).Fill({0, 0, ClientWidth(), ClientHeight()}, kFace);
    for (size_t i = 0; i < colors_.size(); ++i) DrawCell(i);
    return true;
}

void ColorPalette::OnPaint() { ShowAt(picture_, {0, 0}); }

void ColorPalette::OnPenDown(platform::Point place) { pressed_ = CellAt(place); }

// A pen that slid off the cell it touched changes nothing, so a touch can be taken back.
void ColorPalette::OnPenUp(platform::Point place) {
    const size_t cell = CellAt(place);
    if (cell >= colors_.size() || cell != pressed_) return;
    chosen_ = colors_[cell];
    EndModal(platform::kIdOk);
}

int ColorPalette::Rows() const { return (static_cast<int>(colors_.size()) + kColumns - 1) / kColumns; }

Rect ColorPalette::CellRect(size_t index) const {
    const int left = kMargin + static_cast<int>(index) % kColumns * kCell;
    const int top = kMargin + static_cast<int>(index) / kColumns * kCell;
    return {left, top, left + kCell, top + kCell};
}

size_t ColorPalette::CellAt(platform::Point place) const {
    for (size_t i = 0; i < colors_.size(); ++i) {
        if (CellRect(i).Contains(place)) return i;
    }
    return colors_.size();
}

void ColorPalette::DrawCell(size_t index) {
    platform::Canvas canvas(picture_);
    const Rect cell = CellRect(index);
    const bool isCurrent = colors_[index] == chosen_;
    if (isCurrent) canvas.Fill(cell, kMark);
    if (isCurrent) canvas.Fill(Inflate(cell, -kInset, -kInset), kFace);
    const Rect color = Inflate(cell, isCurrent ? -2 * kInset : -kInset, isCurrent ? -2 * kInset : -kInset);
    canvas.Fill(color, kEdge);
    canvas.Fill(Inflate(color, -1, -1), colors_[index]);
}

}  // namespace options
