#include "manager/MonthGrid.h"

namespace manager {

namespace {

constexpr int64_t kDaySeconds = 86400;

}  // namespace

void MonthGrid::Set(int year, int month, int firstDayOfWeek) {
    year_ = year;
    month_ = month;
    platform::DateTime first;
    first.year = year;
    first.month = month;
    first.day = 1;
    const int weekday = platform::DayOfWeek(year, month, 1) + 1;  // 1 = Sunday to 7 = Saturday
    const int start = (firstDayOfWeek + 1) % kColumns;
    const int offset = (start - weekday - 6) % kColumns;  // keeps the sign: -6 to 0
    first_ = platform::AddSeconds(first, offset * kDaySeconds);
    leading_ = -offset;
    for (size_t i = 0; i < cells_.size(); ++i) {
        const platform::DateTime date = platform::AddSeconds(first_, static_cast<int64_t>(i) * kDaySeconds);
        cells_[i].day = date.day;
        cells_[i].monthOffset = date.month < month ? -1 : date.month > month ? 1 : 0;
    }
}

store::DayFolder MonthGrid::FolderOf(const Cell& cell) const {
    return {year_, month_ + cell.monthOffset, cell.day};
}

platform::DateTime MonthGrid::DateAt(int row, int column) const {
    return platform::AddSeconds(first_, (row * kColumns + column) * kDaySeconds);
}

}  // namespace manager
