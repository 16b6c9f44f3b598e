#include "platform/Clock.h"
#include "platform/windows/SystemTimes.h"

namespace platform {

namespace windows {

SYSTEMTIME SystemTimeOf(const DateTime& moment) {
    SYSTEMTIME system{};
    system.wYear = static_cast<WORD>(moment.year);
    system.wMonth = static_cast<WORD>(moment.month);
    system.wDayOfWeek = static_cast<WORD>(moment.dayOfWeek);
    system.wDay = static_cast<WORD>(moment.day);
    system.wHour = static_cast<WORD>(moment.hour);
    system.wMinute = static_cast<WORD>(moment.minute);
    system.wSecond = static_cast<WORD>(moment.second);
    system.wMilliseconds = static_cast<WORD>(moment.milliseconds);
    return system;
}

DateTime DateTimeOf(const SYSTEMTIME& moment) {
    return {moment.wYear, moment.wMonth,  moment.wDayOfWeek, moment.wDay,
            moment.wHour, moment.wMinute, moment.wSecond,    moment.wMilliseconds};
}

int64_t LocalTicks(const DateTime& moment) {
    const SYSTEMTIME system = SystemTimeOf(moment);
    FILETIME file{};
    if (!SystemTimeToFileTime(&system, &file)) return 0;
    return static_cast<int64_t>(static_cast<uint64_t>(file.dwHighDateTime) << 32 | file.dwLowDateTime);
}

}  // namespace windows

DateTime LocalNow() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return windows::DateTimeOf(now);
}

uint32_t TickMilliseconds() { return GetTickCount(); }

void Pause(uint32_t milliseconds) { Sleep(milliseconds); }

}  // namespace platform
