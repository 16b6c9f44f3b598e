#pragma once

#include "platform/Notifications.h"

namespace platform::windows {

// Does what a due entry is for, and returns when that is done: its program is started, its notice dismissed.
// Only then does the entry leave the database, unless it was rewritten meanwhile. Nothing happens when the
// entry is not due, or another process is at it.
void FireEntry(NotificationHandle handle);

// True while some process is at it.
bool IsBeingFired(NotificationHandle handle);

}  // namespace platform::windows
