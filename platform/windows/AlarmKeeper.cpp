// inkalarms.exe: the small resident program that fires the notification database's entries. It sleeps until
// the next entry is due or the database or the clock changes.
//
// A due entry is fired by a second run of this program ("/fire HANDLE"), which takes the entry out of the
// database before it acts. So whoever ends the resident program at any moment makes nothing fire twice and
// nothing get lost.
#include <cwchar>
#include <iterator>
#include <string>

#include "platform/Clock.h"
#include "platform/Shell.h"
#include "platform/windows/NoticeWindow.h"
#include "platform/windows/NotificationStore.h"
#include "platform/windows/Processes.h"
#include "platform/windows/SystemTimes.h"

namespace {

using platform::DateTime;
using platform::NotificationHandle;
using platform::windows::NotificationEntry;
using platform::windows::NotificationStore;
using platform::windows::OwnedHandle;

constexpr wchar_t kFireSwitch[] = L"/fire ";
constexpr LONGLONG kAskAgainTicks = 10000000;  // a second, in units of 100 ns

// Local time as one number that grows with it.
int64_t LocalTicks(const DateTime& moment) {
    SYSTEMTIME system = platform::windows::SystemTimeOf(moment);
    FILETIME file{};
    if (!SystemTimeToFileTime(&system, &file)) return 0;
    return static_cast<int64_t>(static_cast<uint64_t>(file.dwHighDateTime) << 32 | file.dwLowDateTime);
}

// The same moment for a timer that follows the system's clock; from now on at the earliest. Where the rules
// of the time zone make a local time fall twice or not at all, the moment may have passed already while the
// entry is not due yet: the timer then asks again a little later.
bool TimerTicks(const DateTime& moment, LARGE_INTEGER& ticks) {
    SYSTEMTIME local = platform::windows::SystemTimeOf(moment);
    SYSTEMTIME universal{};
    FILETIME due{};
    FILETIME now{};
    if (!TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal)) return false;
    if (!SystemTimeToFileTime(&universal, &due)) return false;
    GetSystemTimeAsFileTime(&now);
    if (CompareFileTime(&due, &now) <= 0) {
        ticks.QuadPart = -kAskAgainTicks;
        return true;
    }
    ticks.HighPart = static_cast<LONG>(due.dwHighDateTime);
    ticks.LowPart = due.dwLowDateTime;
    return true;
}

void Start(const std::wstring& program, const std::wstring& arguments) {
    platform::windows::StartProcess(program, L"\"" + program + L"\" " + arguments);
}

void StartFiring(NotificationHandle handle) {
    Start(platform::ProgramPath(), kFireSwitch + std::to_wstring(handle));
}

// Takes the entry out of the database; false when another run has it already.
bool Claim(NotificationHandle handle, NotificationEntry& entry) {
    NotificationStore store;
    if (!store.IsOpen() || !store.Read(handle, entry)) return false;
    if (LocalTicks(entry.trigger.start) > LocalTicks(platform::LocalNow())) return false;
    return store.Erase(handle);
}

int Fire(NotificationHandle handle) {
    NotificationEntry entry;
    if (!Claim(handle, entry)) return 0;
    SetEnvironmentVariableW(L"INKWRIGHT_DEVICE", entry.device.empty() ? nullptr : entry.device.c_str());
    if (!entry.trigger.application.empty()) Start(entry.trigger.application, entry.trigger.arguments);
    if (entry.notification.showDialog) {
        platform::windows::ShowNotice(entry.notification.dialogTitle, entry.notification.dialogText);
    }
    return 0;
}

// Fires what is due and sets the timer for what comes next.
void LookAtDatabase(HANDLE timer) {
    const int64_t now = LocalTicks(platform::LocalNow());
    DateTime next;
    int64_t nextTicks = 0;
    {
        const NotificationStore store;
        if (!store.IsOpen()) return;
        for (const NotificationHandle handle : store.Handles()) {
            NotificationEntry entry;
            if (!store.Read(handle, entry)) continue;
            const int64_t start = LocalTicks(entry.trigger.start);
            if (start == 0) continue;
            if (start <= now) {
                StartFiring(handle);
            } else if (nextTicks == 0 || start < nextTicks) {
                next = entry.trigger.start;
                nextTicks = start;
            }
        }
    }
    LARGE_INTEGER due{};
    if (nextTicks != 0 && TimerTicks(next, due)) {
        SetWaitableTimer(timer, &due, 0, nullptr, nullptr, FALSE);
    } else {
        CancelWaitableTimer(timer);
    }
}

// A hidden top-level window hears of changes to the clock, which broadcasts reach only so.
LRESULT CALLBACK ClockProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_TIMECHANGE) platform::windows::AnnounceDatabaseChange();
    if (message == WM_ENDSESSION && wParam) PostQuitMessage(0);
    return DefWindowProcW(handle, message, wParam, lParam);
}

HWND ListenToClock() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = ClockProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"InkwrightAlarmKeeper";
    RegisterClassW(&windowClass);
    return CreateWindowExW(0, windowClass.lpszClassName, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                           windowClass.hInstance, nullptr);
}

// False when the session ends.
bool HandleMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return false;
        DispatchMessageW(&message);
    }
    return true;
}

int Keep() {
    const OwnedHandle only(CreateMutexW(nullptr, FALSE, platform::windows::kKeeperMutex));
    if (!only || GetLastError() == ERROR_ALREADY_EXISTS) return 0;
    const OwnedHandle changed(CreateEventW(nullptr, FALSE, FALSE, platform::windows::kDatabaseChangedEvent));
    const OwnedHandle timer(CreateWaitableTimerW(nullptr, FALSE, nullptr));
    if (!changed || !timer) return 1;
    ListenToClock();
    const HANDLE events[] = {changed.get(), timer.get()};
    do {
        LookAtDatabase(timer.get());
        MsgWaitForMultipleObjects(static_cast<DWORD>(std::size(events)), events, FALSE, INFINITE,
                                  QS_ALLINPUT);
    } while (HandleMessages());
    return 0;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const wchar_t* found = std::wcsstr(GetCommandLineW(), kFireSwitch);
    if (!found) return Keep();
    return Fire(static_cast<NotificationHandle>(std::wcstoul(found + std::wcslen(kFireSwitch), nullptr, 10)));
}
