#pragma once

#include <cstdint>
#include <string>

namespace platform::windows {

// Whether fingers write as pens do: only on a machine that has nothing better, or where INKWRIGHT_FINGERS
// says "write". `digitizer` is SM_DIGITIZER's answer: 0x04 and 0x08 stand for pens of its own and plugged in.
inline bool FingersWrite(int digitizer, bool hasMouse, const std::wstring& option) {
    constexpr int kAnyPen = 0x04 | 0x08;
    return option == L"write" || (!hasMouse && (digitizer & kAnyPen) == 0);
}

// Whether the system made a mouse message of a touch: its extra information then carries a signature, and a
// bit that tells fingers from pens.
inline bool IsMadeOfTouch(uint32_t extra) {
    constexpr uint32_t kSignature = 0xFF515700;
    constexpr uint32_t kFinger = 0x80;
    return (extra & 0xFFFFFF00) == kSignature && (extra & kFinger) != 0;
}

}  // namespace platform::windows
