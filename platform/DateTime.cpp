#include "platform/DateTime.h"

namespace platform {

namespace {

// Days since 1 March of year 0 in the proleptic Gregorian calendar; years that begin in March put the leap
// day last, so that month lengths follow one formula.
int64_t DayNumber(int year, int month, int day) {
    const int64_t marchYear = month <= 2 ? int64_t{year} - 1 : year;
    const int marchMonth = (month + 9) % 12;
    return marchYear * 365 + marchYear / 4 - marchYear / 100 + marchYear / 400 + (marchMonth * 306 + 5) / 10 +
           (day - 1);
}

int DaysInMonth(int year, int month) {
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && leap ? 29 : kDays[month - 1];
}

void SetDateFromDayNumber(int64_t number, DateTime& date) {
    date.year = static_cast<int>(number / 366) + 1;
    while (DayNumber(date.year + 1, 1, 1) <= number) date.year++;
    while (DayNumber(date.year, 1, 1) > number) date.year--;
    date.month = 12;
    while (DayNumber(date.year, date.month, 1) > number) date.month--;
    date.day = static_cast<int>(number - DayNumber(date.year, date.month, 1)) + 1;
    date.dayOfWeek = DayOfWeek(date.year, date.month, date.day);
}

}  // namespace

bool IsValidDate(int year, int month, int day) {
    if (year < 1601 || year > 9999 || month < 1 || month > 12) return false;
    return day >= 1 && day <= DaysInMonth(year, month);
}

bool IsValidMoment(const DateTime& moment) {
    const bool isTime = moment.hour >= 0 && moment.hour < 24 && moment.minute >= 0 && moment.minute < 60 &&
                        moment.second >= 0 && moment.second < 60;
    return isTime && IsValidDate(moment.year, moment.month, moment.day);
}

int DayOfWeek(int year, int month, int day) {
    constexpr int kWednesday = 3;  // 1 March of year 0
    return static_cast<int>((DayNumber(year, month, day) + kWednesday) % 7);
}

DateTime AddSeconds(const DateTime& moment, int64_t seconds) {
    constexpr int64_t kDay = 86400;
    const int64_t total = DayNumber(moment.year, moment.month, moment.day) * kDay +
                          moment.hour * int64_t{3600} + moment.minute * int64_t{60} + moment.second + seconds;
    DateTime result = moment;
    SetDateFromDayNumber(total / kDay, result);
    const int rest = static_cast<int>(total % kDay);
    result.hour = rest / 3600;
    result.minute = rest / 60 % 60;
    result.second = rest % 60;
    return result;
}

}  // namespace platform
