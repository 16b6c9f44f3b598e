#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/DateTime.h"

// The operating system's database of timed notifications.
namespace platform {

using NotificationHandle = uint32_t;  // 0 = none

struct NotificationTrigger {
    std::wstring application;  // empty: no program is started
    std::wstring arguments;
    DateTime start;  // local time
    DateTime end;
};

struct UserNotification {
    bool flashLed = false;
    bool showDialog = false;
    std::wstring dialogTitle;
    std::wstring dialogText;
};

// Adds a notification, or replaces `existing` in place when it is not 0. 0 when nothing will fire it: its
// moment is impossible, the one to be replaced is there no longer, it can't be kept, or what fires
// notifications can't be started (a replacement is kept even so).
NotificationHandle SetNotification(NotificationHandle existing, const NotificationTrigger& trigger,
                                   const UserNotification& notification);

// Handles of all notifications of all programs on this device. False when the database can't be read.
bool ListNotifications(std::vector<NotificationHandle>& handles);

// One entry. False when it is gone or can't be read.
bool ReadNotification(NotificationHandle handle, NotificationTrigger& trigger,
                      UserNotification& notification);

bool ClearNotification(NotificationHandle handle);

}  // namespace platform
