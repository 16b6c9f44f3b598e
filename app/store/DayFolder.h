#pragma once

#include <optional>
#include <string>

#include "platform/DateTime.h"

namespace store {

// The folder of a day's reminders, named "YYYY-MM-DD".
class DayFolder {
  public:
    DayFolder(int year, int month, int day);
    explicit DayFolder(const platform::DateTime& date) : DayFolder(date.year, date.month, date.day) {}

    // Takes any ten characters with "-" at the fifth and eighth and no part zero. Whether the calendar has
    // such a day is not asked: notes in a wrongly dated folder must not vanish.
    static std::optional<DayFolder> Named(const std::wstring& name);

    const std::wstring& Name() const { return name_; }
    int Year() const { return date_.year; }
    int Month() const { return date_.month; }
    int Day() const { return date_.day; }

    // True when the calendar has the day and the name is written in digits alone.
    bool IsOfCalendar() const;
    // Its day of week is set when the calendar has the day.
    const platform::DateTime& Date() const { return date_; }

    // As the tree shows it: the long date; the name itself when the calendar has no such day.
    std::wstring LongText() const;
    // As the title of a reminder: weekday and short date, or the name as well.
    std::wstring TitleText() const;

  private:
    platform::DateTime date_;
    std::wstring name_;
};

}  // namespace store
