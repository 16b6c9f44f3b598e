// inkalarms.exe: the small resident program that fires the notification database's entries. It sleeps until
// the next entry is due or the database or the clock changes.
//
// A due entry is fired by a second run of this program ("/fire HANDLE"), which claims it while it acts and
// takes it out of the database afterwards. So whoever ends either at any moment makes nothing get lost.
// "/stop" ends the resident program.
#include <cwchar>
#include <iterator>
#include <memory>
#include <string>

#include "platform/AlarmSchedule.h"
#include "platform/Clock.h"
#include "platform/Shell.h"
#include "platform/keeper/AlarmFiring.h"
#include "platform/windows/KeeperControl.h"
#include "platform/windows/NotificationStore.h"
#include "platform/windows/Processes.h"
#include "platform/windows/SystemTimes.h"
#include "platform/windows/WindowImpl.h"

namespace {

using platform::AlarmSchedule;
using platform::DateTime;
using platform::NotificationEntry;
using platform::NotificationHandle;
using platform::ScheduledEntry;
using platform::windows::LocalTicks;
using platform::windows::NotificationStore;
using platform::windows::OwnedHandle;

constexpr wchar_t kFireSwitch[] = L"/fire";
constexpr wchar_t kStopSwitch[] = L"/stop";
constexpr LONGLONG kAskAgainTicks = 10000000;  // a second, in units of 100 ns

// The moment for a timer that follows the system's clock; from now on at the earliest. Where the rules of the
// time zone make a local time fall twice or not at all, the moment may have passed already while the entry is
// not due yet: the timer then asks again a little later.
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

void StartFiring(NotificationHandle handle) {
    const std::wstring program = platform::ProgramPath();
    const std::wstring command = L"\"" + program + L"\" " + kFireSwitch + L" " + std::to_wstring(handle);
    platform::windows::StartProcess({program, command, {}, 0});
}

// All entries that can be understood, and their moments. False when the database can't be read now.
bool ReadEntries(std::vector<ScheduledEntry>& entries, std::vector<DateTime>& moments) {
    const NotificationStore store;
    if (!store.IsOpen()) return false;
    for (const NotificationHandle handle : store.Handles()) {
        ScheduledEntry scheduled;
        NotificationEntry entry;
        scheduled.handle = handle;
        scheduled.bytes = store.Bytes(handle);
        if (!platform::DecodeEntry(scheduled.bytes, entry)) continue;
        scheduled.start = LocalTicks(entry.trigger.start);
        if (scheduled.start == 0) continue;
        entries.push_back(std::move(scheduled));
        moments.push_back(entry.trigger.start);
    }
    return true;
}

// Fires what is due and sets the timer for what comes next. Returns how long to sleep at most.
DWORD LookAtDatabase(AlarmSchedule& schedule, HANDLE timer) {
    std::vector<ScheduledEntry> entries;
    std::vector<DateTime> moments;
    if (!ReadEntries(entries, moments)) return AlarmSchedule::kRetryMilliseconds;
    for (ScheduledEntry& entry : entries) entry.isBeingFired = platform::windows::IsBeingFired(entry.handle);
    const AlarmSchedule::Plan plan =
        schedule.Make(entries, LocalTicks(platform::LocalNow()), GetTickCount64());
    for (const NotificationHandle handle : plan.fire) StartFiring(handle);
    LARGE_INTEGER due{};
    if (plan.next && TimerTicks(moments[*plan.next], due)) {
        SetWaitableTimer(timer, &due, 0, nullptr, nullptr, FALSE);
    } else {
        CancelWaitableTimer(timer);
    }
    return plan.lookAgain ? AlarmSchedule::kRetryMilliseconds : INFINITE;
}

// A hidden top-level window hears of changes to the clock, which broadcasts reach only so, and is asked to
// close by whoever ends this program.
LRESULT CALLBACK KeeperProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_TIMECHANGE) platform::windows::AnnounceDatabaseChange();
    if (message == WM_CLOSE || (message == WM_ENDSESSION && wParam)) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(handle, message, wParam, lParam);
}

HWND MakeWindow() {
    using platform::windows::kKeeperWindowClass;
    platform::windows::RegisterWindowClass(kKeeperWindowClass, KeeperProcedure, 0, nullptr);
    return CreateWindowExW(0, kKeeperWindowClass, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                           platform::windows::Module(), nullptr);
}

// False when this program is to end.
bool HandleMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return false;
        DispatchMessageW(&message);
    }
    return true;
}

int Keep() {
    const platform::windows::KeeperRole role;
    if (!role.IsHeld()) return 0;
    const OwnedHandle changed(CreateEventW(nullptr, FALSE, FALSE, platform::windows::kDatabaseChangedEvent));
    const OwnedHandle timer(CreateWaitableTimerW(nullptr, FALSE, nullptr));
    if (!changed || !timer || !MakeWindow()) return 1;
    const HANDLE events[] = {changed.get(), timer.get()};
    AlarmSchedule schedule;
    do {
        const DWORD patience = LookAtDatabase(schedule, timer.get());
        MsgWaitForMultipleObjects(static_cast<DWORD>(std::size(events)), events, FALSE, patience,
                                  QS_ALLINPUT);
    } while (HandleMessages());
    return 0;
}

// Nothing of what this program was started with is handed on, and no folder is kept busy.
void LeaveSurroundings() {
    SetEnvironmentVariableW(L"INKWRIGHT_DEVICE", nullptr);
    SetEnvironmentVariableW(L"INKWRIGHT_SCREEN", nullptr);
    SetCurrentDirectoryW(platform::windows::SystemFolder().c_str());
}

struct FreeLocal {
    void operator()(void* memory) const { LocalFree(memory); }
};

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    platform::windows::PrepareProcess();
    LeaveSurroundings();
    int count = 0;
    const std::unique_ptr<LPWSTR, FreeLocal> arguments(CommandLineToArgvW(GetCommandLineW(), &count));
    const std::wstring what = arguments && count > 1 ? arguments.get()[1] : L"";
    if (what == kStopSwitch) return platform::windows::StopKeeper() ? 0 : 1;
    if (what != kFireSwitch) return Keep();
    const wchar_t* handle = count > 2 ? arguments.get()[2] : L"";
    platform::windows::FireEntry(static_cast<NotificationHandle>(std::wcstoul(handle, nullptr, 10)));
    return 0;
}
