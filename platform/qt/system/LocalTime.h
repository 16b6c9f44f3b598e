#pragma once

#include <cstdint>
#include <ctime>

#include "platform/DateTime.h"

namespace platform::qt {

// A moment as the clocks of this place showed it, or will, with the daylight saving of that day.
DateTime LocalTime(const timespec& moment);

// Seconds since 1970 of a local time; where clocks that are set make it fall twice or not at all, about then.
// False for no moment of the calendar.
bool UniversalSeconds(const DateTime& local, time_t& seconds);

// Local time as one number that grows with it, in milliseconds; for moments of the calendar.
int64_t LocalTicks(const DateTime& moment);

}  // namespace platform::qt
