#pragma once

#include <memory>
#include <new>
#include <vector>

#include "platform/Guarded.h"
#include "platform/MessageBox.h"
#include "platform/Window.h"
#include "platform/windows/PenHistory.h"
#include "platform/windows/PointerInput.h"
#include "platform/windows/SizedFrame.h"
#include "platform/windows/SystemHeaders.h"

namespace platform {

// What stands behind a window object. All members are null or false while the window does not exist.
struct Window::Impl {
    HWND frame = nullptr;  // the top-level window
    HWND page = nullptr;   // the window that is painted and written on: the frame itself, or a Screen's child
    HDC paintDc = nullptr;   // while OnPaint runs
    ink::Scale scale;        // of what it shows
    HWND control = nullptr;  // a child of the page that has the keyboard whenever the frame is active
    bool hasScrollBar = false;
    std::vector<int> frameCommands;  // that the program has put into the frame's own menu
    int wheelRest = 0;               // of turns that are not a whole notch yet
    bool holdsPen = false;
    bool holdsPointer = false;     // a pop-up keeps the capture even when its own handlers release the pen
    bool fillingControls = false;  // changes that the program makes are no news to it
    bool focusPlaced = false;
    bool placed = false;
    bool running = false;    // inside its modal run
    bool hasMenu = false;    // a pop-up menu is open over it
    bool takenOver = false;  // another copy takes this one's place: ends, and so does the window below
    bool ended = false;
    int result = -1;

    bool HasPenContact() const { return pointers && pointers->HasContact(); }

    windows::PenHistory pen;
    std::unique_ptr<windows::PointerInput> pointers;  // of a page that is written on
    std::unique_ptr<windows::SizedFrame> sizing;      // of a frame that can be sized
    SIZE clientSize{};                                // of a Screen's page, as last told to it
    ink::Scale shownScale;                            // likewise
};

namespace windows {

// The window object behind a window handle of ours; null before its creation and after its end.
Window* WindowOf(HWND handle);
void Attach(HWND handle, Window* window);

// The top-level window of `window`, null when there is none.
HWND FrameOf(const Window* window);

// Gives an event that any kind of window may get to its handler. True when it was handled for good.
bool DispatchEvent(Window& window, HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

// Tells the window that another copy takes this one's place, unless it has ended or something else is open
// over it: that is asked first.
void TakeOver(Window& window);

Key KeyOf(WPARAM virtualKey);

// Gives Ctrl and a letter to the window before the control with the keyboard sees it. True when it was taken.
bool TakeShortcut(Window& window, const MSG& message);

// Registers a window class of the program if that was not done yet.
bool RegisterWindowClass(const wchar_t* name, WNDPROC procedure, UINT style, HBRUSH background);

HINSTANCE Module();

// The id that every program here gives its own icon.
constexpr int kProgramIcon = 128;

}  // namespace windows

}  // namespace platform
