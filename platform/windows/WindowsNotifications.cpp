// The handheld's notification database, kept in the registry; the alarm keeper beside the program fires it.
#include "platform/Notifications.h"
#include "platform/TextEncoding.h"
#include "platform/windows/HandheldPath.h"
#include "platform/windows/KeeperControl.h"
#include "platform/windows/NotificationStore.h"
#include "platform/windows/SystemText.h"

namespace platform {

using windows::NotificationStore;

namespace {

// Each device has a database of its own; so has the machine itself.
bool IsOfDevice(const NotificationEntry& entry, const std::wstring& device) {
    if (entry.device.empty() || device.empty()) return entry.device.empty() && device.empty();
    return EqualNoCase(windows::FullPath(entry.device), device);
}

}  // namespace

NotificationHandle SetNotification(NotificationHandle existing, const NotificationTrigger& trigger,
                                   const UserNotification& notification) {
    if (!IsValidMoment(trigger.start)) return 0;
    NotificationHandle handle = 0;
    {
        NotificationStore store;
        if (!store.IsOpen()) return 0;
        const NotificationEntry entry{trigger, notification, windows::DeviceFolder(),
                                      windows::EnvironmentText(L"INKWRIGHT_SCREEN")};
        handle = store.Write(existing, entry);
    }
    if (handle == 0) return 0;
    windows::AnnounceDatabaseChange();
    if (windows::EnsureKeeper()) return handle;
    // Nobody would fire it.
    if (existing == 0) ClearNotification(handle);
    return 0;
}

bool ListNotifications(std::vector<NotificationHandle>& handles) {
    handles.clear();
    const NotificationStore store;
    if (!store.IsOpen()) return false;
    const std::wstring device = windows::DeviceFolder();
    for (const NotificationHandle handle : store.Handles()) {
        NotificationEntry entry;
        if (store.Read(handle, entry) && IsOfDevice(entry, device)) handles.push_back(handle);
    }
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
