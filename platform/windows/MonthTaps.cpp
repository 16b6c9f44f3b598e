#include "platform/windows/MonthTaps.h"

#include <cstdlib>
#include <cwchar>
#include <iterator>
#include <memory>
#include <new>

#include "platform/Window.h"
#include "platform/windows/SystemText.h"

namespace platform::windows {

namespace {

constexpr UINT_PTR kSubclass = 1;

// Not every version of the control asks the system for double clicks, so presses are counted here.
struct Taps {
    LONG lastTime = 0;
    POINT lastPlace{-1000, -1000};
    bool isSecond = false;
};

bool IsNear(POINT a, POINT b) {
    return std::abs(a.x - b.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
           std::abs(a.y - b.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
}

bool IsOnDay(HWND calendar, POINT place) {
    MCHITTESTINFO hit{};
    hit.cbSize = MCHITTESTINFO_V1_SIZE;
    hit.pt = place;
    return (SendMessageW(calendar, MCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)) & MCHT_CALENDARDATE) ==
           MCHT_CALENDARDATE;
}

void Press(Taps& taps, POINT place) {
    const LONG now = GetMessageTime();
    const auto passed = static_cast<DWORD>(now - taps.lastTime);
    taps.isSecond = !taps.isSecond && passed <= GetDoubleClickTime() && IsNear(place, taps.lastPlace);
    taps.lastTime = now;
    taps.lastPlace = place;
}

LRESULT CALLBACK CalendarProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                   DWORD_PTR reference) {
    auto* taps = reinterpret_cast<Taps*>(reference);
    const POINT place = PointIn(lParam);
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) Press(*taps, place);
    // Only when the pen is up: it must not be lifted over whatever lies below the dialog.
    if (message == WM_LBUTTONUP && taps->isSecond && IsOnDay(handle, place))
        PostMessageW(GetParent(handle), WM_COMMAND, kIdOk, 0);
    const LRESULT result = DefSubclassProc(handle, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(handle, CalendarProcedure, kSubclass);
        const std::unique_ptr<Taps> gone(taps);
    }
    return result;
}

BOOL CALLBACK WatchControl(HWND control, LPARAM) {
    if (!IsMonthCalendar(control)) return TRUE;
    std::unique_ptr<Taps> taps(new (std::nothrow) Taps);
    const auto reference = reinterpret_cast<DWORD_PTR>(taps.get());
    if (taps && SetWindowSubclass(control, CalendarProcedure, kSubclass, reference))
        static_cast<void>(taps.release());  // freed with the control
    return TRUE;
}

}  // namespace

bool IsMonthCalendar(HWND control) { return IsOfClass(control, MONTHCAL_CLASSW); }

void WatchMonthTaps(HWND dialog) { EnumChildWindows(dialog, WatchControl, 0); }

}  // namespace platform::windows
