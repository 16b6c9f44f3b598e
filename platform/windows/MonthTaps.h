#pragma once

#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

bool IsMonthCalendar(HWND control);

// From now on a double tap on a day of one of the dialog's month calendars presses the dialog's OK.
void WatchMonthTaps(HWND dialog);

}  // namespace platform::windows
