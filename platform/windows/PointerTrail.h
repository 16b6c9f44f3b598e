#pragma once

#include "platform/windows/PenHistory.h"
#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

// What the system knows of the pointer from the current message's position on (client pixels of `window`).
PointerTrail TrailOf(HWND window, ink::Point position);

// The desktop place of the window's client pixel (0, 0).
ink::Point ClientOrigin(HWND window);

}  // namespace platform::windows
