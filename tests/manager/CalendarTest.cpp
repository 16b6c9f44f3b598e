// The month calendar. The device's day is the 5th of March 2007, a Monday; its weeks begin on Sunday.
#include "tests/manager/ManagerRig.h"

namespace {

using platform::Key;
using namespace testing_support;

class Calendar : public ManagerTest {
  protected:
    Calendar() {
        device.SetSetting(L"ViewCalMode", 1);
        device.files.capacity = 1 << 20;
    }
    Step ExpectMonth(const std::wstring& title) { return ExpectText(title + L"  "); }
    Step ExpectTools(bool isCalendar, bool isOtherMonth) {
        return [=] {
            EXPECT_EQ(hand.Tool(IDM_CALENDAR).pressed, isCalendar);
            EXPECT_EQ(hand.Tool(IDM_CURRENT_MONTH).enabled, isOtherMonth);
            EXPECT_EQ(TreeControl().Handle()->visible, !isCalendar);
        };
    }
};

TEST_F(Calendar, StepsThroughTheMonthsAndRemembersTheMode) {
    RunManager(L"", {ExpectMonth(L"March 2007"), ExpectTools(true, false), Press(IDM_PREVIOUS_MONTH),
                     Press(IDM_PREVIOUS_MONTH), ExpectMonth(L"January 2007"), Press(IDM_PREVIOUS_MONTH),
                     ExpectMonth(L"December 2006"), ExpectTools(true, true), Press(IDM_NEXT_MONTH),
                     ExpectMonth(L"January 2007"), Press(IDM_CURRENT_MONTH), ExpectMonth(L"March 2007")});
    EXPECT_EQ(device.NumberSetting(L"ViewCalMode"), 1u);
    for (const auto& [folder, title] :
         {std::pair{L"2005-07-08", L"July 2005"}, {L"2005-13-08", L"March 2007"}}) {
        const std::wstring note = std::wstring(L"Reminders\\") + folder + L"\\r.ikw";
        PutNote(note);
        RunManager(note, {ExpectMonth(title), Press(IDM_CALENDAR), Press(IDM_CALENDAR), ExpectMonth(title)});
    }
    RunManager(L"", {Press(IDM_CALENDAR), ExpectNoText(L"March 2007  "), ExpectTools(false, false)});
    EXPECT_EQ(device.NumberSetting(L"ViewCalMode"), 0u);
}

// Grey days are told by month numbers alone: in December the January days count as November's.
TEST_F(Calendar, MarksDaysWithNotesAndToday) {
    for (const wchar_t* day : {L"2007-03-02", L"2007-03-05", L"2007-03-08", L"2007-02-26", L"2007-04-06",
                               L"2006-01-10", L"2005-11-06"})
        PutNote(std::wstring(L"Reminders\\") + day + L"\\r.ikw");
    RunManager(L"", {ExpectPicture(2510175179), Press(Key::Right), ExpectPicture(1089605364),
                     Press(IDM_PREVIOUS_MONTH), ExpectPicture(2096145430)});
    device.now = {2005, 12, 4, 15, 0, 0, 0, 0};
    RunManager(L"", {ExpectPicture(1789692784), Press(IDM_NEXT_MONTH), ExpectText(L"picture 7")});
}

// The system's colours stand out from each other; at any scale the month has its cells where they are tapped.
TEST_F(Calendar, UnderHighContrastAndFiner) {
    using platform::SystemColor;
    Desk().highContrast = true;
    const auto expect = [this](const std::wstring& text, SystemColor color) {
        return [=] {
            const ink::Rect place = Desk().PlaceOf(text);
            EXPECT_EQ(Shown().Row(place.bottom + 1)[place.left], ink::PixelOf(ColorOf(color))) << text;
        };
    };
    RunManager(L"", {expect(L"March 2007  ", SystemColor::ButtonFace), expect(L"9", SystemColor::Window),
                     expect(L"25", SystemColor::ButtonFace), Do(&Hand::ChangeScale, ink::Scale(192)),
                     [this] {
                         const ink::Rect day = Desk().PlaceOf(L"9");
                         Write({{day.left / 2 + 2, day.top / 2 + 2}})();
                     },
                     ExpectTitle(L"Friday, 3/9/2007 - Inkwright"), Close()});
}

TEST_F(Calendar, TapsOnDays) {
    PutNote(L"Reminders\\2007-03-20\\r.ikw");
    const Step slip = [this] {  // lifted in the next cell: no tap
        const ink::Rect cell = Desk().PlaceOf(L"12");
        Desk().PenDown({cell.left, cell.top});
        Desk().PenUp({cell.left + 240 / 7, cell.top});
    };
    RunManager(L"", {TapText(L"9"), ExpectTitle(L"Friday, 3/9/2007 - Inkwright"), Write({{30, 100}}), Close(),
                     Close(), ExpectText(L"picture 7"), TapText(L"25"),  // grey: it shows its month
                     ExpectMonth(L"February 2007"), Press(IDM_NEXT_MONTH), slip, ExpectTitle(L"Inkwright"),
                     TapText(L"20"), ExpectNoText(L"March 2007  "),
                     ExpectSelected(L"Tuesday, March 20, 2007  (1 found) ")});
    EXPECT_TRUE(Has(L"Reminders\\2007-03-09\\Reminder 2007-03-09.ikw"));
}

TEST_F(Calendar, FillsTheWindowAsTheTreeDoes) {
    const Step isWide = [this] {
        EXPECT_EQ(Desk().PlaceOf(L"12").left, 600 / 7 + 5);
        EXPECT_EQ(Shown().Row(746)[598], 0xC0C0C0u) << "the last day";
        EXPECT_EQ(Shown().Row(10)[598], Shown().Row(10)[2]) << "the bar on top";
    };
    const Step isTree = [this] {
        EXPECT_EQ(TreeControl().Handle()->place, (ink::Rect{0, 19, 700, 700 - 2 * 26 - 75}));
        EXPECT_NE(Shown().Row(640)[698], 0u) << "the strip";
    };
    RunManager(L"", {Resize(600, 800), isWide, Press(IDM_CALENDAR), Resize(700, 700), isTree});
}

// Where no reminder is, Enter begins one. Days are looked up once for each month that is shown.
TEST_F(Calendar, KeysGoFromDayToDay) {
    const std::pair<std::vector<Key>, std::wstring> kCases[] = {
        {{}, L"Monday, 3/5/2007"},
        {{Key::Right, Key::Down}, L"Tuesday, 3/13/2007"},
        {{Key::Up}, L"Monday, 2/26/2007"},
        {{Key::PageDown}, L"Sunday, 4/1/2007"},
        {{Key::PageDown, Key::Left}, L"Saturday, 3/31/2007"},
        {{Key::PageDown, Key::Down, Key::PageUp}, L"Monday, 3/5/2007"}};
    for (const auto& [keys, day] : kCases) {
        for (const Key key : keys) Play({Press(key)});
        RunManager(L"", {Press(Key::Enter), ExpectTitle(day + L" - Inkwright"), Close()});
    }
    RunManager(L"", {CountLists(), Press(IDM_NEXT_MONTH), ExpectLists(42), Press(Key::Right), ExpectLists(42),
                     Press(Key::Home), Press(Key::F2), ExpectMonth(L"April 2007")});
}

TEST_F(Calendar, TheFirstDayOfTheWeekIsOneByte) {
    for (const auto& [setting, first] :
         {std::pair{256u, L"26"}, {262u, L"25"}, {7u, L"26"}, {6u, L"25"}, {1u, L"27"}, {4u, L"23"}}) {
        device.SetSetting(L"FirstDayOfWeek", setting);
        RunManager(L"", {[this, day = first] {
                       EXPECT_LT(Desk().PlaceOf(day).left, 240 / 7);
                       EXPECT_LE(Desk().PlaceOf(day).top, Desk().PlaceOf(L"1").top);
                   }});
    }
}

}  // namespace
