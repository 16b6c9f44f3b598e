#include "app/store/Settings.h"
#include "ink/PenStyle.h"
#include "options/sheet/COptPageDlg.h"
#include "res/resource.h"
#include "tests/support/DeskSteps.h"

namespace {

using ink::PenStyle;
using platform::RegistryType;
using store::SettingId;
using namespace testing_support;

class OptionsSheet : public DeskSteps {
  protected:
    void RunSheet(const Script& script, int button = platform::kIdOk) {
        Play(All({script, {Press(button)}}));
        platform::Screen owner(platform::Screen::ScrollBar::None);
        EXPECT_EQ(options::COptPageDlg().RunModal(owner), button == platform::kIdOk);
        EXPECT_FALSE(Desk().StepWaiting());
    }
    Step ShowFileNames() { return ShowPage(1); }
    Step ExpectEdit(int item, const std::wstring& text, bool isEnabled) {
        return [=] {
            EXPECT_EQ(Dialog().ItemText(item), text);
            EXPECT_EQ(IsItemEnabled(item), isEnabled);
            EXPECT_EQ(Dialog().IsItemChecked(IDC_NOTE_PATTERN_DEFAULT), !isEnabled);
        };
    }
    static uint32_t PenInfo(PenStyle style, uint32_t rest) {
        return static_cast<uint32_t>(style) << 16 | rest;
    }
};

TEST_F(OptionsSheet, EveryStoredPenComesBackAsTheControlsCanShowIt) {
    const struct {
        uint32_t stored;
        int listed;  // Smooth, Classic, Simple
        uint32_t size;
        uint32_t storedBack;
    } kCases[] = {{0xFF000000 | PenInfo(PenStyle::Classic, 30), 1, 1, PenInfo(PenStyle::Classic, 10)},
                  {PenInfo(PenStyle::Simple, 30), 2, 3, PenInfo(PenStyle::Simple, 30)},
                  {0xFF07FF3C, 0, 6, PenInfo(PenStyle::Smooth, 60)},  // other bits, an unknown style
                  {PenInfo(PenStyle::Smooth, 9), 0, 1, PenInfo(PenStyle::Smooth, 10)},
                  {PenInfo(PenStyle::Simple, 255), 2, 10, PenInfo(PenStyle::Simple, 100)}};
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.stored);
        device.SetSetting(L"PenInfo", c.stored);
        RunSheet(
            {ExpectChoice(IDC_PEN_STYLE, c.listed), ExpectSpin(IDC_PEN_SIZE_SPIN, c.size, c.listed != 1)});
        EXPECT_EQ(device.NumberSetting(L"PenInfo"), c.storedBack);
    }
}

// The first day is the locale's until one is chosen; of the alarm offset the low half counts.
TEST_F(OptionsSheet, MiscIsFilledChangedAndStored) {
    device.SetSetting(L"AlarmTimeOffset", 0x10005);
    const Step expectLists = [this] {
        auto& items = Dialog().Handle()->items;
        const Texts days{L"Monday", L"Tuesday", L"Wednesday", L"Thursday", L"Friday", L"Saturday", L"Sunday"};
        EXPECT_EQ(items[IDC_FIRST_DAY].choices, days);
        EXPECT_EQ(items[IDC_PEN_STYLE].choices, (Texts{L"Smooth", L"Classic", L"Simple"}));
        EXPECT_EQ(items[IDC_ALARM_OFFSET_SPIN].spinMinimum, 0);
        EXPECT_EQ(items[IDC_ALARM_OFFSET_SPIN].spinMaximum, 32767);
    };
    RunSheet({expectLists, ExpectChoice(IDC_FIRST_DAY, 6), ExpectSpin(IDC_ALARM_OFFSET_SPIN, 5),
              Turn(IDC_PEN_SIZE_SPIN, 7), Choose(IDC_FIRST_DAY, 2), ExpectSpin(IDC_PEN_SIZE_SPIN, 7),
              Choose(IDC_PEN_STYLE, 1), ExpectSpin(IDC_PEN_SIZE_SPIN, 1, false), Choose(IDC_PEN_STYLE, 2),
              ExpectSpin(IDC_PEN_SIZE_SPIN, 1), Turn(IDC_PEN_SIZE_SPIN, 4),
              Turn(IDC_ALARM_OFFSET_SPIN, 32767)});
    EXPECT_EQ(device.NumberSetting(L"PenInfo"), PenInfo(PenStyle::Simple, 40));
    EXPECT_EQ(device.NumberSetting(L"FirstDayOfWeek"), 2u);
    EXPECT_EQ(device.NumberSetting(L"AlarmTimeOffset"), 32767u);
    RunSheet({Choose(IDC_PEN_STYLE, 0), ShowFileNames(), Press(IDC_NOTE_PATTERN_DEFAULT)},
             platform::kIdCancel);
    EXPECT_EQ(device.NumberSetting(L"PenInfo"), PenInfo(PenStyle::Simple, 40)) << "cancelled";
}

// A page that was not shown, and the default, store nothing; an empty pattern is the default.
TEST_F(OptionsSheet, PatternsAreStoredAsTextUnderTheNumberType) {
    const Step toggle = Press(IDC_NOTE_PATTERN_DEFAULT);
    const Step expectHelp = [this] {
        const std::wstring help = Dialog().ItemText(IDC_PATTERN_HELP);
        for (const wchar_t letter : std::wstring(L"fFyYmMdDgGhHisaA"))
            EXPECT_NE(help.find({L'%', letter, L' ', L'-', L' '}), std::wstring::npos) << letter;
    };
    RunSheet({ShowFileNames(), expectHelp, ExpectEdit(IDC_NOTE_PATTERN, L"%F %Y-%m-%d", false),
              ExpectItem(IDC_REMINDER_PATTERN, L"Reminder %f"), toggle,
              ExpectEdit(IDC_NOTE_PATTERN, L"%F %Y-%m-%d", true), ExpectFocus(IDC_NOTE_PATTERN),
              TypeInto(IDC_NOTE_PATTERN, L"%Y")});
    EXPECT_EQ(device.Settings()[L"SaveAs_NoteFN"].type, RegistryType::Number);
    EXPECT_EQ(device.Settings()[L"SaveAs_NoteFN"].data, std::string("%\0Y\0\0\0", 6));
    EXPECT_FALSE(device.HasSetting(L"SaveAs_ReminderFN"));
    RunSheet({ShowFileNames(), ExpectEdit(IDC_NOTE_PATTERN, L"%Y", true), toggle,
              ExpectEdit(IDC_NOTE_PATTERN, L"%F %Y-%m-%d", false)});
    EXPECT_FALSE(device.HasSetting(L"SaveAs_NoteFN"));

    device.SetSetting(L"SaveAs_NoteFN", L"%d");
    RunSheet({});
    EXPECT_TRUE(device.HasSetting(L"SaveAs_NoteFN"));
    RunSheet({ShowFileNames(), TypeInto(IDC_NOTE_PATTERN, L""), Press(IDC_REMINDER_PATTERN_DEFAULT),
              TypeInto(IDC_REMINDER_PATTERN, std::wstring(400, L'x'))});
    EXPECT_FALSE(device.HasSetting(L"SaveAs_NoteFN"));
    EXPECT_EQ(store::Settings::Text(SettingId::SaveAs_ReminderFN), std::wstring(259, L'x'))
        << "what can be read back";
}

}  // namespace
