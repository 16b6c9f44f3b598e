#pragma once

#include "platform/Window.h"
#include "platform/windows/SystemHeaders.h"

// Where the handheld's screen lies on the desktop. Its top kBarHeight rows, the navigation bar, are played
// by the caption of a Screen's frame, so the page's top left is (0, kBarHeight) of the handheld.
namespace platform::windows {

constexpr wchar_t kScreenClass[] = L"InkwrightScreen";

// The frame of the Screen that `window` is or that owns it, directly or through other windows; null without
// one.
HWND ScreenBelow(HWND window);

// Between the handheld's screen, in page pixels, and the desktop. It is that of the Screen which owns
// `window`, directly or through other windows; without one, it lies where the first Screen would open.
Rect ToHandheld(HWND window, const RECT& desktop);
RECT ToDesktop(HWND window, const Rect& handheld);

// The rectangle moved on to the work area of the monitor that `window`, or else what owns it, lies on mostly.
// One that is larger keeps its top left there.
RECT OntoMonitor(HWND window, const RECT& desktop);

// Top left for a frame of this size in the middle of the desktop's work area, never above or left of it.
POINT CentredPlace(SIZE frame);

}  // namespace platform::windows
