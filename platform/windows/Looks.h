#pragma once

#include "platform/windows/SystemHeaders.h"

// Dark surroundings: where the user wants programs dark, frames and bars are; pages, panes and dialogs keep
// their colours.
namespace platform::windows {

bool WantsDark();
// The frame's own parts, as far as the system can (Windows 10 of 2020 and later).
void ColorFrame(HWND frame);

// Whether the message says that the system's colours may have changed.
bool TellsOfColors(UINT message, LPARAM lParam);

}  // namespace platform::windows
