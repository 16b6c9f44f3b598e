// Tool bars, dialogs, pop-ups, menus and message boxes.
#include <algorithm>

#include "platform/FileSystem.h"
#include "platform/PropertyDialog.h"
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
using testing_support::Hand;

class ControlContract : public Contract {};

TEST_F(ControlContract, ToolBars) {
    const platform::ToolBarLayout layout{
        IDB_EDITOR_TOOLS,
        12,
        14,
        {{IDM_NEW_NOTE, L"New"}, {0, nullptr}, {IDM_PEN, L"Pen"}, {IDM_ERASER, L"Eraser"}}};
    TestScreen screen(Screen::ScrollBar::Vertical);
    screen.command = [](int) {};
    platform::ToolBar& tools = screen.Tools();
    Run(screen, {[&] {
                     tools.SetEnabled(IDM_PEN, false);  // there is no tool bar yet
                     ASSERT_TRUE(screen.CreateMenuBar(layout));
                     EXPECT_TRUE(hand_.Tool(IDM_PEN).enabled && !hand_.Tool(IDM_TOOLS).enabled);
                     tools.SetChecked(IDM_PEN, true);
                     tools.SetPressed(IDM_PEN, true);
                     tools.SetEnabled(IDM_PEN, false);
                     const auto [checked, pressed, enabled] = hand_.Tool(IDM_PEN);
                     EXPECT_TRUE(checked && pressed && !enabled);
                     tools.SetChecked(IDM_PEN, false);
                     EXPECT_TRUE(!hand_.Tool(IDM_PEN).checked && hand_.Tool(IDM_PEN).pressed);
                     tools.SetChecked(IDM_TOOLS, true);
                     EXPECT_FALSE(hand_.Tool(IDM_TOOLS).checked);
                 },
                 Press(IDM_ERASER), Press(IDM_PEN), Press(IDM_NEW_NOTE)});
    EXPECT_THAT(screen.log, ElementsAre("command 32709", "command 32701", "destroy"));
}

TEST_F(ControlContract, DialogsTellWhatTheUserDoesAndNotWhatTheProgramFillsIn) {
    TestDialog dialog(IDD_SAVE_AS);
    dialog.create = [&] {
        dialog.Place({20, 30, 220, 150});
        return true;
    };
    dialog.command = [&](int id) {
        if (id == platform::kIdOk) dialog.EndModal(3);
    };
    const int result = RunDialog(
        dialog, {ExpectTitle(L" Inkwright - Save As"),
                 [&] {
                     EXPECT_TRUE((dialog.WindowRect() == Rect{20, 30, 220, 150}));
                     EXPECT_TRUE(dialog.ItemRect(4711).IsEmpty() && dialog.ItemText(4711).empty());
                     dialog.SetItemText(IDC_FILE_NAME, L"A & B \u00BB");
                     EXPECT_EQ(dialog.ItemText(IDC_FILE_NAME), L"A & B \u00BB");
                 },
                 TypeInto(IDC_FILE_NAME, L"Meeting"), Press(IDC_DEFAULT_NAME),
                 [&] { dialog.EnableItem(IDC_DEFAULT_NAME, false); }, Press(IDC_DEFAULT_NAME),
                 Press(platform::Key::Escape), Do(&Hand::PressClose),
                 [&] { EXPECT_EQ(dialog.ItemText(IDC_FILE_NAME), L"Meeting"); }, Press(platform::kIdOk)});
    EXPECT_EQ(result, 3);
    // A port may give the dialog keys and taps that its controls did not use.
    std::vector<std::string> log;
    std::copy_if(dialog.log.begin(), dialog.log.end(), std::back_inserter(log),
                 [](const std::string& event) { return event.front() == 'c'; });
    EXPECT_THAT(log, ElementsAre("changed 1026", "command 1029", "command 2", "command 2", "command 1"));
}

TEST_F(ControlContract, PickersAndCalendars) {
    const auto number = [](int a, int b, int c) { return a * 10000 + b * 100 + c; };
    const DateTime moment{2007, 3, 4, 15, 20, 30, 5, 0};
    TestDialog pickers(IDD_ALARM_TIME);
    pickers.command = [&](int id) { pickers.EndModal(id); };
    EXPECT_EQ(RunDialog(pickers,
                        {[&] {
                             pickers.SetPicked(IDC_ALARM_DATE, moment);
                             pickers.SetPicked(IDC_ALARM_TIME, moment);
                             pickers.SetPicked(IDC_ALARM_DATE, {2007, 2, 0, 30, 0, 0, 0, 0});  // no such day
                             const DateTime date = pickers.PickedDate(IDC_ALARM_DATE);
                             const DateTime time = pickers.PickedTime(IDC_ALARM_TIME);
                             EXPECT_EQ(number(date.year, date.month, date.day), 20070315);
                             EXPECT_EQ(date.dayOfWeek, 4);
                             EXPECT_EQ(number(time.hour, time.minute, time.second), 203005);
                             EXPECT_EQ(pickers.PickedDate(4711).year, 0);
                         },
                         Press(platform::kIdCancel)}),
              platform::kIdCancel);
    EXPECT_THAT(pickers.log, ElementsAre("command 2", "destroy"));

    Dialog calendar(IDD_DATE_PICKER);
    EXPECT_EQ(RunDialog(calendar, {[&] {
                                       calendar.SetPicked(IDC_MONTH_CALENDAR, moment);
                                       const DateTime date = calendar.PickedDate(IDC_MONTH_CALENDAR);
                                       EXPECT_EQ(number(date.year, date.month, date.day), 20070315);
                                       for (const int day : {0, 3, 6, 7, -1}) {
                                           calendar.SetFirstDayOfWeek(IDC_MONTH_CALENDAR, day);
                                           EXPECT_THAT(device_.FirstDayShown(IDC_MONTH_CALENDAR),
                                                       testing::AnyOf(-1, day == 7 || day == -1 ? 6 : day));
                                       }
                                   },
                                   Do(&Hand::DoubleTapDay, IDC_MONTH_CALENDAR)}),
              platform::kIdOk);
}

class EditingDialog : public TestDialog {
  public:
    EditingDialog() : TestDialog(IDD_TEXT_MEMO) {
        create = [this] {
            Place({20, 52, 230, 222});
            return MakeTextEdit(IDC_MEMO_TEXT, kEdit, true);
        };
    }
    void OnEditHold(int id, platform::Point place) override {
        log.push_back("hold " + std::to_string(id) + " " + std::to_string(place.x) + " " +
                      std::to_string(place.y));
    }
    std::string Offered() const {
        std::string offered;
        for (const char* letter = "UCYPDA"; *letter != 0; ++letter)
            offered += CanEdit(IDC_MEMO_TEXT, static_cast<EditAction>(offered.size())) ? *letter : '-';
        return offered;
    }
    // Does one action after another and tells the text after the last.
    std::wstring After(const std::vector<EditAction>& actions) {
        for (const EditAction action : actions) Edit(IDC_MEMO_TEXT, action);
        return ItemText(IDC_MEMO_TEXT);
    }
    static constexpr Rect kEdit{6, 26, 204, 141};
};

TEST_F(ControlContract, EditsOfManyLines) {
    EditingDialog dialog;
    RunDialog(dialog,
              {[&] {
                   EXPECT_EQ(dialog.ClientWidth() * 1000 + dialog.ClientHeight(), 210170);
                   dialog.PlaceItem(IDC_MEMO_SAVE, {100, 145, 150, 165});
                   EXPECT_TRUE((dialog.ItemRect(IDC_MEMO_SAVE) == Rect{120, 197, 170, 217}));
                   EXPECT_TRUE((dialog.ItemRect(IDC_MEMO_TEXT) == Rect{26, 78, 224, 193}));
                   std::wstring longText;
                   for (int i = 0; i < 20000; ++i) longText += L"many words of text\r\n";
                   for (const std::wstring& text :
                        {longText, std::wstring(L"a\nb\rc\r\n\td \u20AC"), std::wstring()}) {
                       dialog.SetItemText(IDC_MEMO_TEXT, text);
                       EXPECT_TRUE(dialog.MakeTextEdit(IDC_MEMO_TEXT, EditingDialog::kEdit, text.empty()));
                       EXPECT_EQ(dialog.ItemText(IDC_MEMO_TEXT), text) << "it is carried over";
                   }
                   EXPECT_EQ(dialog.Offered().substr(4), "--");
                   EXPECT_FALSE(dialog.CanEdit(IDC_MEMO_SAVE, EditAction::Cut));
                   dialog.SetItemText(IDC_MEMO_TEXT, L"one two");
                   hand_.Select(IDC_MEMO_TEXT, 0, 4);
                   EXPECT_EQ(dialog.After({EditAction::Cut}), L"two");
                   EXPECT_EQ(dialog.Offered(), "U--P-A");
                   EXPECT_EQ(dialog.After({EditAction::Undo, EditAction::SelectAll}), L"one two");
                   EXPECT_EQ(dialog.Offered(), "UCYPDA");
                   EXPECT_EQ(dialog.After({EditAction::Delete}), L"");
                   EXPECT_EQ(dialog.After({EditAction::Paste, EditAction::SelectAll, EditAction::Copy,
                                           EditAction::Paste, EditAction::Paste}),
                             L"one one ");
                   dialog.log.clear();
               },
               Do(&Hand::HoldEdit, IDC_MEMO_TEXT), [&] { dialog.EndModal(1); }});
    EXPECT_THAT(dialog.log, ElementsAre("hold 1016 125 135", "destroy"));
}

class RecordingPage : public Recording<platform::PropertyPage> {
  public:
    using Recording::Recording;
    void OnApply() override { log.emplace_back("apply"); }
};

TEST_F(ControlContract, PropertyDialogsShowTheirPages) {
    for (const int button : {platform::kIdOk, platform::kIdCancel}) {
        RecordingPage first(IDD_OPTIONS_MISC);
        RecordingPage second(IDD_OPTIONS_FILE_NAME);
        RecordingPage unseen(IDD_OPTIONS_MISC);
        second.command = [](int) {};
        Play({[&] { EXPECT_FALSE(second.Exists()) << "nobody has seen it"; }, Do(&Hand::ShowPage, size_t{1}),
              Press(IDC_NOTE_PATTERN_DEFAULT),
              [&] {
                  EXPECT_TRUE(second.IsItemChecked(IDC_NOTE_PATTERN_DEFAULT));
                  second.CheckItem(IDC_NOTE_PATTERN_DEFAULT, false);
                  EXPECT_FALSE(second.IsItemChecked(IDC_NOTE_PATTERN_DEFAULT));
              },
              Do(&Hand::ShowPage, size_t{0}), Press(button)});
        EXPECT_EQ(platform::PropertyDialog(L"Pages", {&first, &second, &unseen}).RunModal(nullptr), button);
        std::vector<std::string> log{"command 1033", "apply", "destroy"};
        if (button == platform::kIdCancel) log.erase(log.begin() + 1);
        EXPECT_EQ(second.log, log);
        EXPECT_TRUE(unseen.log.empty());
    }
}

TEST_F(ControlContract, ListsAndSpinButtons) {
    RecordingPage page(IDD_OPTIONS_MISC);
    Play({[&] {
              page.SetChoices(IDC_PEN_STYLE, {L"b", L"a", L"c"});
              EXPECT_EQ(page.Choice(IDC_PEN_STYLE), -1);
              for (const int index : {2, 3, 0, -1, 1}) {
                  page.Choose(IDC_PEN_STYLE, index);
                  EXPECT_EQ(page.Choice(IDC_PEN_STYLE), index < 3 ? index : -1);
              }
              page.SetSpinRange(IDC_PEN_SIZE_SPIN, 1, 10);
              page.SetSpinRange(IDC_ALARM_OFFSET_SPIN, 0, 32767);
              const std::tuple<int, int16_t, unsigned> spins[] = {
                  {IDC_PEN_SIZE_SPIN, int16_t{0}, 1u},      {IDC_PEN_SIZE_SPIN, int16_t{7}, 7u},
                  {IDC_PEN_SIZE_SPIN, int16_t{11}, 10u},    {IDC_ALARM_OFFSET_SPIN, int16_t{32767}, 32767u},
                  {IDC_ALARM_OFFSET_SPIN, int16_t{-1}, 0u}, {IDC_ALARM_OFFSET_SPIN, int16_t{1234}, 1234u}};
              for (const auto& [item, set, got] : spins) {
                  page.SetSpin(item, set);
                  EXPECT_EQ(page.Spin(item), got);
              }
              EXPECT_EQ(page.Choice(4711), -1);
              EXPECT_TRUE(page.log.empty()) << "what the program fills in is no change by the user";
          },
          Do(&Hand::Choose, IDC_PEN_STYLE, 2), [&] { EXPECT_EQ(page.Choice(IDC_PEN_STYLE), 2); },
          Press(platform::kIdOk)});
    platform::PropertyDialog(L"Pages", {&page}).RunModal(nullptr);
    EXPECT_THAT(page.log, ElementsAre("changed 1021", "apply", "destroy"));
}

// By itself a pop-up takes what another copy sends to close windows as a refusal to choose.
TEST_F(ControlContract, PopUps) {
    TestScreen screen(Screen::ScrollBar::Vertical);
    Recording<Popup> popup;
    Popup plain;
    Popup* shown = &popup;
    std::vector<int> results;
    popup.create = [&] { return popup.ClientWidth() == 120 && popup.ClientHeight() == 80; };
    screen.command = [&](int) {
        results.push_back(shown->RunModal(&screen, L"Colours", {200, 300}, 120, 80));
    };
    Run(screen, {Post(screen, 1), Down({119, 79}), Up({119, 79}), [&] { popup.EndModal(8); }, Post(screen, 1),
                 Press(platform::Key::Escape), [&] { shown = &plain; }, Post(screen, 1),
                 Post(plain, platform::kIdOk)});
    EXPECT_THAT(results, ElementsAre(8, platform::kIdCancel, platform::kIdCancel));
    EXPECT_THAT(popup.log,
                ElementsAre("down 119 79", "up 119 79", "destroy", "key 9", "command 2", "destroy"));
}

TEST_F(ControlContract, Menus) {
    platform::PopupMenu inner;
    inner.Add(37002, L"Inner");
    inner.Add(37003, L"Inner too", false);
    platform::PopupMenu middle;
    middle.Add(37001, L"Middle");
    middle.AddSubmenu(L"More", inner);
    const std::pair<const wchar_t*, int> choices[] = {
        {L"R&D", 37000}, {L"Middle", 37001}, {L"Inner", 37002}, {L"Inner too", 0}, {L"nothing", 0}};
    for (const auto& [entry, command] : choices) {
        TestScreen screen(Screen::ScrollBar::None);
        int chosen = -1;
        screen.command = [&](int) {
            platform::PopupMenu menu;
            menu.Add(37000, L"R&D");
            menu.Add(32908, L"Set Alarm and Exit", false);
            menu.AddSeparator();
            menu.AddSubmenu(L"R&D && more", middle);
            const platform::ScreenSize handheld = platform::HandheldScreen();
            chosen = menu.Choose(screen, {handheld.width - 20, handheld.height - 20});
            screen.EndModal(1);
        };
        Play({Picked({entry}), Post(screen, 1)});
        screen.RunModal(nullptr);
        EXPECT_EQ(chosen, command) << entry;
    }
    EXPECT_EQ(hand_.Menu(), (Texts{L"R&D", L"(Set Alarm and Exit)", L"-", L"R&D && more", L"Middle", L"More",
                                   L"Inner", L"(Inner too)"}));
}

TEST_F(ControlContract, FoldersAreChosen) {
    ASSERT_TRUE(platform::MakeFolder(L"\\Notes") && platform::MakeFolder(L"\\Notes\\Old ones"));
    for (const wchar_t* folder : {L"\\Notes\\Old ones", L"\\My Documents", L""}) {
        TestScreen screen(Screen::ScrollBar::None);
        screen.command = [&](int) {
            std::wstring chosen;
            EXPECT_EQ(platform::ChooseFolder(&screen, L"Note folder", L"\\Notes", chosen), *folder != 0);
            EXPECT_EQ(chosen, folder);
            screen.EndModal(1);
        };
        hand_.ChooseFolder(folder);
        Play({Post(screen, 1)});
        screen.RunModal(nullptr);
    }
}

TEST_F(ControlContract, MessageAnswers) {
    const struct {
        MessageButtons buttons;
        MessageAnswer answer;
        MessageAnswer counted;  // what it means when it is not on the box
    } kCases[] = {{MessageButtons::Ok, MessageAnswer::Ok, MessageAnswer::Ok},
                  {MessageButtons::YesNo, MessageAnswer::Yes, MessageAnswer::Yes},
                  {MessageButtons::YesNo, MessageAnswer::Ok, MessageAnswer::No},
                  {MessageButtons::YesNoCancel, MessageAnswer::Cancel, MessageAnswer::Cancel},
                  {MessageButtons::YesNoCancel, MessageAnswer::Ok, MessageAnswer::Cancel}};
    TestScreen screen(Screen::ScrollBar::None);
    screen.command = [&](int id) {
        const bool isSecond = id % 2 == 1;
        const auto& each = kCases[id];
        const MessageAnswer got = platform::ShowMessage(
            id == 2 ? &screen : nullptr, L"Saving failed!\nDiscard changes?", L" Error", each.buttons,
            MessageIcon::Error, isSecond ? platform::DefaultButton::Second : platform::DefaultButton::First);
        EXPECT_EQ(got, each.counted) << id;
        EXPECT_EQ(hand_.Boxes().back().isSecondDefault, isSecond) << id;
    };
    Script script;
    for (int id = 0; id < 5; ++id) {
        script.push_back(ExpectBox(L"Saving failed!\nDiscard changes?", L" Error", kCases[id].answer));
        script.push_back(Post(screen, id));
    }
    Run(screen, script);
    CheckBoxes();
}

}  // namespace

}  // namespace contract
