#include "platform/Notifications.h"

namespace platform {

// This system keeps no notification database yet, and says so: nothing can be set.
NotificationHandle SetNotification(NotificationHandle, const NotificationTrigger&, const UserNotification&) {
    return 0;
}

}  // namespace platform
