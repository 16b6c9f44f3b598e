#pragma once

#include "platform/DateTime.h"
#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

SYSTEMTIME SystemTimeOf(const DateTime& moment);
DateTime DateTimeOf(const SYSTEMTIME& moment);

}  // namespace platform::windows
