#pragma once

#include <array>
#include <cstdint>

#include "ink/Color.h"
#include "ink/PenStyle.h"

namespace store {

// The pen and page colours that every new editor page starts with.
struct PenSettings {
    // Most recent first; the first is the current pen colour (`LastPenColor`, `PenColor_1` to `PenColor_4`).
    std::array<ink::ColorRef, 5> recentColors{};
    ink::ColorRef backgroundColor = 0;
    uint8_t penSize = 0;  // pen width in tenths of a pixel
    ink::PenStyle penStyle = ink::PenStyle::Simple;
};

PenSettings LoadPenSettings();

// Takes size and style of the pen anew, after the options sheet has stored them.
void LoadPen(PenSettings& settings);

// Writes the six colours; pen size and style belong to the options sheet.
void SaveColors(const PenSettings& settings);

}  // namespace store
