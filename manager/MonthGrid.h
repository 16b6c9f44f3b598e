#pragma once

#include <array>

#include "app/store/DayFolder.h"
#include "platform/DateTime.h"

namespace manager {

// The 42 days of a month's page: six weeks of seven, row by row.
class MonthGrid {
  public:
    static constexpr int kRows = 6;
    static constexpr int kColumns = 7;
    static constexpr int kCells = kRows * kColumns;

    // A day as the page marks it. Which month a grey day belongs to is told by comparing month numbers
    // alone: in December the January days that follow count as the month before, and the other way round.
    struct Cell {
        int day = 0;
        int monthOffset = 0;  // -1, 0 or +1 to the shown month
    };

    // `firstDayOfWeek`: 0 = Monday to 6 = Sunday.
    void Set(int year, int month, int firstDayOfWeek);

    // 0 until a month is set.
    int Year() const { return year_; }
    int Month() const { return month_; }
    const Cell& At(int row, int column) const {
        return cells_[static_cast<size_t>(row) * kColumns + static_cast<size_t>(column)];
    }
    // The cell of a day of the shown month, row-major.
    int CellOf(int day) const { return leading_ + day - 1; }
    // The folder of the cell's day, with the shown year and the cell's month number.
    store::DayFolder FolderOf(const Cell& cell) const;
    // The real day of a cell in row-major order, whatever its mark says.
    platform::DateTime DateAt(int row, int column) const;

  private:
    int year_ = 0;
    int month_ = 0;
    int leading_ = 0;  // days of the month before
    platform::DateTime first_;
    std::array<Cell, kCells> cells_{};
};

}  // namespace manager
