#pragma once

#include <string>

#include "platform/DateTime.h"

// An alarm stamp is the 15-character text "YYYYMMwDDhhmmss" that keeps a note's alarm moment; w is the day
// of week, 1 = Sunday to 7 = Saturday. A text of any other length means that no alarm is set.
namespace alarms {

constexpr size_t kAlarmStampLength = 15;

std::wstring MakeAlarmStamp(const platform::DateTime& moment);

// The moment of a stamp of the right length; its dayOfWeek is the stamp's digit as it stands (1 = Sunday).
// Parts that are no digits read as 0, so the moment may be none of the calendar.
bool ReadAlarmStamp(const std::wstring& stamp, platform::DateTime& moment);

}  // namespace alarms
