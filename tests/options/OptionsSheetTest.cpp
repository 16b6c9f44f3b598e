#include "app/store/Settings.h"
#include "options/sheet/COptPageDlg.h"
#include "platform/host/HostWindow.h"
#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::RegistryType;

constexpr wchar_t kNoteDefault[] = L"%F %Y-%m-%d";
enum Page { kMisc, kFileName };

class OptionsSheet : public testing_support::DeskTest {
  protected:
    platform::Dialog& Shown() { return dynamic_cast<platform::Dialog&>(*Desk().Top()); }
    bool Has(const wchar_t* name) { return device.Settings().count(name) != 0; }
    void ThenShow(Page page) {
        Then([this, page] { Desk().ShowPage(page); });
    }
    // Runs the sheet with the script so far and closes it with this button.
    void RunSheet(int button) {
        Then([this, button] { Desk().Command(button); });
        platform::Screen owner(platform::Screen::ScrollBar::None);
        EXPECT_EQ(options::COptPageDlg().RunModal(owner), button == platform::kIdOk);
        EXPECT_FALSE(Desk().StepWaiting());
    }
};

TEST_F(OptionsSheet, EveryStoredPenComesBackAsTheControlsCanShowIt) {
    const struct {
        uint32_t stored;
        int listed;  // place in the list of styles
        uint32_t size;
        bool hasSizes;
        uint32_t storedBack;
    } kCases[] = {
        {0x0002000A, 0, 1, true, 0x0002000A},  {0x00020064, 0, 10, true, 0x00020064},
        {0x0001001E, 1, 1, false, 0x0001000A},  // the classic pen has one size
        {0x0000001E, 2, 3, true, 0x0000001E},  {0x00020019, 0, 2, true, 0x00020014},
        {0xFF07FF3C, 0, 6, true, 0x0002003C},  // other bits, an unknown style
        {0x00020000, 0, 1, true, 0x0002000A},  {0x000000FF, 2, 10, true, 0x00000064},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.stored);
        device.SetSetting(L"PenInfo", c.stored);
        Then([this, &c] {
            EXPECT_EQ(Shown().Choice(IDC_PEN_STYLE), c.listed);
            EXPECT_EQ(Shown().Spin(IDC_PEN_SIZE_SPIN), c.size);
            EXPECT_EQ(Shown().IsItemEnabled(IDC_PEN_SIZE_SPIN), c.hasSizes);
        });
        RunSheet(platform::kIdOk);
        EXPECT_EQ(device.NumberSetting(L"PenInfo"), c.storedBack);
    }
}

TEST_F(OptionsSheet, MiscIsFilledChangedAndStored) {
    device.SetSetting(L"AlarmTimeOffset", 0x10005);
    Then([this] {
        const std::vector<std::wstring> days{L"Monday", L"Tuesday",  L"Wednesday", L"Thursday",
                                             L"Friday", L"Saturday", L"Sunday"};
        EXPECT_EQ(Shown().Handle()->items[IDC_FIRST_DAY].choices, days);
        EXPECT_EQ(Shown().Choice(IDC_FIRST_DAY), 6) << "the locale's, as in the calendar";
        EXPECT_EQ(Shown().Spin(IDC_ALARM_OFFSET_SPIN), 5u) << "the low half of the number";
        Desk().Turn(IDC_PEN_SIZE_SPIN, 7);
        Desk().Choose(IDC_PEN_STYLE, 1);
        EXPECT_EQ(Shown().Spin(IDC_PEN_SIZE_SPIN), 1u);
        EXPECT_FALSE(Shown().IsItemEnabled(IDC_PEN_SIZE_SPIN));
        Desk().Choose(IDC_PEN_STYLE, 2);
        EXPECT_TRUE(Shown().IsItemEnabled(IDC_PEN_SIZE_SPIN));
        Desk().Turn(IDC_PEN_SIZE_SPIN, 4);
        Desk().Choose(IDC_FIRST_DAY, 2);
        Desk().Turn(IDC_ALARM_OFFSET_SPIN, 32767);
    });
    RunSheet(platform::kIdOk);
    EXPECT_EQ(device.NumberSetting(L"PenInfo"), 0x00000028u);
    EXPECT_EQ(device.NumberSetting(L"FirstDayOfWeek"), 2u);
    EXPECT_EQ(device.NumberSetting(L"AlarmTimeOffset"), 32767u);
    EXPECT_EQ(device.Settings()[L"PenInfo"].type, RegistryType::Number);

    device.SetSetting(L"FirstDayOfWeek", 9);
    Then([this] { EXPECT_EQ(Shown().Choice(IDC_FIRST_DAY), -1); });
    RunSheet(platform::kIdOk);
    EXPECT_EQ(device.NumberSetting(L"FirstDayOfWeek"), 0xFFFFFFFFu) << "nothing chosen, stored as it is";
}

TEST_F(OptionsSheet, CancelAndAFailingRegistryStoreNothing) {
    for (const bool fails : {false, true}) {
        device.registryFails = fails;
        Then([this] {
            EXPECT_EQ(Shown().Choice(IDC_PEN_STYLE), 0);
            Desk().Choose(IDC_PEN_STYLE, 2);
        });
        ThenShow(kFileName);
        Then([this] { Desk().Command(IDC_NOTE_PATTERN_DEFAULT); });
        RunSheet(fails ? platform::kIdOk : platform::kIdCancel);
    }
    device.registryFails = false;
    EXPECT_TRUE(device.Settings().empty());
}

TEST_F(OptionsSheet, PatternsAreStoredAsTextUnderTheNumberType) {
    ThenShow(kFileName);
    Then([this] {
        EXPECT_EQ(Shown().ItemText(IDC_NOTE_PATTERN), kNoteDefault);
        EXPECT_EQ(Shown().ItemText(IDC_REMINDER_PATTERN), L"Reminder %f");
        EXPECT_TRUE(Shown().IsItemChecked(IDC_NOTE_PATTERN_DEFAULT));
        EXPECT_FALSE(Shown().IsItemEnabled(IDC_NOTE_PATTERN));
        Desk().Command(IDC_NOTE_PATTERN_DEFAULT);
        EXPECT_TRUE(Shown().IsItemEnabled(IDC_NOTE_PATTERN));
        EXPECT_EQ(Shown().Handle()->focusedItem, IDC_NOTE_PATTERN);
        Desk().Type(IDC_NOTE_PATTERN, L"%Y");
    });
    RunSheet(platform::kIdOk);
    EXPECT_EQ(device.Settings()[L"SaveAs_NoteFN"].type, RegistryType::Number);
    EXPECT_EQ(device.Settings()[L"SaveAs_NoteFN"].data, std::string("%\0Y\0\0\0", 6));
    EXPECT_FALSE(Has(L"SaveAs_ReminderFN"));

    ThenShow(kFileName);
    Then([this] {
        EXPECT_FALSE(Shown().IsItemChecked(IDC_NOTE_PATTERN_DEFAULT));
        EXPECT_EQ(Shown().ItemText(IDC_NOTE_PATTERN), L"%Y");
        Desk().Command(IDC_NOTE_PATTERN_DEFAULT);
        EXPECT_EQ(Shown().ItemText(IDC_NOTE_PATTERN), kNoteDefault);
        EXPECT_FALSE(Shown().IsItemEnabled(IDC_NOTE_PATTERN));
    });
    RunSheet(platform::kIdOk);
    EXPECT_FALSE(Has(L"SaveAs_NoteFN")) << "the default is no setting";
}

TEST_F(OptionsSheet, AnEmptyPatternIsTheDefaultAndAnUnseenPageKeepsItsOwn) {
    device.SetSetting(L"SaveAs_NoteFN", L"%d");
    device.SetSetting(L"SaveAs_ReminderFN", L"%m");
    RunSheet(platform::kIdOk);
    EXPECT_EQ(store::Settings::Text(store::SettingId::SaveAs_NoteFN), L"%d");
    ThenShow(kFileName);
    Then([this] { Desk().Type(IDC_NOTE_PATTERN, L""); });
    RunSheet(platform::kIdOk);
    EXPECT_FALSE(Has(L"SaveAs_NoteFN"));
    EXPECT_EQ(store::Settings::Text(store::SettingId::SaveAs_ReminderFN), L"%m");
}

TEST_F(OptionsSheet, APatternGrowsNoLongerThanCanBeReadBack) {
    ThenShow(kFileName);
    Then([this] {
        Desk().Command(IDC_REMINDER_PATTERN_DEFAULT);
        Desk().Type(IDC_REMINDER_PATTERN, std::wstring(400, L'x'));
    });
    RunSheet(platform::kIdOk);
    EXPECT_EQ(store::Settings::Text(store::SettingId::SaveAs_ReminderFN), std::wstring(259, L'x'));
}

TEST_F(OptionsSheet, TheHelpNamesEveryFormatCharacter) {
    ThenShow(kFileName);
    Then([this] {
        const std::wstring help = Shown().ItemText(IDC_PATTERN_HELP);
        for (const wchar_t letter : std::wstring(L"fFyYmMdDgGhHisaA")) {
            EXPECT_NE(help.find(std::wstring(L"%") + letter + L" - "), std::wstring::npos) << letter;
        }
        EXPECT_NE(help.find(L"%A - AM or PM\r\n\r\n[*] Disallowed Characters : \\ / : * ? \" < > |\r\n("),
                  std::wstring::npos);
        EXPECT_EQ(help.substr(help.size() - 4), L".)\r\n");
        EXPECT_EQ(Shown().Handle()->items[IDC_PATTERN_HELP].margins, 5);
    });
    RunSheet(platform::kIdOk);
}

}  // namespace
