#include <chrono>
#include <thread>

#include "platform/Clock.h"
#include "platform/qt/system/LocalTime.h"

namespace platform {

namespace qt {

namespace {

tm PartsOf(const DateTime& moment) {
    tm parts{};
    parts.tm_year = moment.year - 1900;
    parts.tm_mon = moment.month - 1;
    parts.tm_mday = moment.day;
    parts.tm_hour = moment.hour;
    parts.tm_min = moment.minute;
    parts.tm_sec = moment.second;
    parts.tm_isdst = -1;
    return parts;
}

}  // namespace

DateTime LocalTime(const timespec& moment) {
    tm local{};
    if (!localtime_r(&moment.tv_sec, &local)) return {};
    return {
        local.tm_year + 1900, local.tm_mon + 1, local.tm_wday, local.tm_mday,
        local.tm_hour,        local.tm_min,     local.tm_sec,  static_cast<int>(moment.tv_nsec / 1000000)};
}

bool UniversalSeconds(const DateTime& local, time_t& seconds) {
    tm parts = PartsOf(local);
    seconds = std::mktime(&parts);
    return IsValidMoment(local);
}

int64_t LocalTicks(const DateTime& moment) {
    tm parts = PartsOf(moment);
    return int64_t{timegm(&parts)} * 1000 + moment.milliseconds;
}

}  // namespace qt

DateTime LocalNow() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return qt::LocalTime(now);
}

uint32_t TickMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint32_t>(static_cast<uint64_t>(now.tv_sec) * 1000 +
                                 static_cast<uint64_t>(now.tv_nsec) / 1000000);
}

void Pause(uint32_t milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }

}  // namespace platform
