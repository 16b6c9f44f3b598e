// The manager's month calendar: what is shown, and what keys and taps do there.
#include "app/store/NodeKind.h"
#include "app/store/Settings.h"
#include "app/store/StoreListing.h"
#include "app/store/StorePaths.h"
#include "manager/ManagerWindow.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/MessageBox.h"

namespace manager {

namespace {

constexpr int64_t kDaySeconds = 86400;

// The day that the keys act on when a month comes up: today, or the first.
int DayToBeginWith(int year, int month) {
    const platform::DateTime now = platform::LocalNow();
    return year == now.year && month == now.month ? now.day : 1;
}

}  // namespace

void ManagerWindow::ReadFirstDayOfWeek() {
    const auto usual = static_cast<uint32_t>(platform::FirstDayOfWeek());
    const uint32_t day = store::Settings().FindNumber(store::SettingId::FirstDayOfWeek).value_or(usual);
    const int kept = static_cast<int>(day & 0xFF);  // the setting is one byte
    firstDayOfWeek_ = kept < MonthGrid::kColumns ? kept : 0;
}

void ManagerWindow::ToggleCalendar() {
    calendarMode_ = !calendarMode_;
    Layout();
    if (calendarMode_) EnterCalendar();
    RedrawStrip();
    UpdateTools();
}

// Opens on the month of the selected day, else on the current one.
void ManagerWindow::EnterCalendar() {
    const platform::DateTime now = platform::LocalNow();
    store::DayFolder shown(now);
    const platform::TreeItem container = folders_.Container(tree_.Selection());
    const std::optional<store::DayFolder> day = folders_.DayOf(container);
    if (day && day->Year() > 0 && day->Month() >= 1 && day->Month() <= 12) shown = *day;
    cursorDay_ = DayToBeginWith(shown.Year(), shown.Month());
    ShowMonth(shown.Year(), shown.Month());
}

// The day that the keys act on stays as long as the month does.
void ManagerWindow::ShowMonth(int year, int month) {
    const platform::WaitCursor wait;
    const bool isShown = year == month_.Grid().Year() && month == month_.Grid().Month();
    if (!isShown) cursorDay_ = DayToBeginWith(year, month);
    month_.SetMonth(year, month, firstDayOfWeek_);
    month_.ReadMarks(folders_.RootPrefix());
    DrawMonth();
    UpdateTools();
}

void ManagerWindow::DrawMonth() {
    month_.Draw(ClientWidth(), ClientHeight() - HeaderBar::Height(), cursorDay_);
    Invalidate();
}

void ManagerWindow::StepMonth(int months) {
    const int count = month_.Grid().Year() * 12 + month_.Grid().Month() - 1 + months;
    ShowMonth(count / 12, count % 12 + 1);
}

void ManagerWindow::ShowCurrentMonth() {
    const platform::DateTime now = platform::LocalNow();
    ShowMonth(now.year, now.month);
}

void ManagerWindow::OnPenUp(platform::Point place) {
    if (!calendarMode_) return;
    const int top = HeaderBar::Height();
    int row = 0;
    int column = 0;
    int pressedRow = 0;
    int pressedColumn = 0;
    const bool inCell = month_.CellAt({place.x, place.y - top}, row, column) &&
                        month_.CellAt({pressed_.x, pressed_.y - top}, pressedRow, pressedColumn);
    if (inCell && row == pressedRow && column == pressedColumn) TapDay(row, column);
}

bool ManagerWindow::OnKeyDown(platform::Key key) {
    if (!calendarMode_) return false;
    const int cell = month_.Grid().CellOf(cursorDay_);
    switch (key) {
        case platform::Key::Left:
            MoveCursor(-1);
            return true;
        case platform::Key::Right:
            MoveCursor(1);
            return true;
        case platform::Key::Up:
            MoveCursor(-MonthGrid::kColumns);
            return true;
        case platform::Key::Down:
            MoveCursor(MonthGrid::kColumns);
            return true;
        case platform::Key::Enter:
            TapDay(cell / MonthGrid::kColumns, cell % MonthGrid::kColumns);
            return true;
        default:
            return PressKey(key);
    }
}

// From the edge of a month on to the next one.
void ManagerWindow::MoveCursor(int days) {
    const int cell = month_.Grid().CellOf(cursorDay_);
    const platform::DateTime from =
        month_.Grid().DateAt(cell / MonthGrid::kColumns, cell % MonthGrid::kColumns);
    const platform::DateTime day = platform::AddSeconds(from, days * kDaySeconds);
    if (day.month != month_.Grid().Month()) ShowMonth(day.year, day.month);
    cursorDay_ = day.day;
    DrawMonth();
}

// A day with reminders opens in the tree, any other begins one; a grey day shows its month.
void ManagerWindow::TapDay(int row, int column) {
    const platform::DateTime day = month_.Grid().DateAt(row, column);
    if (month_.Grid().At(row, column).monthOffset != 0) return ShowMonth(day.year, day.month);
    cursorDay_ = day.day;
    const store::DayFolder dayFolder(day);
    const std::wstring folder = folders_.PathOf(dayFolder);
    if (!store::HoldsNotes(folder)) {
        AddReminder(dayFolder);
        return ShowFreeSpace();
    }
    ToggleCalendar();
    ShowStore(folder);
}

}  // namespace manager
