#include "platform/windows/PressAndHold.h"

#include <cstdlib>

namespace platform::windows {

namespace {

// Longer than a slow double click's half, shorter than a person's patience; a system setting that makes
// double clicks slower makes this slower too.
constexpr UINT kShortestHold = 600;

UINT HoldMilliseconds() {
    return GetDoubleClickTime() > kShortestHold ? GetDoubleClickTime() : kShortestHold;
}

bool HasMoved(POINT start) {
    POINT now{};
    if (!GetCursorPos(&now)) return true;
    return std::abs(now.x - start.x) > GetSystemMetrics(SM_CXDRAG) ||
           std::abs(now.y - start.y) > GetSystemMetrics(SM_CYDRAG);
}

bool ButtonWaits() {
    MSG message;
    return PeekMessageW(&message, nullptr, WM_LBUTTONUP, WM_MBUTTONDBLCLK, PM_NOREMOVE) != FALSE;
}

// Handles what waits apart from buttons. False when the program is to end.
bool HandleOthers() {
    MSG message;
    while (!ButtonWaits() && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

PressKind Watch(HWND window, POINT start) {
    const ULONGLONG end = GetTickCount64() + HoldMilliseconds();
    for (;;) {
        if (!HandleOthers() || !IsWindow(window) || GetCapture() != window) return PressKind::Tap;
        if (ButtonWaits() || HasMoved(start)) return PressKind::Tap;
        const ULONGLONG now = GetTickCount64();
        if (now >= end) return PressKind::Hold;
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(end - now), QS_ALLINPUT,
                                    MWMO_INPUTAVAILABLE);
    }
}

}  // namespace

PressKind WatchPress(HWND window, POINT place) {
    ClientToScreen(window, &place);
    SetCapture(window);
    const PressKind kind = Watch(window, place);
    if (GetCapture() == window) ReleaseCapture();
    return kind;
}

}  // namespace platform::windows
