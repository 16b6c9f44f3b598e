// Tool bars, dialogs, pop-ups, menus and message boxes.
#include "platform/FileSystem.h"
#include "platform/Popup.h"
#include "platform/PopupMenu.h"
#include "res/resource.h"
#include "tests/contract/Recording.h"

namespace contract {

namespace {

using platform::DateTime;
using platform::Dialog;
using platform::EditAction;
using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;
using platform::Popup;
using platform::Rect;
using platform::Screen;
using testing::ElementsAre;
using TestScreen = Recording<Screen>;
using TestDialog = Recording<Dialog>;

const platform::ToolBarLayout kTools{
    IDB_EDITOR_TOOLS,
    12,
    14,
    {{IDM_NEW_NOTE, L"New"}, {0, nullptr}, {IDM_PEN, L"Pen"}, {IDM_ERASER, L"Eraser"}}};

TEST_F(WindowContract, ToolBarStates) {
    TestScreen screen(Screen::ScrollBar::Vertical);
    EXPECT_FALSE(screen.Tools().IsEnabled(IDM_PEN)) << "there is no tool bar yet";
    Run(screen, [&] {
        ASSERT_TRUE(screen.CreateMenuBar(kTools));
        platform::ToolBar& tools = screen.Tools();
        EXPECT_TRUE(tools.HasButton(IDM_PEN));
        EXPECT_FALSE(tools.HasButton(IDM_TOOLS));
        EXPECT_TRUE(tools.IsEnabled(IDM_PEN));
        tools.SetChecked(IDM_PEN, true);
        tools.SetPressed(IDM_PEN, true);
        tools.SetEnabled(IDM_PEN, false);
        EXPECT_TRUE(tools.IsChecked(IDM_PEN) && tools.IsPressed(IDM_PEN) && !tools.IsEnabled(IDM_PEN));
        EXPECT_FALSE(tools.IsChecked(IDM_ERASER));
        tools.SetChecked(IDM_PEN, false);
        EXPECT_TRUE(!tools.IsChecked(IDM_PEN) && tools.IsPressed(IDM_PEN)) << "only the one state changes";
        tools.SetChecked(IDM_TOOLS, true);
        EXPECT_FALSE(tools.IsChecked(IDM_TOOLS));
        EXPECT_FALSE(tools.IsEnabled(IDM_TOOLS));
    });
}

TEST_F(WindowContract, ToolBarButtonsAreCommands) {
    TestScreen screen(Screen::ScrollBar::Vertical);
    screen.command = [](int) {};
    Run(
        screen, [&] { ASSERT_TRUE(screen.CreateMenuBar(kTools)); },
        [&] { driver_.PressTool(screen, IDM_ERASER); }, [&] { screen.Tools().SetEnabled(IDM_PEN, false); },
        [&] { driver_.PressTool(screen, IDM_PEN); }, [&] { driver_.PressTool(screen, IDM_NEW_NOTE); });
    EXPECT_THAT(screen.log, ElementsAre("command 32709", "command 32701", "destroy"));
}

// Runs a dialog with the steps; a dialog that they leave open is ended with 100.
template <typename... Steps>
int RunDialog(Driver& driver, TestDialog& dialog, Steps... steps) {
    (driver.Then(steps), ...);
    return dialog.RunModal(nullptr);
}

TEST_F(WindowContract, DialogsComeFromTheResources) {
    Recording<Dialog> dialog(IDD_SAVE_AS);
    const int result = RunDialog(driver_, dialog, [&] {
        EXPECT_EQ(dialog.Title(), L" Inkwright - Save As");
        EXPECT_EQ(dialog.ItemText(platform::kIdOk), L"OK");
        EXPECT_EQ(dialog.ItemText(IDC_FILE_NAME), L"");
        EXPECT_EQ(dialog.ItemText(4711), L"");
        EXPECT_FALSE(dialog.IsItemEnabled(4711));
        dialog.SetItemText(4711, L"x");
        dialog.SetItemText(IDC_FILE_NAME, L"A & B \u00BB");
        EXPECT_EQ(dialog.ItemText(IDC_FILE_NAME), L"A & B \u00BB");
        dialog.EndModal(7);
    });
    EXPECT_EQ(result, 7);
    EXPECT_THAT(dialog.log, ElementsAre("destroy")) << "what the program fills in is no change by the user";
}

TEST_F(WindowContract, DialogsReportWhatTheUserDoes) {
    TestDialog dialog(IDD_SAVE_AS);
    dialog.command = [&](int id) {
        if (id == platform::kIdOk) dialog.EndModal(3);
    };
    const int result = RunDialog(
        driver_, dialog, [&] { driver_.Type(dialog, IDC_FILE_NAME, L"Meeting"); },
        [&] { EXPECT_EQ(dialog.ItemText(IDC_FILE_NAME), L"Meeting"); },
        [&] { driver_.PressButton(dialog, IDC_DEFAULT_NAME); },
        [&] { dialog.EnableItem(IDC_DEFAULT_NAME, false); },
        [&] {
            EXPECT_FALSE(dialog.IsItemEnabled(IDC_DEFAULT_NAME));
            driver_.PressButton(dialog, IDC_DEFAULT_NAME);
        },
        [&] { driver_.Press(dialog, platform::Key::Escape); }, [&] { driver_.Close(dialog); },
        [&] { driver_.PressButton(dialog, platform::kIdOk); });
    EXPECT_EQ(result, 3);
    std::vector<std::string> log;
    for (const std::string& event : dialog.log) {
        if (event.compare(0, 2, "ch") == 0 || event.compare(0, 2, "co") == 0) log.push_back(event);
    }
    EXPECT_THAT(log, ElementsAre("changed 1026", "command 1029", "command 2", "command 2", "command 1"));
}

TEST_F(WindowContract, DialogsEndByThemselves) {
    for (const int id : {platform::kIdOk, platform::kIdCancel}) {
        Dialog dialog(IDD_ALARM_TIME);
        driver_.Then([&] { driver_.PressButton(dialog, id); });
        EXPECT_EQ(dialog.RunModal(nullptr), id);
    }
}

TEST_F(WindowContract, PickersKeepTheirMoments) {
    TestDialog dialog(IDD_ALARM_TIME);
    RunDialog(driver_, dialog, [&] {
        dialog.SetPicked(IDC_ALARM_DATE, {2007, 3, 4, 15, 0, 0, 0, 0});
        dialog.SetPicked(IDC_ALARM_TIME, {2007, 3, 4, 15, 20, 30, 5, 0});
        const DateTime date = dialog.PickedDate(IDC_ALARM_DATE);
        const DateTime time = dialog.PickedTime(IDC_ALARM_TIME);
        EXPECT_EQ(date.year * 10000 + date.month * 100 + date.day, 20070315);
        EXPECT_EQ(date.dayOfWeek, 4);
        EXPECT_EQ(time.hour * 10000 + time.minute * 100 + time.second, 203005);
        dialog.SetPicked(IDC_ALARM_DATE, {2007, 2, 0, 30, 0, 0, 0, 0});
        EXPECT_EQ(dialog.PickedDate(IDC_ALARM_DATE).day, 15) << "there is no such day";
        EXPECT_EQ(dialog.PickedDate(4711).year, 0);
        dialog.EndModal(1);
    });
    EXPECT_THAT(dialog.log, ElementsAre("destroy"));
}

TEST_F(WindowContract, MonthCalendars) {
    TestDialog dialog(IDD_DATE_PICKER);
    dialog.command = [&](int id) { dialog.EndModal(id); };
    const int result = RunDialog(
        driver_, dialog,
        [&] {
            dialog.SetPicked(IDC_MONTH_CALENDAR, {2007, 3, 4, 15, 0, 0, 0, 0});
            const DateTime date = dialog.PickedDate(IDC_MONTH_CALENDAR);
            EXPECT_EQ(date.year * 10000 + date.month * 100 + date.day, 20070315);
            dialog.SetPicked(IDC_MONTH_CALENDAR, {2007, 2, 0, 30, 0, 0, 0, 0});
            EXPECT_EQ(dialog.PickedDate(IDC_MONTH_CALENDAR).day, 15) << "there is no such day";
            for (const int day : {0, 3, 6, 7, -1}) {
                dialog.SetFirstDayOfWeek(IDC_MONTH_CALENDAR, day);
                const int shown = driver_.FirstDayShown(dialog, IDC_MONTH_CALENDAR);
                EXPECT_THAT(shown, testing::AnyOf(-1, day == 7 || day == -1 ? 6 : day));
            }
            dialog.SetFirstDayOfWeek(platform::kIdOk, 2);
            EXPECT_EQ(dialog.ItemText(platform::kIdOk), L"OK");
        },
        [&] { driver_.DoubleTapDay(dialog, IDC_MONTH_CALENDAR); });
    EXPECT_EQ(result, platform::kIdOk);
    EXPECT_THAT(dialog.log, ElementsAre("command 1", "destroy"));
}

TEST_F(WindowContract, DialogsCanBePlaced) {
    TestDialog dialog(IDD_ALARM_TIME);
    dialog.create = [&] {
        dialog.Place({20, 30, 220, 150});
        return true;
    };
    RunDialog(driver_, dialog, [&] {
        EXPECT_TRUE((dialog.WindowRect() == Rect{20, 30, 220, 150}));
        const Rect picker = dialog.ItemRect(IDC_ALARM_DATE);
        const Rect button = dialog.ItemRect(platform::kIdOk);
        EXPECT_TRUE((ink::Intersect(picker, dialog.WindowRect()) == picker));
        EXPECT_GT(button.top, picker.bottom);
        EXPECT_TRUE(dialog.ItemRect(4711).IsEmpty());
        dialog.EndModal(1);
    });
}

class EditingDialog : public TestDialog {
  public:
    EditingDialog() : TestDialog(IDD_TEXT_MEMO) {}
    void OnEditHold(int id, platform::Point place) override {
        log.push_back("hold " + std::to_string(id));
        held = place;
    }
    std::string Offered() const {
        std::string offered;
        for (const char* letter = "UCYPDA"; *letter != 0; ++letter)
            offered += CanEdit(IDC_MEMO_TEXT, static_cast<EditAction>(offered.size())) ? *letter : '-';
        return offered;
    }
    void Do(EditAction action) { Edit(IDC_MEMO_TEXT, action); }
    std::wstring Text() const { return ItemText(IDC_MEMO_TEXT); }
    platform::Point held;
};

TEST_F(WindowContract, EditsOfManyLines) {
    EditingDialog dialog;
    const Rect place{6, 26, 204, 141};
    EXPECT_FALSE(dialog.MakeTextEdit(IDC_MEMO_TEXT, place, true)) << "there is no window yet";
    dialog.create = [&] {
        dialog.Place({20, 52, 230, 222});
        return dialog.MakeTextEdit(IDC_MEMO_TEXT, place, true);
    };
    RunDialog(
        driver_, dialog,
        [&] {
            EXPECT_EQ(dialog.ClientWidth(), 210);
            EXPECT_EQ(dialog.ClientHeight(), 170);
            dialog.PlaceItem(IDC_MEMO_SAVE, {100, 145, 150, 165});
            EXPECT_TRUE((dialog.ItemRect(IDC_MEMO_SAVE) == Rect{120, 197, 170, 217}));
            EXPECT_TRUE((dialog.ItemRect(IDC_MEMO_TEXT) == Rect{26, 78, 224, 193}));
            std::wstring longText;
            for (int i = 0; i < 20000; ++i) longText += L"many words of text\r\n";
            for (const std::wstring& text :
                 {longText, std::wstring(L"a\nb\rc\r\n\td \u20AC"), std::wstring()}) {
                dialog.SetItemText(IDC_MEMO_TEXT, text);
                EXPECT_EQ(dialog.Text(), text);
                EXPECT_TRUE(dialog.MakeTextEdit(IDC_MEMO_TEXT, place, text.empty()));
                EXPECT_EQ(dialog.Text(), text) << "it is carried over";
            }
            EXPECT_EQ(dialog.Offered().substr(4), "--");
            EXPECT_FALSE(dialog.CanEdit(IDC_MEMO_SAVE, EditAction::Cut));
            EXPECT_FALSE(dialog.CanEdit(4711, EditAction::Undo));
            dialog.SetItemText(IDC_MEMO_TEXT, L"one two");
            driver_.SelectText(dialog, IDC_MEMO_TEXT, 0, 4);
            dialog.Do(EditAction::Cut);
            EXPECT_EQ(dialog.Text(), L"two");
            EXPECT_EQ(dialog.Offered(), "U--P-A");
            dialog.Do(EditAction::Undo);
            EXPECT_EQ(dialog.Text(), L"one two");
            dialog.Do(EditAction::SelectAll);
            EXPECT_EQ(dialog.Offered(), "UCYPDA");
            dialog.Do(EditAction::Delete);
            EXPECT_EQ(dialog.Text(), L"");
            dialog.Do(EditAction::Paste);
            dialog.Do(EditAction::SelectAll);
            dialog.Do(EditAction::Copy);
            dialog.Do(EditAction::Paste);
            dialog.Do(EditAction::Paste);
            EXPECT_EQ(dialog.Text(), L"one one ");
            dialog.log.clear();
        },
        [&] { driver_.HoldEdit(dialog, IDC_MEMO_TEXT); },
        [&] {
            EXPECT_EQ(dialog.held, (platform::Point{125, 135}));
            dialog.FocusItem(IDC_MEMO_TEXT);
            EXPECT_FALSE(dialog.CanEdit(IDC_MEMO_TEXT, EditAction::Cut)) << "nothing is selected unasked";
            dialog.EndModal(1);
        });
    EXPECT_THAT(dialog.log, ElementsAre("hold 1016", "destroy"));
}

class RecordingPage : public Recording<platform::PropertyPage> {
  public:
    using Recording::Recording;
    void OnApply() override { log.emplace_back("apply"); }
};

TEST_F(WindowContract, PropertyDialogsShowTheirPages) {
    for (const int button : {platform::kIdOk, platform::kIdCancel}) {
        RecordingPage first(IDD_OPTIONS_MISC);
        RecordingPage second(IDD_OPTIONS_FILE_NAME);
        RecordingPage unseen(IDD_OPTIONS_MISC);
        second.create = [&second] {
            second.log.emplace_back("create");
            return true;
        };
        second.command = [](int) {};
        driver_.Then([&] { EXPECT_TRUE(second.log.empty()) << "nobody has seen it"; });
        driver_.Then([&] { driver_.ShowPage(first, 1); });
        driver_.Then([&] { driver_.PressButton(second, IDC_NOTE_PATTERN_DEFAULT); });
        driver_.Then([&] {
            EXPECT_TRUE(second.IsItemChecked(IDC_NOTE_PATTERN_DEFAULT));
            second.CheckItem(IDC_NOTE_PATTERN_DEFAULT, false);
            EXPECT_FALSE(second.IsItemChecked(IDC_NOTE_PATTERN_DEFAULT));
        });
        driver_.Then([&] { driver_.ShowPage(second, 0); });
        driver_.Then([&] { driver_.PressButton(first, button); });
        const int result = platform::PropertyDialog(L"Pages", {&first, &second, &unseen}).RunModal(nullptr);
        EXPECT_EQ(result, button);
        std::vector<std::string> log{"create", "command 1033", "apply", "destroy"};
        if (button == platform::kIdCancel) log.erase(log.begin() + 2);
        EXPECT_EQ(second.log, log);
        EXPECT_TRUE(unseen.log.empty());
        EXPECT_FALSE(first.Exists());
    }
}

TEST_F(WindowContract, ListsAndSpinButtons) {
    RecordingPage page(IDD_OPTIONS_MISC);
    driver_.Then([&] {
        page.SetChoices(IDC_PEN_STYLE, {L"b", L"a", L"c"});
        EXPECT_EQ(page.Choice(IDC_PEN_STYLE), -1);
        for (const int index : {2, 3, 0, -1, 1}) {
            page.Choose(IDC_PEN_STYLE, index);
            EXPECT_EQ(page.Choice(IDC_PEN_STYLE), index < 3 ? index : -1);
        }
        page.SetSpinRange(IDC_PEN_SIZE_SPIN, 1, 10);
        page.SetSpinRange(IDC_ALARM_OFFSET_SPIN, 0, 32767);
        for (const auto& [set, got] : {std::pair{0, 1u}, {7, 7u}, {11, 10u}}) {
            page.SetSpin(IDC_PEN_SIZE_SPIN, static_cast<int16_t>(set));
            EXPECT_EQ(page.Spin(IDC_PEN_SIZE_SPIN), got);
        }
        for (const auto& [set, got] : {std::pair{32767, 32767u}, {-1, 0u}, {1234, 1234u}}) {
            page.SetSpin(IDC_ALARM_OFFSET_SPIN, static_cast<int16_t>(set));
            EXPECT_EQ(page.Spin(IDC_ALARM_OFFSET_SPIN), got);
        }
        page.SetItemMargins(4711, 5);
        EXPECT_EQ(page.Choice(4711), -1);
        EXPECT_FALSE(page.IsItemChecked(4711));
        EXPECT_TRUE(page.log.empty()) << "what the program fills in is no change by the user";
        driver_.Choose(page, IDC_PEN_STYLE, 2);
        EXPECT_EQ(page.Choice(IDC_PEN_STYLE), 2);
    });
    driver_.Then([&] { driver_.PressButton(page, platform::kIdOk); });
    platform::PropertyDialog(L"Pages", {&page}).RunModal(nullptr);
    EXPECT_THAT(page.log, ElementsAre("changed 1021", "apply", "destroy"));
}

TEST_F(WindowContract, PopUps) {
    TestScreen screen(Screen::ScrollBar::Vertical);
    Recording<Popup> popup;
    std::vector<int> results;
    int width = 0;
    int height = 0;
    popup.create = [&] {
        width = popup.ClientWidth();
        height = popup.ClientHeight();
        return true;
    };
    screen.command = [&](int) {
        results.push_back(popup.RunModal(&screen, L"Colours", {200, 300}, 120, 80));
    };
    Run(
        screen, [&] { screen.PostCommand(1); },
        [&] {
            driver_.PenDown(popup, {119, 79});
        },
        [&] {
            driver_.PenUp(popup, {119, 79});
        },
        [&] { popup.EndModal(8); }, [&] { screen.PostCommand(1); },
        [&] { driver_.Press(popup, platform::Key::Escape); });
    // By itself it takes what another copy sends to close windows as a refusal to choose.
    Popup plain;
    screen.command = [&](int) { results.push_back(plain.RunModal(&screen, L"", {200, 300}, 120, 80)); };
    Run(
        screen, [&] { screen.PostCommand(1); }, [&] { plain.PostCommand(platform::kIdOk); });
    EXPECT_EQ(width, 120);
    EXPECT_EQ(height, 80);
    EXPECT_THAT(results, ElementsAre(8, platform::kIdCancel, platform::kIdCancel));
    EXPECT_THAT(popup.log,
                ElementsAre("down 119 79", "up 119 79", "destroy", "key 9", "command 2", "destroy"));
}

TEST_F(WindowContract, Menus) {
    const auto choose = [this](int command) {
        TestScreen screen(Screen::ScrollBar::Vertical);
        int chosen = -1;
        screen.command = [&](int) {
            platform::PopupMenu menu;
            menu.Add(32911, L"Edit Text Memo");
            menu.Add(32908, L"Set Alarm and Exit", false);
            menu.AddSeparator();
            menu.Add(32913, L"Pens & Paper");
            driver_.ChooseFromMenu(command);
            const platform::ScreenSize handheld = platform::HandheldScreen();
            chosen = menu.Choose(screen, {handheld.width - 20, handheld.height - 20});
            screen.EndModal(1);
        };
        driver_.Then([&screen] { screen.PostCommand(1); });
        screen.RunModal(nullptr);
        return chosen;
    };
    EXPECT_EQ(choose(32913), 32913);
    EXPECT_EQ(choose(32911), 32911);
    EXPECT_EQ(choose(0), 0);
    const auto& items = driver_.MenuItems();
    ASSERT_GE(items.size(), 4u);
    EXPECT_EQ(items[1].text, L"Set Alarm and Exit");
    EXPECT_EQ(items[3].text, L"Pens & Paper");
    EXPECT_TRUE(items[0].enabled && !items[1].enabled && items[3].enabled);
    EXPECT_EQ(items[2].command, 0);
}

TEST_F(WindowContract, MenusWithinMenus) {
    platform::PopupMenu inner;
    inner.Add(37002, L"Inner");
    inner.Add(37003, L"Inner too", false);
    platform::PopupMenu middle;
    middle.Add(37001, L"Middle");
    middle.AddSubmenu(L"More", inner);
    for (const int command : {37000, 37001, 37002, 0}) {
        TestScreen screen(Screen::ScrollBar::None);
        int chosen = -1;
        screen.command = [&](int) {
            platform::PopupMenu menu;
            menu.Add(37000, L"Outer");
            menu.AddSubmenu(L"R&D && more", middle);
            driver_.ChooseFromMenu(command);
            chosen = menu.Choose(screen, {60, 60});
            screen.EndModal(1);
        };
        driver_.Then([&screen] { screen.PostCommand(1); });
        screen.RunModal(nullptr);
        EXPECT_EQ(chosen, command);
    }
    const auto& items = driver_.MenuItems();
    ASSERT_GE(items.size(), 2u);
    EXPECT_EQ(items[1].text, L"R&D && more");
    ASSERT_TRUE(items[1].submenu != nullptr);
    ASSERT_EQ(items[1].submenu->Items().size(), 2u);
    EXPECT_EQ(items[1].submenu->Items()[0].text, L"Middle");
}

TEST_F(WindowContract, FoldersAreChosen) {
    ASSERT_TRUE(platform::MakeFolder(L"\\Notes") && platform::MakeFolder(L"\\Notes\\Old ones"));
    TestScreen screen(Screen::ScrollBar::None);
    std::vector<std::wstring> folders;
    screen.command = [&](int) {
        std::wstring chosen = L"unchanged";
        const bool answered = platform::ChooseFolder(&screen, L"Note folder", L"\\Notes", chosen);
        folders.push_back(answered ? chosen : L"none");
        screen.EndModal(1);
    };
    for (const wchar_t* folder : {L"\\Notes\\Old ones", L"\\My Documents", L""}) {
        driver_.ChooseFolder(folder);
        driver_.Then([&screen] { screen.PostCommand(1); });
        screen.RunModal(nullptr);
    }
    EXPECT_THAT(folders, ElementsAre(L"\\Notes\\Old ones", L"\\My Documents", L"none"));
}

TEST_F(WindowContract, MessageAnswers) {
    const struct {
        MessageButtons buttons;
        MessageAnswer answer;
        platform::DefaultButton defaultButton;
        MessageAnswer counted;  // what it means when it is not on the box
    } kCases[] = {
        {MessageButtons::Ok, MessageAnswer::Ok, platform::DefaultButton::First, MessageAnswer::Ok},
        {MessageButtons::YesNo, MessageAnswer::Yes, platform::DefaultButton::First, MessageAnswer::Yes},
        {MessageButtons::YesNo, MessageAnswer::No, platform::DefaultButton::Second, MessageAnswer::No},
        {MessageButtons::YesNo, MessageAnswer::Ok, platform::DefaultButton::First, MessageAnswer::No},
        {MessageButtons::YesNoCancel, MessageAnswer::Yes, platform::DefaultButton::First, MessageAnswer::Yes},
        {MessageButtons::YesNoCancel, MessageAnswer::Cancel, platform::DefaultButton::First,
         MessageAnswer::Cancel},
        {MessageButtons::YesNoCancel, MessageAnswer::Ok, platform::DefaultButton::First,
         MessageAnswer::Cancel}};
    for (const auto& each : kCases) {
        driver_.Answer(each.answer);
        const MessageAnswer got =
            platform::ShowMessage(nullptr, L"Saving failed!\nDiscard changes?", L" Error", each.buttons,
                                  MessageIcon::Error, each.defaultButton);
        EXPECT_EQ(got, each.counted);
        ASSERT_FALSE(driver_.Messages().empty());
        const SeenMessage& seen = driver_.Messages().back();
        EXPECT_EQ(seen.text, L"Saving failed!\nDiscard changes?");
        EXPECT_EQ(seen.caption, L" Error") << "the leading blank is part of it";
        EXPECT_EQ(seen.defaultButton, each.defaultButton);
    }
}

TEST_F(WindowContract, MessagesOverAScreen) {
    TestScreen screen(Screen::ScrollBar::None);
    MessageAnswer got = MessageAnswer::Cancel;
    screen.command = [&](int id) {
        got = platform::ShowMessage(&screen, L"Continue?", L" Confirm", MessageButtons::YesNo,
                                    MessageIcon::Question);
        screen.EndModal(id);
    };
    driver_.Answer(MessageAnswer::Yes);
    driver_.Then([&] { screen.PostCommand(6); });
    EXPECT_EQ(screen.RunModal(nullptr), 6);
    EXPECT_EQ(got, MessageAnswer::Yes);
}

}  // namespace

}  // namespace contract
