#include "tests/contract/WindowsInput.h"

namespace contract {

namespace {

// 16 bits of a side of the desktop, so that the system's own rounding comes out at the same pixel.
LONG Absolute(LONG place, int metric) {
    const LONG side = GetSystemMetrics(metric);
    return (place * 65536 + side - 1) / side;
}

}  // namespace

void SendMouse(POINT desktop, DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = Absolute(desktop.x, SM_CXSCREEN);
    input.mi.dy = Absolute(desktop.y, SM_CYSCREEN);
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
    SendInput(1, &input, sizeof input);
}

void Click(POINT desktop) {
    SendMouse(desktop, MOUSEEVENTF_LEFTDOWN);
    SendMouse(desktop, MOUSEEVENTF_LEFTUP);
}

POINT MiddleOf(HWND window, const RECT& area) {
    POINT middle{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    ClientToScreen(window, &middle);
    return middle;
}

void SendKey(WORD code) {
    INPUT inputs[2]{};
    for (INPUT& input : inputs) {
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = code;
    }
    inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(2, inputs, sizeof(INPUT));
}

void SendShortcut(WORD code) {
    INPUT inputs[4]{};
    for (INPUT& input : inputs) input.type = INPUT_KEYBOARD;
    inputs[0].ki.wVk = inputs[3].ki.wVk = VK_CONTROL;
    inputs[1].ki.wVk = inputs[2].ki.wVk = code;
    inputs[2].ki.dwFlags = inputs[3].ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(4, inputs, sizeof(INPUT));
}

void SendWheel(int turn) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_WHEEL;
    input.mi.mouseData = static_cast<DWORD>(turn);
    SendInput(1, &input, sizeof input);
}

WORD KeyCode(platform::Key key) {
    constexpr WORD kCodes[] = {VK_LEFT, VK_UP,     VK_RIGHT,  VK_DOWN,   VK_PRIOR, VK_NEXT, VK_HOME,
                               VK_END,  VK_RETURN, VK_ESCAPE, VK_DELETE, VK_F2,    'Q'};
    return kCodes[static_cast<size_t>(key)];
}

}  // namespace contract
