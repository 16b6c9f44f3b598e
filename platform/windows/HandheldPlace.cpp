#include "platform/windows/HandheldPlace.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "platform/Screen.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/SystemText.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

namespace {

constexpr ScreenSize kUsualScreen{480, 640};
constexpr long kShortestSide = 160;
constexpr long kLongestSide = 4096;

}  // namespace

ScreenSize HandheldScreen() {
    const std::wstring text = windows::EnvironmentText(L"INKWRIGHT_SCREEN");
    wchar_t* end = nullptr;
    const long width = std::wcstol(text.c_str(), &end, 10);
    if (*end != L'x' && *end != L'X') return kUsualScreen;
    const long height = std::wcstol(end + 1, &end, 10);
    const bool fits =
        *end == L'\0' && std::min(width, height) >= kShortestSide && std::max(width, height) <= kLongestSide;
    return fits ? ScreenSize{static_cast<int>(width), static_cast<int>(height)} : kUsualScreen;
}

ScreenSize HandheldScreen(const Window& window) {
    const HWND screen = windows::ScreenBelow(windows::FrameOf(&window));
    RECT client{};
    if (windows::HasFixedScreen() || !screen || !GetClientRect(screen, &client)) return HandheldScreen();
    const ink::Scale scale = windows::ScaleAt(screen);
    return {windows::WholePagePixels(client.right, scale),
            windows::WholePagePixels(client.bottom, scale) + kBarHeight};
}

namespace windows {

HWND ScreenBelow(HWND window) {
    while (window && !IsOfClass(window, kScreenClass)) window = GetWindow(window, GW_OWNER);
    return window;
}

namespace {

// Desktop position of the page's top left, for `window` as in ToHandheld.
POINT PageOrigin(HWND screen) {
    POINT origin{0, 0};
    if (screen) {
        ClientToScreen(screen, &origin);
        return origin;
    }
    const ScreenSize handheld = HandheldScreen();
    const RECT place = ToDesktop(Rect{0, 0, handheld.width, handheld.height}, ScaleAt(nullptr));
    const RECT bar = ToDesktop(Rect{0, 0, 0, kBarHeight}, ScaleAt(nullptr));
    const POINT corner = CentredPlace({place.right, place.bottom});
    return {corner.x, corner.y + bar.bottom};
}

}  // namespace

Rect ToHandheld(HWND window, const RECT& desktop) {
    const HWND screen = ScreenBelow(window);
    const POINT origin = PageOrigin(screen);
    RECT inPage = desktop;
    OffsetRect(&inPage, -origin.x, -origin.y);
    return Offset(ToPage(inPage, ScaleAt(screen)), 0, kBarHeight);
}

RECT ToDesktop(HWND window, const Rect& handheld) {
    const HWND screen = ScreenBelow(window);
    const POINT origin = PageOrigin(screen);
    RECT desktop = ToDesktop(Offset(handheld, 0, -kBarHeight), ScaleAt(screen));
    OffsetRect(&desktop, origin.x, origin.y);
    return desktop;
}

RECT OntoMonitor(HWND window, const RECT& desktop) {
    const HWND owner = window ? GetWindow(window, GW_OWNER) : nullptr;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (!GetMonitorInfoW(MonitorFromWindow(owner ? owner : window, MONITOR_DEFAULTTOPRIMARY), &monitor))
        return desktop;
    const RECT& work = monitor.rcWork;
    const Rect place = ink::MovedInto({desktop.left, desktop.top, desktop.right, desktop.bottom},
                                      {work.left, work.top, work.right, work.bottom});
    return {place.left, place.top, place.right, place.bottom};
}

POINT CentredPlace(SIZE frame) {
    RECT area{};
    if (!SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0)) {
        area = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    }
    return {std::max(area.left, (area.left + area.right - frame.cx) / 2),
            std::max(area.top, (area.top + area.bottom - frame.cy) / 2)};
}

}  // namespace windows

}  // namespace platform
