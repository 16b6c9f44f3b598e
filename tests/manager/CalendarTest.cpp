// The month calendar. The device's day is the 5th of March 2007, a Monday; its weeks begin on Sunday.
#include "tests/manager/ManagerRig.h"

namespace {

using platform::Key;
using testing_support::kRoot;
using testing_support::Script;
using testing_support::Step;

class Calendar : public testing_support::ManagerTest {
  protected:
    Calendar() { device.SetSetting(L"ViewCalMode", 1); }

    // Both lie in one cell, of which a day's number is the top left corner.
    bool InOneCell(const wchar_t* picture, const wchar_t* day) {
        const ink::Rect mark = Desk().PlaceOf(picture);
        const ink::Rect number = Desk().PlaceOf(day);
        return !mark.IsEmpty() && mark.left > number.left && mark.left < number.left + 240 / 7 &&
               mark.top >= number.top && mark.top < number.top + 30;
    }
    // Whether the outline of the keys' day goes around the first cell with this number.
    bool IsOutlined(const wchar_t* day) {
        const ink::Rect number = Desk().PlaceOf(day);
        return Shown().Row(number.top + 1)[number.left - 3] == 0x202020;
    }
    Step ExpectMonth(const std::wstring& title) { return ExpectText(title + L"  "); }
    Script Enter(const std::vector<Key>& keys, const std::wstring& title) {
        Script script;
        for (const Key key : keys) script.push_back(Press(key));
        script.insert(script.end(), {Press(Key::Enter), ExpectTitle(title + L" - Inkwright"), Close()});
        return script;
    }
};

TEST_F(Calendar, StepsThroughTheMonthsAndRemembersTheMode) {
    const auto expectTools = [this](bool isCurrent) {
        return [=] {
            EXPECT_TRUE(hand.Tool(IDM_CALENDAR).pressed);
            EXPECT_EQ(hand.Tool(IDM_CURRENT_MONTH).enabled, !isCurrent);
            EXPECT_FALSE(hand.Tool(IDM_ADD_NOTE).enabled);
            EXPECT_FALSE(TreeControl().Handle()->visible);
        };
    };
    RunManager(L"", {ExpectMonth(L"March 2007"), expectTools(true), Press(IDM_PREVIOUS_MONTH),
                     Press(IDM_PREVIOUS_MONTH), ExpectMonth(L"January 2007"), Press(IDM_PREVIOUS_MONTH),
                     ExpectMonth(L"December 2006"), expectTools(false), Press(IDM_NEXT_MONTH),
                     ExpectMonth(L"January 2007"), Press(IDM_CURRENT_MONTH), ExpectMonth(L"March 2007")});
    EXPECT_EQ(device.NumberSetting(L"ViewCalMode"), 1u);
    RunManager(L"", {Press(IDM_CALENDAR), ExpectNoText(L"March 2007  "), [this] {
                         EXPECT_FALSE(hand.Tool(IDM_CALENDAR).pressed);
                         EXPECT_TRUE(TreeControl().Handle()->visible);
                     }});
    EXPECT_EQ(device.NumberSetting(L"ViewCalMode"), 0u);
}

TEST_F(Calendar, OpensOnTheMonthOfTheSelectedDay) {
    for (const auto& [folder, title] :
         {std::pair{L"2005-07-08", L"July 2005"}, {L"2005-13-08", L"March 2007"}}) {
        PutNote(std::wstring(L"Reminders\\") + folder + L"\\r.ikw");
        RunManager(std::wstring(L"Reminders\\") + folder + L"\\r.ikw",
                   {ExpectMonth(title), Press(IDM_CALENDAR), Press(IDM_CALENDAR), ExpectMonth(title)});
    }
}

// Grey days are told by month numbers alone: in December the January days count as November's.
TEST_F(Calendar, MarksDaysWithNotesAndToday) {
    for (const wchar_t* day : {L"2007-03-02", L"2007-03-08"})
        PutNote(std::wstring(L"Reminders\\") + day + L"\\r.ikw");
    RunManager(L"",
               {[this] {
                    EXPECT_TRUE(InOneCell(L"picture 8", L"2")) << "past";
                    EXPECT_TRUE(InOneCell(L"picture 7", L"8")) << "to come";
                    EXPECT_TRUE(InOneCell(L"picture 9", L"5")) << "today";
                    EXPECT_EQ(Shown().Row(Desk().PlaceOf(L"25").top)[1], 0xC0C0C0u) << "February's";
                    EXPECT_EQ(Shown().Row(Desk().PlaceOf(L"14").top)[Desk().PlaceOf(L"14").left], 0xFFFFFFu);
                    EXPECT_EQ(Desk().PlaceOf(L"14").left - Desk().PlaceOf(L"13").left, 240 / 7);
                    const ink::Rect wednesday = Desk().PlaceOf(L"Wed");
                    EXPECT_NEAR(wednesday.left + wednesday.right, 240, 2) << "in the middle of the middle";
                    EXPECT_EQ(wednesday.top, Desk().PlaceOf(L"Sun").top);
                    EXPECT_LT(Desk().PlaceOf(L"Sun").left, 240 / 7);
                    const ink::Rect title = Desk().PlaceOf(L"March 2007  ");
                    EXPECT_EQ(title.right, 240);
                    EXPECT_LT(title.bottom, wednesday.top);
                    EXPECT_LT(wednesday.bottom, Desk().PlaceOf(L"25").top);
                    EXPECT_EQ(Shown().Row(wednesday.top)[0], 0x202020u);
                    EXPECT_EQ(Shown().Row((wednesday.top + wednesday.bottom) / 2)[120], 0xFFFFFFu);
                },
                Press(IDM_PREVIOUS_MONTH), ExpectNoText(L"picture 9")});
    device.now = {2005, 12, 4, 15, 0, 0, 0, 0};
    PutNote(L"Reminders\\2005-11-06\\r.ikw");
    RunManager(L"", {[this] {
                   EXPECT_GT(Desk().PlaceOf(L"picture 8").top, Desk().PlaceOf(L"28").top)
                       << "on the 6th of January";
               }});
}

TEST_F(Calendar, TapsOnDays) {
    PutNote(L"Reminders\\2007-03-20\\r.ikw");
    RunManager(L"", {TapText(L"9"), ExpectTitle(L"Friday, 3/9/2007 - Inkwright"), Write({{30, 100}}), Close(),
                     Close(), [this] { EXPECT_TRUE(Has(L"Reminders\\2007-03-09\\Reminder 2007-03-09.ikw")); },
                     [this] { EXPECT_TRUE(InOneCell(L"picture 7", L"9") && IsOutlined(L"9")); },
                     TapText(L"25"),  // grey: it shows its month
                     ExpectMonth(L"February 2007"), Press(IDM_NEXT_MONTH),
                     [this] {
                         const ink::Rect cell = Desk().PlaceOf(L"12");
                         Desk().PenDown({cell.left, cell.top});
                         Desk().PenUp({cell.left + 240 / 7, cell.top});  // lifted in the next cell: no tap
                     },
                     ExpectTitle(L"Inkwright"), TapText(L"20"), ExpectNoText(L"March 2007  "),
                     ExpectSelected(L"Tuesday, March 20, 2007  (1 found) ")});
}

// Enter begins a reminder on the day that the keys are at, where there is none.
TEST_F(Calendar, KeysGoFromDayToDay) {
    struct Case {
        std::vector<Key> keys;
        const wchar_t* day;
    };
    for (const Case& c : {Case{{}, L"Monday, 3/5/2007"}, Case{{Key::Right, Key::Down}, L"Tuesday, 3/13/2007"},
                          Case{{Key::Up}, L"Monday, 2/26/2007"}, Case{{Key::PageDown}, L"Sunday, 4/1/2007"},
                          Case{{Key::PageDown, Key::Left}, L"Saturday, 3/31/2007"},
                          Case{{Key::PageDown, Key::Down, Key::PageUp}, L"Monday, 3/5/2007"}}) {
        RunManager(L"", Enter(c.keys, c.day));
    }
    RunManager(L"", {Press(Key::Right), [this] { EXPECT_TRUE(IsOutlined(L"6") && !IsOutlined(L"5")); },
                     Press(Key::Home), Press(Key::F2), ExpectMonth(L"March 2007")});
}

// As the calendar opens, for another month, and not at all for a step within the month.
TEST_F(Calendar, EachDayIsLookedUpOnce) {
    int lookUps = 0;
    device.files.fault = [&lookUps](platform::host::FileCall call, const std::wstring& path) {
        const bool isDay = path.find(L"\\Reminders\\") != std::wstring::npos;
        if (call == platform::host::FileCall::List && isDay) ++lookUps;
        return platform::FileError::None;
    };
    const auto expect = [&lookUps](int count) { return [&lookUps, count] { EXPECT_EQ(lookUps, count); }; };
    RunManager(L"", {expect(42), Press(IDM_NEXT_MONTH), expect(84), Press(Key::Right), expect(84)});
}

TEST_F(Calendar, TheFirstDayOfTheWeekIsOneByte) {
    for (const auto& [setting, first] :
         {std::tuple{256u, L"26"}, {262u, L"25"}, {7u, L"26"}, {6u, L"25"}, {1u, L"27"}, {4u, L"23"}}) {
        device.SetSetting(L"FirstDayOfWeek", setting);
        RunManager(L"", {[this, first = first] {
                       const auto texts = Desk().Texts();
                       const auto at = std::find(texts.begin(), texts.end(), first);
                       ASSERT_NE(at, texts.end());
                       EXPECT_LT(Desk().PlaceOf(first).left, 240 / 7);
                       EXPECT_LE(Desk().PlaceOf(first).top, Desk().PlaceOf(L"1").top);
                   }});
    }
}

}  // namespace
