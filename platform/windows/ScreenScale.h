#pragma once

#include "ink/Geometry.h"
#include "ink/Scale.h"
#include "platform/windows/SystemHeaders.h"

// How many screen pixels a page pixel has, which is what the system says of the monitor that a window lies on
// unless INKWRIGHT_SCALE asks for another number.
namespace platform::windows {

// Dots per inch of the window's monitor; of null, those that the session began with on the main one.
UINT DotsAt(HWND window);
// Of a window of ours what it goes by, of any other one that of its monitor, or what is asked for.
ink::Scale ScaleAt(HWND window);
// What a window that is to go by `dots` now goes by.
ink::Scale ScaleFor(UINT dots);

// The size of a frame of this style, as thick as the system's are at `dots`, around a client area.
SIZE FrameAround(SIZE client, DWORD style, UINT dots);

RECT ToDesktop(const ink::Rect& page, ink::Scale scale);
ink::Rect ToPage(const RECT& desktop, ink::Scale scale);
ink::Point ToPage(POINT client, ink::Scale scale);
// How many page pixels so many screen pixels take, a last one that is only begun included.
int WholePagePixels(int screenPixels, ink::Scale scale);

}  // namespace platform::windows
