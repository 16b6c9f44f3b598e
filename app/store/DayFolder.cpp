#include "app/store/DayFolder.h"

#include <cwchar>

#include "platform/Locale.h"

namespace store {

namespace {

int NumberAt(const std::wstring& text, size_t first, size_t count) {
    return static_cast<int>(std::wcstol(text.substr(first, count).c_str(), nullptr, 10));
}

std::wstring NameOfDay(int year, int month, int day) {
    wchar_t name[40];
    std::swprintf(name, std::size(name), L"%04d-%02d-%02d", year, month, day);
    return name;
}

}  // namespace

DayFolder::DayFolder(int year, int month, int day) : name_(NameOfDay(year, month, day)) {
    date_.year = year;
    date_.month = month;
    date_.day = day;
    if (platform::IsValidDate(year, month, day)) date_.dayOfWeek = platform::DayOfWeek(year, month, day);
}

std::optional<DayFolder> DayFolder::Named(const std::wstring& name) {
    if (name.size() != 10 || name[4] != L'-' || name[7] != L'-') return std::nullopt;
    DayFolder day(NumberAt(name, 0, 4), NumberAt(name, 5, 2), NumberAt(name, 8, 2));
    if (day.Year() == 0 || day.Month() == 0 || day.Day() == 0) return std::nullopt;
    day.name_ = name;  // as the disk has it, which may be other than these numbers are written
    return day;
}

bool DayFolder::IsOfCalendar() const {
    return platform::IsValidDate(Year(), Month(), Day()) && name_ == NameOfDay(Year(), Month(), Day());
}

std::wstring DayFolder::LongText() const {
    const std::wstring text = platform::LongDate(date_);
    return text.empty() ? name_ : text;
}

std::wstring DayFolder::TitleText() const {
    const std::wstring text = platform::DatePicture(date_, L"dddd',' ") + platform::ShortDate(date_);
    return text.empty() ? name_ : text;
}

}  // namespace store
