#include "manager/MonthView.h"

#include "app/store/StoreListing.h"
#include "app/store/StorePaths.h"
#include "manager/StripImages.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"

namespace manager {

namespace {

using platform::Canvas;
using platform::Point;
using platform::Rect;
using platform::SystemColor;

constexpr platform::Font kTitleFont{100, true};
constexpr platform::Font kWideDaysFont{90, false};
constexpr platform::Font kNarrowDaysFont{80, false};
constexpr platform::Font kCellFont{80, false};
constexpr ink::ColorRef kDark = ink::MakeColor(32, 32, 32);
constexpr ink::ColorRef kWhite = ink::MakeColor(255, 255, 255);
constexpr ink::ColorRef kGrey = ink::MakeColor(192, 192, 192);
constexpr ink::ColorRef kBlack = 0;

// The month's own colours, or the system's that stand for them.
ink::ColorRef ColorOr(ink::ColorRef own, SystemColor system) {
    return platform::HasHighContrast() ? platform::ColorOf(system) : own;
}
ink::ColorRef HeadColor() { return ColorOr(kDark, SystemColor::ButtonFace); }
ink::ColorRef HeadTextColor() { return ColorOr(kWhite, SystemColor::ButtonText); }
ink::ColorRef CursorColor() { return ColorOr(kDark, SystemColor::WindowText); }

constexpr int kMarkRight = 17;
constexpr int kMarkBottom = 16;

int RowHeight(const platform::Font& font, ink::Scale scale) {
    return static_cast<int>(Canvas::TextSize(L"Aqua", font, scale).bottom * 1.5);
}

void DrawCentred(const platform::Image& picture, const std::wstring& text, const Rect& area,
                 const platform::Font& font) {
    const Rect size = Canvas::TextSize(text, font, picture.PageScale());
    const Point place{area.left + (area.Width() - size.right) / 2,
                      area.top + (area.Height() - size.bottom) / 2};
    Canvas(picture).Text(text, place, font, HeadTextColor(), area);
}

// Names of two characters or more ask for the narrower font: their count includes the terminator.
platform::Font WeekdayFont() {
    for (int day = 0; day < MonthGrid::kColumns; ++day) {
        if (platform::ShortDayName(day).size() + 1 > 2) return kNarrowDaysFont;
    }
    return kWideDaysFont;
}

}  // namespace

void MonthView::SetMonth(int year, int month, int firstDayOfWeek) {
    firstDayOfWeek_ = firstDayOfWeek;
    grid_.Set(year, month, firstDayOfWeek);
}

bool MonthView::ShowsCurrentMonth() const {
    const platform::DateTime now = platform::LocalNow();
    return grid_.Year() == now.year && grid_.Month() == now.month;
}

void MonthView::ReadMarks(const std::wstring& rootPrefix) {
    const std::wstring reminders = rootPrefix + store::kRemindersFolder + L"\\";
    for (int cell = 0; cell < MonthGrid::kCells; ++cell) {
        const MonthGrid::Cell& day = grid_.At(cell / MonthGrid::kColumns, cell % MonthGrid::kColumns);
        marked_[static_cast<size_t>(cell)] = store::HoldsNotes(reminders + grid_.FolderOf(day).Name());
    }
}

void MonthView::Draw(int width, int height, ink::Scale scale, int cursorDay) {
    if (picture_.Width() != width || picture_.Height() != height || picture_.PageScale() != scale)
        picture_ = platform::Image::Make(width, height, scale);
    if (!picture_.IsValid()) return;
    today_ = platform::LocalNow();
    DrawTitle();
    DrawWeekdays();
    for (int row = 0; row < MonthGrid::kRows; ++row) {
        for (int column = 0; column < MonthGrid::kColumns; ++column) DrawCell(row, column);
    }
    DrawLines();
    DrawCursor(grid_.CellOf(cursorDay));
}

bool MonthView::CellAt(Point place, int& row, int& column) const {
    for (row = 0; row < MonthGrid::kRows; ++row) {
        for (column = 0; column < MonthGrid::kColumns; ++column) {
            if (CellRect(row, column).Contains(place)) return true;
        }
    }
    return false;
}

Rect MonthView::CellRect(int row, int column) const {
    const int width = picture_.Width();
    const int height = picture_.Height() - gridTop_;
    return {width * column / MonthGrid::kColumns, gridTop_ + height * row / MonthGrid::kRows,
            width * (column + 1) / MonthGrid::kColumns, gridTop_ + height * (row + 1) / MonthGrid::kRows};
}

void MonthView::DrawTitle() {
    Canvas canvas(picture_);
    titleHeight_ = RowHeight(kTitleFont, picture_.PageScale());
    const Rect row{0, 0, picture_.Width(), titleHeight_};
    canvas.Fill(row, HeadColor());
    const std::wstring text = platform::YearAndMonth(grid_.Year(), grid_.Month()) + L"  ";
    const Rect size = Canvas::TextSize(text, kTitleFont, picture_.PageScale());
    canvas.Text(text, {row.right - size.right, (row.bottom - size.bottom) / 2}, kTitleFont, HeadTextColor(),
                row);
}

void MonthView::DrawWeekdays() {
    Canvas canvas(picture_);
    const platform::Font font = WeekdayFont();
    gridTop_ = titleHeight_ + RowHeight(font, picture_.PageScale());
    const int width = picture_.Width();
    canvas.Fill({0, titleHeight_, width, gridTop_}, HeadColor());
    for (int i = 0; i < MonthGrid::kColumns; ++i) {
        const Rect column{width * i / MonthGrid::kColumns, titleHeight_,
                          width * (i + 1) / MonthGrid::kColumns, gridTop_};
        DrawCentred(picture_, platform::ShortDayName((firstDayOfWeek_ + i) % MonthGrid::kColumns), column,
                    font);
    }
}

void MonthView::DrawCell(int row, int column) {
    Canvas canvas(picture_);
    const MonthGrid::Cell& cell = grid_.At(row, column);
    const Rect area = CellRect(row, column);
    const bool isShownMonth = cell.monthOffset == 0;
    canvas.Fill(
        area, isShownMonth ? ColorOr(kWhite, SystemColor::Window) : ColorOr(kGrey, SystemColor::ButtonFace));
    if (isShownMonth && ShowsCurrentMonth() && cell.day == today_.day) {
        canvas.Draw(images_, kTodayImage, {area.right - kMarkRight, area.top + 1});
    }
    if (marked_[static_cast<size_t>(row) * MonthGrid::kColumns + static_cast<size_t>(column)]) {
        canvas.Draw(images_, IsPast(cell) ? kPastDayImage : kComingDayImage,
                    {area.right - kMarkRight, area.bottom - kMarkBottom});
    }
    canvas.Text(
        std::to_wstring(cell.day), {area.left + 5, area.top + 1}, kCellFont,
        isShownMonth ? ColorOr(kBlack, SystemColor::WindowText) : ColorOr(kBlack, SystemColor::ButtonText),
        area);
}

bool MonthView::IsPast(const MonthGrid::Cell& cell) const {
    const int month = grid_.Month() + cell.monthOffset;
    if (grid_.Year() != today_.year) return grid_.Year() < today_.year;
    if (month != today_.month) return month < today_.month;
    return cell.day < today_.day;
}

void MonthView::DrawLines() {
    Canvas canvas(picture_);
    const ink::ColorRef color = platform::ColorOf(platform::SystemColor::WindowFrame);
    const int width = picture_.Width();
    for (int row = 0; row < MonthGrid::kRows; ++row) {
        const int y = CellRect(row, 0).top;
        canvas.Fill({0, y, width, y + 1}, color);
    }
    for (int n = 1; n <= MonthGrid::kColumns; ++n) {
        const int x = width * n / MonthGrid::kColumns;
        canvas.Fill({x, gridTop_, x + 1, picture_.Height()}, color);
    }
}

void MonthView::DrawCursor(int cell) {
    Canvas canvas(picture_);
    const Rect area = CellRect(cell / MonthGrid::kColumns, cell % MonthGrid::kColumns);
    const Rect inner = Inflate(area, -2, -2);
    canvas.Fill({area.left + 1, area.top + 1, area.right, inner.top + 1}, CursorColor());
    canvas.Fill({area.left + 1, inner.bottom, area.right, area.bottom}, CursorColor());
    canvas.Fill({area.left + 1, area.top + 1, inner.left + 1, area.bottom}, CursorColor());
    canvas.Fill({inner.right, area.top + 1, area.right, area.bottom}, CursorColor());
}

}  // namespace manager
