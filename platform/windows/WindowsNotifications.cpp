// The handheld's notification database, kept in the registry; the alarm keeper beside the program fires it.
#include <cwchar>

#include "platform/Notifications.h"
#include "platform/Shell.h"
#include "platform/windows/NotificationStore.h"
#include "platform/windows/Processes.h"

namespace platform {

using windows::NotificationEntry;
using windows::NotificationStore;

namespace {

constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t kRunValue[] = L"InkwrightAlarms";

bool KeeperRuns() {
    const windows::OwnedHandle mutex(OpenMutexW(SYNCHRONIZE, FALSE, windows::kKeeperMutex));
    return mutex != nullptr;
}

// From now on it starts with the user's session as well.
void StartKeeper() {
    const std::wstring keeper = windows::PathBesideProgram(windows::kKeeperProgram);
    const std::wstring command = L"\"" + keeper + L"\"";
    RegSetKeyValueW(HKEY_CURRENT_USER, kRunKey, kRunValue, REG_SZ, command.c_str(),
                    static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t)));
    windows::StartProcess(keeper, command, DETACHED_PROCESS);
}

std::wstring DeviceFolder() {
    wchar_t folder[MAX_PATH] = L"";
    const DWORD length = GetEnvironmentVariableW(L"INKWRIGHT_DEVICE", folder, MAX_PATH);
    return length < MAX_PATH ? std::wstring(folder, length) : std::wstring();
}

}  // namespace

NotificationHandle SetNotification(NotificationHandle existing, const NotificationTrigger& trigger,
                                   const UserNotification& notification) {
    NotificationHandle handle = 0;
    if (!IsValidDate(trigger.start.year, trigger.start.month, trigger.start.day)) return 0;
    {
        NotificationStore store;
        if (!store.IsOpen()) return 0;
        handle = store.Write(existing, {trigger, notification, DeviceFolder()});
    }
    if (handle == 0) return 0;
    windows::AnnounceDatabaseChange();
    if (!KeeperRuns()) StartKeeper();
    return handle;
}

bool ListNotifications(std::vector<NotificationHandle>& handles) {
    handles.clear();
    const NotificationStore store;
    if (!store.IsOpen()) return false;
    handles = store.Handles();
    return true;
}

bool ReadNotification(NotificationHandle handle, NotificationTrigger& trigger,
                      UserNotification& notification) {
    const NotificationStore store;
    NotificationEntry entry;
    if (!store.IsOpen() || !store.Read(handle, entry)) return false;
    trigger = entry.trigger;
    notification = entry.notification;
    return true;
}

bool ClearNotification(NotificationHandle handle) {
    bool isCleared = false;
    {
        NotificationStore store;
        isCleared = store.IsOpen() && store.Erase(handle);
    }
    if (isCleared) windows::AnnounceDatabaseChange();
    return isCleared;
}

}  // namespace platform
