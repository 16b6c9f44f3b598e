#pragma once

#include <string>

#include "manager/MonthGrid.h"
#include "platform/Canvas.h"

namespace manager {

// The month as a picture: title, days of the week, and a cell for each day with a mark where reminders lie.
class MonthView {
  public:
    explicit MonthView(const platform::ImageList& images) : images_(images) {}

    void SetMonth(int year, int month, int firstDayOfWeek);
    const MonthGrid& Grid() const { return grid_; }
    bool ShowsCurrentMonth() const;

    // Outlines a cell (row-major) for the arrow keys; -1 for none.
    void SetCursor(int cell) { cursor_ = cell; }

    // Draws the month anew, looking up each day's folder once. False when memory is short.
    bool Update(const std::wstring& rootPrefix, int width, int height);
    const platform::Image& Picture() const { return picture_; }

    // The cell at a position of the picture; false outside the cells.
    bool CellAt(platform::Point place, int& row, int& column) const;

  private:
    platform::Rect CellRect(int row, int column) const;
    void DrawTitle();
    void DrawWeekdays();
    void DrawCell(int row, int column, const std::wstring& remindersPrefix);
    void DrawLines();
    void DrawCursor();
    bool IsPast(const MonthGrid::Cell& cell) const;

    const platform::ImageList& images_;
    MonthGrid grid_;
    int firstDayOfWeek_ = 0;
    int cursor_ = -1;
    int titleHeight_ = 0;
    int gridTop_ = 0;
    platform::DateTime today_;
    platform::Image picture_;
};

}  // namespace manager
