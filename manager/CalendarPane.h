#pragma once

#include <optional>
#include <string>

#include "app/store/DayFolder.h"
#include "manager/MonthView.h"
#include "platform/Window.h"

namespace manager {

// The month calendar in the place of the tree: which month is shown, which day the keys act on, and what
// taps and keys do. While it is not up, none of its months is read or drawn.
class CalendarPane {
  public:
    // Who shows the calendar.
    class Events {
      public:
        virtual ~Events() = default;
        // The picture has changed, and with it perhaps the month.
        virtual void OnCalendarDrawn() = 0;
        virtual void OnCalendarDay(const store::DayFolder& day) = 0;
    };

    CalendarPane(Events& events, const platform::ImageList& images) : events_(events), month_(images) {}

    // In client pixels of the window. A month that is shown is drawn anew.
    void Place(const platform::Rect& area, ink::Scale scale);
    // Where the marks are looked up: the store root with one "\" at its end.
    void SetRootPrefix(const std::wstring& rootPrefix) { rootPrefix_ = rootPrefix; }
    void ReadFirstDayOfWeek();
    int FirstDayOfWeek() const { return firstDayOfWeek_; }  // 0 = Monday

    bool IsUp() const { return isUp_; }
    // Comes up on the month of `day`, on the current one when there is none or it is no month's.
    void Open(const std::optional<store::DayFolder>& day);
    // What the user left as the view to begin with; shown by the first Refresh.
    void BeginUp(bool isUp) { isUp_ = isUp; }
    void Leave() { isUp_ = false; }
    // Reads the shown month anew; opens on `day` when there is none yet.
    void Refresh(const std::optional<store::DayFolder>& day);

    void StepMonth(int months);
    void ShowCurrentMonth();
    bool ShowsCurrentMonth() const { return month_.ShowsCurrentMonth(); }

    void PenDown(platform::Point place) { pressed_ = place; }
    // A day counts as tapped when the pen comes up in the cell where it went down.
    void PenUp(platform::Point place);
    // False for a key that means nothing here.
    bool PressKey(platform::Key key);

    const platform::Image& Picture() const { return month_.Picture(); }
    platform::Point PicturePlace() const { return {area_.left, area_.top}; }

  private:
    void ShowMonth(int year, int month);
    void Draw();
    void MoveCursor(int days);
    void TapDay(int row, int column);

    Events& events_;
    MonthView month_;
    platform::Rect area_;
    ink::Scale scale_;
    std::wstring rootPrefix_;
    int firstDayOfWeek_ = 0;
    bool isUp_ = false;
    int cursorDay_ = 1;        // of the shown month: what the keys act on
    platform::Point pressed_;  // where the pen came down, client pixels
};

}  // namespace manager
