#include "platform/Notifications.h"

namespace platform {

// This system keeps no notification database yet, and says so: nothing can be set, and there is nothing.
NotificationHandle SetNotification(NotificationHandle, const NotificationTrigger&, const UserNotification&) {
    return 0;
}

bool ListNotifications(std::vector<NotificationHandle>& handles) {
    handles.clear();
    return true;
}

bool ReadNotification(NotificationHandle, NotificationTrigger&, UserNotification&) { return false; }

bool ClearNotification(NotificationHandle) { return false; }

}  // namespace platform
