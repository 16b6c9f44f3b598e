#pragma once

#include <string>

#include "platform/DateTime.h"

// Texts in the user's locale. A date that can't be formatted gives an empty text.
namespace platform {

std::wstring ShortDate(const DateTime& date);
std::wstring LongDate(const DateTime& date);
// Date picture such as L"dddd',' ".
std::wstring DatePicture(const DateTime& date, const wchar_t* picture);
// "March 2007" in the locale's year-month form.
std::wstring YearAndMonth(int year, int month);
// Abbreviated and full names of the days, 0 = Monday to 6 = Sunday.
std::wstring ShortDayName(int day);
std::wstring DayName(int day);
// The locale's first day of the week, 0 = Monday to 6 = Sunday.
int FirstDayOfWeek();
// Whether paper is 8.5 by 11 inches where the user lives, and not A4.
bool UsesLetterPaper();
// The default date-and-time form; midnight shows the date only.
std::wstring DateAndTime(const DateTime& moment);

}  // namespace platform
