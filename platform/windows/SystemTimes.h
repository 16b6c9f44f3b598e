#pragma once

#include <cstdint>

#include "platform/DateTime.h"
#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

SYSTEMTIME SystemTimeOf(const DateTime& moment);
DateTime DateTimeOf(const SYSTEMTIME& moment);

// Local time as one number that grows with it, in units of 100 ns; 0 for no moment of the calendar.
int64_t LocalTicks(const DateTime& moment);

}  // namespace platform::windows
