#pragma once

#include <array>
#include <string>

#include "manager/MonthGrid.h"
#include "platform/Canvas.h"

namespace manager {

// The month as a picture: title, days of the week, and a cell for each day with a mark where reminders lie.
class MonthView {
  public:
    explicit MonthView(const platform::ImageList& images) : images_(images) {}

    // Until SetMonth there is no month to draw.
    void SetMonth(int year, int month, int firstDayOfWeek);
    const MonthGrid& Grid() const { return grid_; }
    bool ShowsCurrentMonth() const;

    // Looks up each day's folder.
    void ReadMarks(const std::wstring& rootPrefix);
    // Draws the month anew, with an outline around the day that the keys act on. When memory is short
    // there is no picture.
    void Draw(int width, int height, ink::Scale scale, int cursorDay);
    const platform::Image& Picture() const { return picture_; }

    // The cell at a position of the picture; false outside the cells.
    bool CellAt(platform::Point place, int& row, int& column) const;

  private:
    platform::Rect CellRect(int row, int column) const;
    void DrawTitle();
    void DrawWeekdays();
    void DrawCell(int row, int column);
    void DrawLines();
    void DrawCursor(int cell);
    bool IsPast(const MonthGrid::Cell& cell) const;

    const platform::ImageList& images_;
    MonthGrid grid_;
    int firstDayOfWeek_ = 0;
    std::array<bool, MonthGrid::kCells> marked_{};
    int titleHeight_ = 0;
    int gridTop_ = 0;
    platform::DateTime today_;
    platform::Image picture_;
};

}  // namespace manager
