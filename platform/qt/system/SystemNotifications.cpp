// The handheld's notification database, kept in a file; the alarm keeper beside the program fires it.
#include "platform/Notifications.h"
#include "platform/qt/system/DiskText.h"
#include "platform/qt/system/HandheldPath.h"
#include "platform/qt/system/KeeperControl.h"
#include "platform/qt/system/NotificationStore.h"
#include "platform/qt/system/UserFolders.h"

namespace platform {

using qt::NotificationStore;

namespace {

// Each device has a database of its own; so has the machine itself.
std::wstring ThisDevice() { return qt::TextFromDisk(qt::DeviceFolder()); }

}  // namespace

NotificationHandle SetNotification(NotificationHandle existing, const NotificationTrigger& trigger,
                                   const UserNotification& notification) {
    if (!IsValidMoment(trigger.start)) return 0;
    const std::wstring screen = qt::TextFromDisk(qt::Environment("INKWRIGHT_SCREEN"));
    const NotificationHandle handle =
        NotificationStore().Write(existing, {trigger, notification, ThisDevice(), screen});
    if (handle == 0 || qt::EnsureKeeper()) return handle;
    // Nobody would fire it.
    if (existing == 0) ClearNotification(handle);
    return 0;
}

bool ListNotifications(std::vector<NotificationHandle>& handles) {
    handles.clear();
    NotificationStore store;
    std::vector<NotificationHandle> all;
    if (!store.Handles(all)) return false;
    for (const NotificationHandle handle : all) {
        NotificationEntry entry;
        if (store.Read(handle, entry) && entry.device == ThisDevice()) handles.push_back(handle);
    }
    return true;
}

bool ReadNotification(NotificationHandle handle, NotificationTrigger& trigger,
                      UserNotification& notification) {
    NotificationEntry entry;
    if (!NotificationStore().Read(handle, entry)) return false;
    trigger = entry.trigger;
    notification = entry.notification;
    return true;
}

bool ClearNotification(NotificationHandle handle) { return NotificationStore().Erase(handle); }

}  // namespace platform
