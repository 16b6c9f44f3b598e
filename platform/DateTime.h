#pragma once

#include <cstdint>

namespace platform {

// A local date and time as people read it.
struct DateTime {
    int year = 0;
    int month = 0;      // 1 to 12
    int dayOfWeek = 0;  // 0 = Sunday to 6 = Saturday
    int day = 0;        // 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
    int milliseconds = 0;
};

// True for a day of the calendar; years 1601 to 9999.
bool IsValidDate(int year, int month, int day);

// True for a day of the calendar and a time of the day; the day of week and the milliseconds are not looked
// at.
bool IsValidMoment(const DateTime& moment);

// 0 = Sunday to 6 = Saturday.
int DayOfWeek(int year, int month, int day);

// The moment `seconds` later (or earlier) by the calendar alone: no daylight-saving shift is applied.
DateTime AddSeconds(const DateTime& moment, int64_t seconds);

}  // namespace platform
