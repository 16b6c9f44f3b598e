#include "manager/DayNames.h"

#include <cwchar>

#include "platform/Locale.h"

namespace manager {

namespace {

int NumberAt(const std::wstring& text, size_t first, size_t count) {
    return static_cast<int>(std::wcstol(text.substr(first, count).c_str(), nullptr, 10));
}

platform::DateTime DateOf(const DayName& day) {
    platform::DateTime date;
    date.year = day.year;
    date.month = day.month;
    date.day = day.day;
    if (platform::IsValidDate(day.year, day.month, day.day)) {
        date.dayOfWeek = platform::DayOfWeek(day.year, day.month, day.day);
    }
    return date;
}

}  // namespace

bool ReadDayName(const std::wstring& folderName, DayName& day) {
    if (folderName.size() != 10 || folderName[4] != L'-' || folderName[7] != L'-') return false;
    day = {NumberAt(folderName, 0, 4), NumberAt(folderName, 5, 2), NumberAt(folderName, 8, 2)};
    return day.year != 0 && day.month != 0 && day.day != 0;
}

std::wstring LongDayText(const std::wstring& folderName) {
    DayName day;
    const std::wstring text = ReadDayName(folderName, day) ? platform::LongDate(DateOf(day)) : std::wstring();
    return text.empty() ? folderName : text;
}

std::wstring WeekdayText(const std::wstring& folderName) {
    DayName day;
    if (!ReadDayName(folderName, day)) return folderName;
    const std::wstring text =
        platform::DatePicture(DateOf(day), L"dddd',' ") + platform::ShortDate(DateOf(day));
    return text.empty() ? folderName : text;
}

}  // namespace manager
