#pragma once

#include "platform/Notifications.h"

namespace platform::qt {

// Does what a due entry is for, and returns when that is done: its program is started, its notice dismissed.
// Only then does the entry leave the database, unless it was rewritten meanwhile. Nothing happens when the
// entry is not due, or another process is at it.
void FireEntry(NotificationHandle handle);

}  // namespace platform::qt
