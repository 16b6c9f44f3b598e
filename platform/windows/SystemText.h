#pragma once

#include <string>

#include "platform/windows/SystemHeaders.h"

// What the system tells as text, and what it packs into a message.
namespace platform::windows {

// A variable of this process' environment; empty when there is none.
std::wstring EnvironmentText(const wchar_t* name);

// Whether a window is of this class; names are compared without regard to case. False for no window.
bool IsOfClass(HWND window, const wchar_t* className);

// The point that a message carries: 16 bits each, negative left of or above the window.
inline POINT PointIn(LPARAM lParam) {
    return {static_cast<int16_t>(LOWORD(lParam)), static_cast<int16_t>(HIWORD(lParam))};
}

}  // namespace platform::windows
