#include "platform/windows/KeeperControl.h"

#include <string>

#include "platform/windows/Processes.h"

namespace platform::windows {

namespace {

constexpr wchar_t kRoleName[] = L"Local\\InkwrightAlarmKeeper";
constexpr wchar_t kProgram[] = L"inkalarms.exe";
constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t kRunValue[] = L"InkwrightAlarms";
constexpr ULONGLONG kPatienceMilliseconds = 10000;
constexpr DWORD kPauseMilliseconds = 20;
constexpr DWORD kRoleMilliseconds = 500;  // others take the role for an instant to see whether it is free

bool Acquire(HANDLE mutex, DWORD milliseconds) {
    const DWORD waited = WaitForSingleObject(mutex, milliseconds);
    return waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
}

bool KeeperRuns() {
    const OwnedHandle mutex(OpenMutexW(SYNCHRONIZE, FALSE, kRoleName));
    if (!mutex) return false;
    const bool isFree = Acquire(mutex.get(), 0);
    if (isFree) ReleaseMutex(mutex.get());
    return !isFree;
}

void StartWithSessions(const std::wstring& command, bool replace) {
    DWORD size = 0;
    const LSTATUS found =
        RegGetValueW(HKEY_CURRENT_USER, kRunKey, kRunValue, RRF_RT_ANY, nullptr, nullptr, &size);
    if (found == ERROR_SUCCESS && !replace) return;
    RegSetKeyValueW(HKEY_CURRENT_USER, kRunKey, kRunValue, REG_SZ, command.c_str(),
                    static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t)));
}

bool WaitForKeeper(HANDLE process) {
    const ULONGLONG start = GetTickCount64();
    bool hasEnded = false;
    while (!hasEnded && GetTickCount64() - start < kPatienceMilliseconds) {
        if (KeeperRuns()) return true;
        hasEnded = WaitForSingleObject(process, kPauseMilliseconds) == WAIT_OBJECT_0;
    }
    return KeeperRuns();  // it ends when another one was faster
}

}  // namespace

bool EnsureKeeper() {
    const std::wstring program = PathBesideProgram(kProgram);
    const std::wstring command = L"\"" + program + L"\"";
    if (KeeperRuns()) {
        StartWithSessions(command, false);
        return true;
    }
    OwnedHandle process;
    if (!StartProcess({program, command, SystemFolder(), DETACHED_PROCESS}, &process)) return false;
    if (!WaitForKeeper(process.get())) return false;
    StartWithSessions(command, true);
    return true;
}

bool StopKeeper() {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kRunKey, kRunValue);
    const ULONGLONG start = GetTickCount64();
    while (KeeperRuns() && GetTickCount64() - start < kPatienceMilliseconds) {
        DWORD id = 0;
        const HWND window = FindWindowW(kKeeperWindowClass, nullptr);
        if (window) GetWindowThreadProcessId(window, &id);
        const OwnedHandle process(id != 0 ? OpenProcess(SYNCHRONIZE, FALSE, id) : nullptr);
        if (window) PostMessageW(window, WM_CLOSE, 0, 0);
        if (!process || WaitForSingleObject(process.get(), kPatienceMilliseconds) != WAIT_OBJECT_0)
            Sleep(kPauseMilliseconds);
    }
    return !KeeperRuns();
}

KeeperRole::KeeperRole() : mutex_(CreateMutexW(nullptr, FALSE, kRoleName)) {
    held_ = mutex_ && Acquire(mutex_.get(), kRoleMilliseconds);
}

KeeperRole::~KeeperRole() {
    if (held_) ReleaseMutex(mutex_.get());
}

}  // namespace platform::windows
