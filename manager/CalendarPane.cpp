#include "manager/CalendarPane.h"

#include "app/store/Settings.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/MessageBox.h"

namespace manager {

namespace {

using platform::Key;

constexpr int64_t kDaySeconds = 86400;

// The day that the keys act on when a month comes up: today, or the first.
int DayToBeginWith(int year, int month) {
    const platform::DateTime now = platform::LocalNow();
    return year == now.year && month == now.month ? now.day : 1;
}

}  // namespace

void CalendarPane::ReadFirstDayOfWeek() {
    const auto usual = static_cast<uint32_t>(platform::FirstDayOfWeek());
    const uint32_t day = store::Settings().FindNumber(store::SettingId::FirstDayOfWeek).value_or(usual);
    const int kept = static_cast<int>(day & 0xFF);  // the setting is one byte
    firstDayOfWeek_ = kept < MonthGrid::kColumns ? kept : 0;
}

void CalendarPane::Place(const platform::Rect& area, ink::Scale scale) {
    area_ = area;
    scale_ = scale;
    if (isUp_ && month_.Grid().Month() != 0) Draw();
}

void CalendarPane::Open(const std::optional<store::DayFolder>& day) {
    isUp_ = true;
    const bool isOfAMonth = day && day->Year() > 0 && day->Month() >= 1 && day->Month() <= 12;
    const store::DayFolder shown = isOfAMonth ? *day : store::DayFolder(platform::LocalNow());
    cursorDay_ = DayToBeginWith(shown.Year(), shown.Month());
    ShowMonth(shown.Year(), shown.Month());
}

void CalendarPane::Refresh(const std::optional<store::DayFolder>& day) {
    if (!isUp_) return;
    if (month_.Grid().Month() == 0) return Open(day);
    ShowMonth(month_.Grid().Year(), month_.Grid().Month());
}

void CalendarPane::StepMonth(int months) {
    const int count = month_.Grid().Year() * 12 + month_.Grid().Month() - 1 + months;
    ShowMonth(count / 12, count % 12 + 1);
}

void CalendarPane::ShowCurrentMonth() {
    const platform::DateTime now = platform::LocalNow();
    ShowMonth(now.year, now.month);
}

// The day that the keys act on stays as long as the month does.
void CalendarPane::ShowMonth(int year, int month) {
    const platform::WaitCursor wait;
    const bool isShown = year == month_.Grid().Year() && month == month_.Grid().Month();
    if (!isShown) cursorDay_ = DayToBeginWith(year, month);
    month_.SetMonth(year, month, firstDayOfWeek_);
    month_.ReadMarks(rootPrefix_);
    Draw();
}

void CalendarPane::Draw() {
    month_.Draw(area_.Width(), area_.Height(), scale_, cursorDay_);
    events_.OnCalendarDrawn();
}

void CalendarPane::PenUp(platform::Point place) {
    if (!isUp_) return;
    int row = 0;
    int column = 0;
    int pressedRow = 0;
    int pressedColumn = 0;
    const bool inCell =
        month_.CellAt({place.x - area_.left, place.y - area_.top}, row, column) &&
        month_.CellAt({pressed_.x - area_.left, pressed_.y - area_.top}, pressedRow, pressedColumn);
    if (inCell && row == pressedRow && column == pressedColumn) TapDay(row, column);
}

bool CalendarPane::PressKey(Key key) {
    const int cell = month_.Grid().CellOf(cursorDay_);
    switch (key) {
        case Key::Left:
            MoveCursor(-1);
            return true;
        case Key::Right:
            MoveCursor(1);
            return true;
        case Key::Up:
            MoveCursor(-MonthGrid::kColumns);
            return true;
        case Key::Down:
            MoveCursor(MonthGrid::kColumns);
            return true;
        case Key::Enter:
            TapDay(cell / MonthGrid::kColumns, cell % MonthGrid::kColumns);
            return true;
        default:
            return false;
    }
}

// From the edge of a month on to the next one.
void CalendarPane::MoveCursor(int days) {
    const int cell = month_.Grid().CellOf(cursorDay_);
    const platform::DateTime from =
        month_.Grid().DateAt(cell / MonthGrid::kColumns, cell % MonthGrid::kColumns);
    const platform::DateTime day = platform::AddSeconds(from, days * kDaySeconds);
    if (day.month != month_.Grid().Month()) ShowMonth(day.year, day.month);
    cursorDay_ = day.day;
    Draw();
}

// A grey day shows its month.
void CalendarPane::TapDay(int row, int column) {
    const platform::DateTime day = month_.Grid().DateAt(row, column);
    if (month_.Grid().At(row, column).monthOffset != 0) return ShowMonth(day.year, day.month);
    cursorDay_ = day.day;
    events_.OnCalendarDay(store::DayFolder(day));
}

}  // namespace manager
