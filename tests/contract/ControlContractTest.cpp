#include <algorithm>

#include "platform/FileSystem.h"
#include "platform/PropertyDialog.h"
#include "tests/contract/Recording.h"

using namespace contract;
using namespace platform;

namespace {

using ControlContract = Contract;

TEST_F(ControlContract, ToolBars) {
    const std::vector<ToolBarButton> buttons{
        {IDM_NEW_NOTE, L"New"}, {0, nullptr}, {IDM_PEN, L"Pen"}, {IDM_ERASER, L"Eraser"}};
    const auto make = [&] {
        ToolBar& tools = screen_.Tools();
        tools.SetEnabled(IDM_PEN, false);  // there is no tool bar yet
        ASSERT_TRUE(screen_.CreateMenuBar({IDB_EDITOR_TOOLS, 12, 14, buttons}));
        EXPECT_TRUE(hand_.Tool(IDM_PEN).enabled && !hand_.Tool(IDM_TOOLS).enabled);
        tools.SetChecked(IDM_PEN, true);
        tools.SetPressed(IDM_PEN, true);
        tools.SetEnabled(IDM_PEN, false);
        const auto [checked, pressed, enabled] = hand_.Tool(IDM_PEN);
        EXPECT_TRUE(checked && pressed && !enabled);
        tools.SetChecked(IDM_PEN, false);
        EXPECT_TRUE(!hand_.Tool(IDM_PEN).checked && hand_.Tool(IDM_PEN).pressed);
    };
    screen_.command = [](int) {};
    Run({make, Press(IDM_ERASER), Press(IDM_PEN), Press(IDM_NEW_NOTE)});
    EXPECT_THAT(screen_.log, ElementsAre("command 32709", "command 32701", "destroy"));
}

TEST_F(ControlContract, DialogsTellWhatTheUserDoesAndNotWhatTheProgramFillsIn) {
    TestDialog dialog(IDD_SAVE_AS);
    dialog.command = [&](int id) {
        if (id == kIdOk) dialog.EndModal(3);
    };
    const auto fill = [&] {
        EXPECT_TRUE(dialog.ItemRect(4711).IsEmpty() && dialog.ItemText(4711).empty());
        dialog.SetItemText(IDC_FILE_NAME, L"A & B \u00BB");
        EXPECT_EQ(dialog.ItemText(IDC_FILE_NAME), L"A & B \u00BB");
    };
    const auto disable = [&] { dialog.EnableItem(IDC_DEFAULT_NAME, false); };
    EXPECT_EQ(
        RunDialog(dialog, {ExpectTitle(L" Inkwright - Save As"), fill, TypeInto(IDC_FILE_NAME, L"Meeting"),
                           Press(IDC_DEFAULT_NAME), disable, Press(IDC_DEFAULT_NAME), Press(Key::Escape),
                           Do(&Hand::PressClose), Press(kIdOk)}),
        3);
    // A port may give the dialog keys and taps that its controls did not use.
    std::vector<std::string> log;
    std::copy_if(dialog.log.begin(), dialog.log.end(), std::back_inserter(log),
                 [](const std::string& event) { return event.front() == 'c'; });
    EXPECT_THAT(log, ElementsAre("changed 1026", "command 1029", "command 2", "command 2", "command 1"));
}

TEST_F(ControlContract, PickersAndCalendars) {
    const DateTime moment{2007, 3, 4, 15, 20, 30, 5, 0};
    const auto pick = [&](Dialog& dialog, int item) {
        dialog.SetPicked(item, moment);
        const DateTime day = dialog.PickedDate(item);
        EXPECT_EQ(day.year * 100000 + day.month * 1000 + day.day * 10 + day.dayOfWeek, 200703154);
    };
    TestDialog pickers(IDD_ALARM_TIME);
    const auto pickMoment = [&] {
        pick(pickers, IDC_ALARM_DATE);
        pickers.SetPicked(IDC_ALARM_TIME, moment);
        const DateTime time = pickers.PickedTime(IDC_ALARM_TIME);
        EXPECT_EQ(time.hour * 10000 + time.minute * 100 + time.second, 203005);
        EXPECT_EQ(pickers.PickedDate(4711).year, 0);
    };
    RunDialog(pickers, {pickMoment, Press(kIdCancel)});
    EXPECT_THAT(pickers.log, ElementsAre("command 2", "destroy"));

    Dialog calendar(IDD_DATE_PICKER);
    EXPECT_EQ(RunDialog(calendar, {[&] { pick(calendar, IDC_MONTH_CALENDAR); },
                                   Do(&Hand::DoubleTapDay, IDC_MONTH_CALENDAR)}),
              kIdOk);
}

class EditingDialog : public TestDialog {
  public:
    EditingDialog() : TestDialog(IDD_TEXT_MEMO) {
        create = [this] {
            Place({20, 52, 230, 222});
            return MakeTextEdit(IDC_MEMO_TEXT, {6, 26, 204, 141}, true);
        };
    }
    void OnEditHold(int id, Point place) override { Write("hold", id, place.x, place.y); }
    // Does one action after another: the text after the last, and which actions are offered then.
    std::wstring After(const std::vector<EditAction>& actions) {
        for (const EditAction action : actions) Edit(IDC_MEMO_TEXT, action);
        std::wstring text = ItemText(IDC_MEMO_TEXT) + L"|";
        for (int action = 0; action < 6; ++action)
            text += CanEdit(IDC_MEMO_TEXT, static_cast<EditAction>(action)) ? L"UCYPDA"[action] : L'-';
        return text;
    }
};

TEST_F(ControlContract, EditsOfManyLines) {
    EditingDialog dialog;
    const auto edit = [&] {
        dialog.PlaceItem(IDC_MEMO_SAVE, {100, 145, 150, 165});
        EXPECT_TRUE((dialog.ItemRect(IDC_MEMO_SAVE) == Rect{120, 197, 170, 217}));
        EXPECT_TRUE((dialog.ItemRect(IDC_MEMO_TEXT) == Rect{26, 78, 224, 193}));
        // The control's usual limit is 32,767 characters.
        std::wstring text = L"a\nb\rc\r\n\td \u20AC";
        while (text.size() < 40000) text += L"many words\r\n";
        hand_.TypeInto(IDC_MEMO_TEXT, text);
        EXPECT_TRUE(dialog.MakeTextEdit(IDC_MEMO_TEXT, {6, 26, 204, 141}, false));
        EXPECT_EQ(dialog.ItemText(IDC_MEMO_TEXT), text) << "it is carried over";
        dialog.SetItemText(IDC_MEMO_TEXT, L"one two");
        hand_.Select(IDC_MEMO_TEXT, 0, 4);
        EXPECT_EQ(dialog.After({EditAction::Cut}), L"two|U--P-A");
        EXPECT_EQ(dialog.After({EditAction::Undo, EditAction::SelectAll}), L"one two|UCYPDA");
        dialog.After({EditAction::Delete, EditAction::Paste, EditAction::SelectAll, EditAction::Copy});
        EXPECT_EQ(dialog.After({EditAction::Paste, EditAction::Paste}).substr(0, 9), L"one one |");
        dialog.log.clear();
    };
    RunDialog(dialog, {edit, Do(&Hand::HoldEdit, IDC_MEMO_TEXT), [&] { dialog.EndModal(1); }});
    EXPECT_THAT(dialog.log, ElementsAre("hold 1016 125 135", "destroy"));
}

class RecordingPage : public Recording<PropertyPage> {
  public:
    using Recording::Recording;
    void OnApply() override { Write("apply"); }
};

TEST_F(ControlContract, PropertyDialogsShowTheirPages) {
    for (const int button : {kIdOk, kIdCancel}) {
        RecordingPage first(IDD_OPTIONS_FILE_NAME);
        RecordingPage second(IDD_OPTIONS_MISC);
        RecordingPage unseen(IDD_OPTIONS_MISC);
        first.command = [](int) {};
        const auto check = [&] {
            EXPECT_TRUE(first.IsItemChecked(IDC_NOTE_PATTERN_DEFAULT));
            first.CheckItem(IDC_NOTE_PATTERN_DEFAULT, false);
            EXPECT_FALSE(first.IsItemChecked(IDC_NOTE_PATTERN_DEFAULT));
        };
        const auto fill = [&] {
            second.SetChoices(IDC_PEN_STYLE, {L"b", L"a", L"c"});
            for (const int index : {2, 3, 0, -1, 1}) {
                second.Choose(IDC_PEN_STYLE, index);
                EXPECT_EQ(second.Choice(IDC_PEN_STYLE), index < 3 ? index : -1);
            }
            second.SetSpinRange(IDC_ALARM_OFFSET_SPIN, 7, 32000);
            for (const int value : {1, 20000, 32767, -1}) {
                second.SetSpin(IDC_ALARM_OFFSET_SPIN, static_cast<int16_t>(value));
                EXPECT_EQ(second.Spin(IDC_ALARM_OFFSET_SPIN),
                          static_cast<unsigned>(std::clamp(value, 7, 32000)));
            }
            EXPECT_THAT(second.log, IsEmpty()) << "what the program fills in is no change by the user";
        };
        Play({Press(IDC_NOTE_PATTERN_DEFAULT), check, ShowPage(1), fill, Choose(IDC_PEN_STYLE, 2),
              [&] { EXPECT_EQ(second.Choice(IDC_PEN_STYLE), 2); }, Press(button)});
        EXPECT_EQ(PropertyDialog(L"Pages", {&first, &second, &unseen}).RunModal(nullptr), button);
        std::vector<std::string> log{"changed 1021", "apply", "destroy"};
        if (button == kIdCancel) log.erase(log.begin() + 1);
        EXPECT_EQ(second.log, log);
        EXPECT_EQ(first.log.front(), "command 1033");
        EXPECT_THAT(unseen.log, IsEmpty());
    }
}

// By itself a pop-up takes what another copy sends to close windows as a refusal to choose.
TEST_F(ControlContract, PopUps) {
    Recording<Popup> popup;
    Popup plain;
    std::vector<int> results;
    popup.create = [&] { return popup.ClientWidth() == 120 && popup.ClientHeight() == 80; };
    screen_.command = [&](int id) {
        Popup& shown = id == 1 ? popup : plain;
        results.push_back(shown.RunModal(&screen_, L"Colours", {200, 300}, 120, 80));
    };
    Run({Post(screen_, 1), Down({119, 79}), Up({119, 79}), [&] { popup.EndModal(8); }, Post(screen_, 1),
         Press(Key::Escape), Post(screen_, 2), Post(plain, kIdOk)});
    EXPECT_THAT(results, ElementsAre(8, kIdCancel, kIdCancel));
    EXPECT_THAT(popup.log,
                ElementsAre("down 119 79", "up 119 79", "destroy", "key 9", "command 2", "destroy"));
}

TEST_F(ControlContract, FoldersAreChosen) {
    ASSERT_TRUE(MakeFolder(L"\\Notes") && MakeFolder(L"\\Notes\\Old ones"));
    for (const wchar_t* folder : {L"\\Notes\\Old ones", L""}) {
        hand_.ChooseFolder(folder);
        RunCommand([&] {
            std::wstring chosen;
            EXPECT_EQ(ChooseFolder(&screen_, L"Note folder", L"\\Notes\\Old ones", chosen), *folder != 0);
            EXPECT_EQ(chosen, folder);
        });
    }
}

TEST_F(ControlContract, MessageAnswers) {
    using Answer = MessageAnswer;
    // The answer, and what it means when it is not on the box.
    const std::tuple<MessageButtons, Answer, Answer, DefaultButton> boxes[] = {
        {MessageButtons::Ok, Answer::Ok, Answer::Ok, DefaultButton::First},
        {MessageButtons::YesNo, Answer::Yes, Answer::Yes, DefaultButton::Second},
        {MessageButtons::YesNo, Answer::Ok, Answer::No, DefaultButton::First},
        {MessageButtons::YesNoCancel, Answer::Cancel, Answer::Cancel, DefaultButton::Second}};
    for (const auto& box : boxes) {
        Play({ExpectBox(L"Saving failed!\nDiscard?", L" Error", std::get<1>(box))});
        RunCommand([&] {
            const auto& [buttons, answer, counted, focus] = box;
            EXPECT_EQ(ShowMessage(&screen_, L"Saving failed!\nDiscard?", L" Error", buttons,
                                  MessageIcon::Error, focus),
                      counted);
            EXPECT_EQ(hand_.Boxes().back().isSecondDefault, focus == DefaultButton::Second);
        });
    }
    CheckBoxes();
}

}  // namespace
