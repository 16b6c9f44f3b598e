// Real input, as a pen, a mouse and a keyboard would give it.
#pragma once

#include "platform/Window.h"
#include "platform/windows/SystemHeaders.h"

namespace contract {

void SendMouse(POINT desktop, DWORD flags);
void Click(POINT desktop);
// The middle of a rectangle of the window's client area, as a place of the desktop.
POINT MiddleOf(HWND window, const RECT& area);
void SendKey(WORD code);
void SendShortcut(WORD code);  // with Ctrl
void SendWheel(int turn);
WORD KeyCode(platform::Key key);

}  // namespace contract
