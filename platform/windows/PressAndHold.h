#pragma once

#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

// How a press of the pen or of the left button goes on.
enum class PressKind { Tap, Hold };

// Called while WM_LBUTTONDOWN is handled, `place` being its client position: waits until the pen is lifted or
// moved, or has been held still long enough to ask for a menu. The release stays in the queue; everything
// else goes on meanwhile, so the window may be gone afterwards.
PressKind WatchPress(HWND window, POINT place);

}  // namespace platform::windows
