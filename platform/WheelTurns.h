#pragma once

#include <cstdint>

#include "platform/Window.h"

namespace platform {

constexpr uint32_t kUsualWheelLines = 3;
constexpr uint32_t kWheelTurnsPages = 0xFFFFFFFF;  // what the system's setting says for a page each notch

// Scroll requests that a turn of the mouse wheel makes; `count` is how many, of either sign.
struct WheelSteps {
    ScrollCode code = ScrollCode::Other;
    int count = 0;
};

// `delta` is the turn in 120ths of a notch, up when positive; fine wheels send many small ones, so `rest`
// keeps what is not a whole step yet.
inline WheelSteps StepsOfTurn(int delta, uint32_t linesPerNotch, int& rest) {
    constexpr int kNotch = 120;
    constexpr uint32_t kMostLines = 100;  // of a setting that can be believed
    const bool byPage = linesPerNotch == kWheelTurnsPages;
    const auto lines = static_cast<int>(byPage ? 1 : linesPerNotch < kMostLines ? linesPerNotch : kMostLines);
    if ((delta < 0) != (rest < 0)) rest = 0;  // turned back
    rest += delta * lines;
    const int count = rest / kNotch;
    rest %= kNotch;
    if (delta > 0) return {byPage ? ScrollCode::PageUp : ScrollCode::LineUp, count};
    return {byPage ? ScrollCode::PageDown : ScrollCode::LineDown, count};
}

}  // namespace platform
