// Real input, as a pen, a mouse and a keyboard would give it, and the way to an entry of a menu.
#pragma once

#include <string>
#include <vector>

#include "platform/windows/SystemHeaders.h"

namespace contract {

inline void SendMouse(POINT desktop, DWORD flags, DWORD data = 0) {
    // 16 bits of a side of the desktop, so that the system's own rounding comes out at the same pixel.
    const auto absolute = [](LONG place, int metric) {
        const LONG side = GetSystemMetrics(metric);
        return static_cast<DWORD>((place * 65536 + side - 1) / side);
    };
    mouse_event(MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags, absolute(desktop.x, SM_CXSCREEN),
                absolute(desktop.y, SM_CYSCREEN), data, 0);
}

inline void Click(POINT desktop) {
    SendMouse(desktop, MOUSEEVENTF_LEFTDOWN);
    SendMouse(desktop, MOUSEEVENTF_LEFTUP);
}

inline void SendKey(WORD code) {
    keybd_event(static_cast<BYTE>(code), 0, 0, 0);
    keybd_event(static_cast<BYTE>(code), 0, KEYEVENTF_KEYUP, 0);
}

// The middle of a rectangle of the window's client area, as a place of the desktop.
inline POINT MiddleOf(HWND window, const RECT& area) {
    POINT middle{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    ClientToScreen(window, &middle);
    return middle;
}

inline POINT MiddleOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

// Adds the keys that lead from the first entry of the menu to the one with this text. False when it is not in
// there or greyed.
inline bool FindEntry(HMENU menu, const std::wstring& wanted, std::vector<WORD>& keys) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t shown[64] = L"";
        GetMenuStringW(menu, static_cast<UINT>(i), shown, 64, MF_BYPOSITION);
        std::wstring text = shown;
        for (size_t at = 0; (at = text.find(L"&&", at)) != std::wstring::npos; ++at) text.erase(at, 1);
        const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
        const HMENU submenu = GetSubMenu(menu, i);
        const size_t before = keys.size();
        keys.push_back(submenu ? VK_RIGHT : VK_RETURN);
        if (submenu ? FindEntry(submenu, wanted, keys) : text == wanted && (state & MF_GRAYED) == 0)
            return true;
        keys.resize(before);
        if (!text.empty()) keys.push_back(VK_DOWN);
    }
    return false;
}

}  // namespace contract
