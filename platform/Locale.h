#pragma once

#include <string>

#include "platform/DateTime.h"

// Texts in the user's locale. A date that can't be formatted gives an empty text.
namespace platform {

std::wstring ShortDate(const DateTime& date);
std::wstring LongDate(const DateTime& date);
// Date picture such as L"dddd',' ".
std::wstring DatePicture(const DateTime& date, const wchar_t* picture);
// The default date-and-time form; midnight shows the date only.
std::wstring DateAndTime(const DateTime& moment);

}  // namespace platform
