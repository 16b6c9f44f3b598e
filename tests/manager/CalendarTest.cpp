#include "manager/MonthGrid.h"
#include "tests/manager/ManagerRig.h"

namespace {

using manager::MonthGrid;
using testing_support::kRoot;

TEST(MonthGrid, TheFirstCellFollowsTheFirstDayOfTheWeek) {
    struct Case {
        int year, month, firstDayOfWeek;
        int day, offset;  // of the first cell
    };
    // January 2007 began on a Monday, September 2007 on a Saturday, April 2007 on a Sunday.
    for (const Case& c : {Case{2007, 1, 0, 1, 0}, Case{2007, 1, 6, 31, 1}, Case{2007, 9, 6, 26, -1},
                          Case{2007, 9, 0, 27, -1}, Case{2007, 4, 6, 1, 0}, Case{2007, 4, 0, 26, -1}}) {
        MonthGrid grid;
        grid.Set(c.year, c.month, c.firstDayOfWeek);
        EXPECT_EQ(grid.At(0, 0).day, c.day) << c.month << " " << c.firstDayOfWeek;
        EXPECT_EQ(grid.At(0, 0).monthOffset, c.offset);
    }
}

TEST(MonthGrid, MonthsAreComparedByTheirNumbersAlone) {
    MonthGrid grid;
    grid.Set(2005, 12, 6);
    const MonthGrid::Cell& january = grid.At(5, 1);
    EXPECT_EQ(january.day, 2);
    EXPECT_EQ(january.monthOffset, -1);
    EXPECT_EQ(grid.FolderOf(january).Name(), L"2005-11-02");
    EXPECT_EQ(grid.DateAt(5, 1).year, 2006);
    EXPECT_EQ(grid.DateAt(5, 1).month, 1);
}

class Calendar : public testing_support::ManagerTest {
  protected:
    // The first pixel of a cell of the shown month.
    platform::Point CornerOf(int row, int column) {
        const int top = manager::HeaderBar::Height();
        for (int y = top; y < Window().ClientHeight(); ++y) {
            for (int x = 0; x < Window().ClientWidth(); ++x) {
                int r = 0;
                int c = 0;
                if (Window().Month().CellAt({x, y - top}, r, c) && r == row && c == column) return {x, y};
            }
        }
        ADD_FAILURE() << "no such cell";
        return {};
    }
    void Tap(int row, int column) {
        const platform::Point corner = CornerOf(row, column);
        Desk().PenDown({corner.x + 8, corner.y + 8});
        Desk().PenUp({corner.x + 8, corner.y + 8});
    }
    bool IsOutlined(int row, int column) {
        const platform::Point corner = CornerOf(row, column);
        return Shown().Row(corner.y + 2)[corner.x + 2] == 0x202020;
    }
    void ThenOpenCalendar() {
        Then([this] { Desk().Command(IDM_CALENDAR); });
    }
};

TEST_F(Calendar, StepsThroughTheMonthsAndRemembersTheMode) {
    ThenOpenCalendar();
    Then([this] {
        EXPECT_TRUE(Tools().IsPressed(IDM_CALENDAR));
        EXPECT_FALSE(Tools().IsEnabled(IDM_CURRENT_MONTH));
        EXPECT_TRUE(IsOutlined(1, 1) && !IsOutlined(0, 4)) << "today, not the first";
        EXPECT_FALSE(Tools().IsEnabled(IDM_ADD_NOTE));
        Desk().Command(IDM_PREVIOUS_MONTH);
        Desk().Command(IDM_PREVIOUS_MONTH);
        Desk().Command(IDM_PREVIOUS_MONTH);
        EXPECT_EQ(Window().Month().Grid().Year(), 2006);
        EXPECT_EQ(Window().Month().Grid().Month(), 12);
        EXPECT_TRUE(Tools().IsEnabled(IDM_CURRENT_MONTH));
        Desk().Command(IDM_NEXT_MONTH);
        EXPECT_EQ(Window().Month().Grid().Month(), 1);
        Desk().Command(IDM_CURRENT_MONTH);
        EXPECT_EQ(Window().Month().Grid().Month(), 3);
    });
    RunManager();
    EXPECT_EQ(device.NumberSetting(L"ViewCalMode"), 1u);
    Then([this] { EXPECT_TRUE(Tools().IsPressed(IDM_CALENDAR)); });
    ThenOpenCalendar();
    RunManager();
    EXPECT_EQ(device.NumberSetting(L"ViewCalMode"), 0u);
}

TEST_F(Calendar, ADayWithRemindersOpensInTheTree) {
    PutNote(L"Reminders\\2007-03-08\\r.ikw");
    ThenOpenCalendar();
    Then([this] { Tap(1, 4); });  // Sunday first: the 4th begins the second row
    Then([this] {
        EXPECT_EQ(Selected(), L"Thursday, March 8, 2007  (1 found) ");
        EXPECT_FALSE(Tools().IsPressed(IDM_CALENDAR));
    });
    RunManager();
}

TEST_F(Calendar, AnEmptyDayBeginsAReminderAndAGreyDayShowsItsMonth) {
    ThenOpenCalendar();
    Then([this] { Tap(1, 5); });
    Then([this] {
        EXPECT_EQ(Desk().Top()->Title(), L"Friday, 3/9/2007 - Inkwright");
        Desk().Stroke({{30, 100}});
        Desk().Command(platform::kIdOk);
    });
    Then(Close());
    Then([this] {
        EXPECT_TRUE(Has(L"Reminders\\2007-03-09\\Reminder 2007-03-09.ikw"));
        Tap(0, 0);
        EXPECT_EQ(Window().Month().Grid().Month(), 2);
    });
    RunManager();
}

// As the calendar opens, for another month, and not at all for a step within the month.
TEST_F(Calendar, EachDayIsLookedUpOnce) {
    device.SetSetting(L"ViewCalMode", 1);
    int lookUps = 0;
    device.files.fault = [&lookUps](platform::host::FileCall call, const std::wstring& path) {
        const bool isDay = path.find(L"\\Reminders\\") != std::wstring::npos;
        if (call == platform::host::FileCall::List && isDay) ++lookUps;
        return platform::FileError::None;
    };
    Then([this, &lookUps] {
        EXPECT_EQ(lookUps, 42);
        Desk().Command(IDM_NEXT_MONTH);
        EXPECT_EQ(lookUps, 2 * 42);
        Desk().Press(platform::Key::Right);
        EXPECT_EQ(lookUps, 2 * 42);
    });
    RunManager();
}

// The device's day is the 5th of March 2007, a Monday. Enter begins a reminder on the day that the keys are
// at.
TEST_F(Calendar, KeysGoFromDayToDay) {
    using platform::Key;
    struct Case {
        std::vector<Key> keys;
        const wchar_t* day;
    };
    for (const Case& c : {Case{{}, L"Monday, 3/5/2007"}, Case{{Key::Right, Key::Down}, L"Tuesday, 3/13/2007"},
                          Case{{Key::Up}, L"Monday, 2/26/2007"}, Case{{Key::PageDown}, L"Sunday, 4/1/2007"},
                          Case{{Key::PageDown, Key::Left}, L"Saturday, 3/31/2007"},
                          Case{{Key::PageDown, Key::Down, Key::PageUp}, L"Monday, 3/5/2007"}}) {
        ThenOpenCalendar();
        Then([this, keys = c.keys] {
            for (const Key key : keys) Desk().Press(key);
            Desk().Press(Key::Enter);
        });
        Then([this, day = c.day] {
            EXPECT_EQ(Desk().Top()->Title(), day + std::wstring(L" - Inkwright"));
            Desk().Command(platform::kIdOk);
        });
        ThenOpenCalendar();
        RunManager();
    }
}

TEST_F(Calendar, TheFirstDayOfTheWeekIsOneByte) {
    for (const auto& [setting, first] : {std::pair{256u, 26}, std::pair{262u, 25}, std::pair{7u, 26}}) {
        device.SetSetting(L"FirstDayOfWeek", setting);
        ThenOpenCalendar();
        Then([this, first = first] { EXPECT_EQ(Window().Month().Grid().At(0, 0).day, first); });
        ThenOpenCalendar();
        RunManager();
    }
}

TEST_F(Calendar, OpensOnTheMonthOfTheSelectedDay) {
    PutNote(L"Reminders\\2005-07-08\\r.ikw");
    ThenOpenCalendar();
    Then([this] {
        EXPECT_EQ(Window().Month().Grid().Year(), 2005);
        EXPECT_EQ(Window().Month().Grid().Month(), 7);
    });
    RunManager(std::wstring(kRoot) + L"Reminders\\2005-07-08\\r.ikw");
}

}  // namespace
