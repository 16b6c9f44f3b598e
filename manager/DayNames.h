#pragma once

#include <string>

namespace manager {

struct DayName {
    int year = 0;
    int month = 0;
    int day = 0;
};

// Reads the name of a day's folder: ten characters, "-" at the fifth and eighth, no part zero. Whether the
// calendar has such a day is not asked: notes in a wrongly dated folder must not vanish.
bool ReadDayName(const std::wstring& folderName, DayName& day);

// A day's folder as the tree shows it: the long date; the name itself when it is no day's.
std::wstring LongDayText(const std::wstring& folderName);
// The same as the title of a reminder: weekday and short date.
std::wstring WeekdayText(const std::wstring& folderName);

}  // namespace manager
