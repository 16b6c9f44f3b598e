#include "platform/windows/SizedFrame.h"

#include <algorithm>

#include "platform/Product.h"
#include "platform/RegistryKey.h"
#include "platform/windows/HandheldPlace.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/SystemText.h"

namespace platform::windows {

namespace {

constexpr size_t kLongestPlace = 64;  // characters
constexpr ScreenSize kLeastPage{240, 268};

Rect RectOf(const RECT& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

RegistryKey PlacesKey() { return RegistryKey::OpenUser(std::wstring(kCompanyKey) + L"\\" + kProductName); }

std::wstring ValueName(const std::wstring& kind) { return L"Window." + kind; }

BOOL CALLBACK AddWorkArea(HMONITOR handle, HDC, LPRECT, LPARAM list) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoW(handle, &monitor))
        reinterpret_cast<std::vector<Rect>*>(list)->push_back(RectOf(monitor.rcWork));
    return TRUE;
}

std::vector<Rect> WorkAreas() {
    std::vector<Rect> areas;
    EnumDisplayMonitors(nullptr, nullptr, AddWorkArea, reinterpret_cast<LPARAM>(&areas));
    // A session that nobody looks at may have none.
    if (areas.empty()) areas.push_back({0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)});
    return areas;
}

Rect UsualFrame() {
    const ScreenSize screen = HandheldScreen();
    const SIZE size =
        FrameAroundPage({screen.width, screen.height - 2 * kBarHeight}, kSizedFrameStyle, nullptr);
    const POINT place = CentredPlace(size);
    return {place.x, place.y, place.x + size.cx, place.y + size.cy};
}

}  // namespace

bool HasFixedScreen() { return !EnvironmentText(L"INKWRIGHT_SCREEN").empty(); }

SIZE FrameAroundPage(ScreenSize page, DWORD style, HWND like) {
    const ink::Scale scale = ScaleAt(like);
    const RECT client = ToDesktop(Rect{0, 0, page.width, page.height}, scale);
    const RECT bar = ToDesktop(Rect{0, 0, 0, kBarHeight}, scale);
    return FrameAround({client.right, client.bottom + bar.bottom}, style, DotsAt(like));
}

SIZE LeastFrame(HWND like) { return FrameAroundPage(kLeastPage, kSizedFrameStyle, like); }

WindowPlace SizedFrame::PlaceToOpen(const SizedFrame* below) {
    std::wstring text;
    const bool isKept =
        !kind_.empty() && PlacesKey().QueryText(ValueName(kind_).c_str(), kLongestPlace, text);
    const std::optional<WindowPlace> kept = isKept ? ReadWindowPlace(text) : std::nullopt;
    place_ = kept ? *kept : below ? below->place_ : WindowPlace{UsualFrame(), false};
    const SIZE least = LeastFrame(nullptr);
    place_.frame = OntoMonitors(place_.frame, WorkAreas(), {0, 0, least.cx, least.cy});
    return place_;
}

// The other states have places of their own, which tell nothing of this one.
void SizedFrame::Follow(HWND frame) {
    if (isFullScreen_ || IsIconic(frame) || !IsWindowVisible(frame)) return;
    place_.isMaximised = IsZoomed(frame) != FALSE;
    RECT now{};
    if (!place_.isMaximised && GetWindowRect(frame, &now)) place_.frame = RectOf(now);
}

void SizedFrame::Remember() const {
    if (!kind_.empty())
        PlacesKey().SetText(ValueName(kind_).c_str(), RegistryType::Text, TextOfPlace(place_));
}

// The place before is known, so a maximised frame is maximised again after it.
void SizedFrame::ToggleFullScreen(HWND frame) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (!GetMonitorInfoW(MonitorFromWindow(frame, MONITOR_DEFAULTTONEAREST), &monitor)) return;
    const bool isMaximised = place_.isMaximised;
    isFullScreen_ = !isFullScreen_;
    constexpr LONG_PTR kDecoration =
        WS_CAPTION | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_MAXIMIZE;
    const LONG_PTR style = GetWindowLongPtrW(frame, GWL_STYLE);
    const LONG_PTR plain = style & ~kDecoration;
    const LONG_PTR decorated = plain | (kDecoration & ~LONG_PTR{WS_MAXIMIZE});
    SetWindowLongPtrW(frame, GWL_STYLE, isFullScreen_ ? plain : decorated);
    const Rect place = isFullScreen_ ? RectOf(monitor.rcMonitor) : place_.frame;
    SetWindowPos(frame, nullptr, place.left, place.top, place.Width(), place.Height(),
                 SWP_NOZORDER | SWP_NOOWNERZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    if (!isFullScreen_ && isMaximised) ShowWindow(frame, SW_MAXIMIZE);
}

}  // namespace platform::windows
