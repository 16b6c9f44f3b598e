// When commands are possible, and what the window shows after them.
#include "app/store/Settings.h"
#include "tests/manager/ManagerRig.h"

namespace {

using platform::MessageAnswer;
using testing_support::kRoot;
using testing_support::Script;
using testing_support::Step;

class Commands : public testing_support::ManagerTest {
  protected:
    Step Shortcut(wchar_t letter) {
        return [=] { Desk().PressShortcut(letter); };
    }
    Step FullErase() {
        return [this] {
            ExpectBox(L"Notes will be completely erased. Continue?", L" Confirm Full Erase",
                      MessageAnswer::Yes)();
            Desk().Command(IDM_FULL_ERASE);
        };
    }
    // How often folders were listed since the script began to count.
    Step CountLists(int& lists) {
        return [this, &lists] {
            device.files.fault = [&lists](platform::host::FileCall call, const std::wstring&) {
                lists += call == platform::host::FileCall::List ? 1 : 0;
                return platform::FileError::None;
            };
        };
    }
};

// A posted command may come too late, a key at any time.
TEST_F(Commands, WhatIsNotPossibleDoesNothing) {
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    const std::vector<int> ofNotes{IDM_OPEN,      IDM_RENAME,        IDM_TEXT_MEMO,
                                   IDM_SET_ALARM, IDM_CHANGE_FOLDER, IDM_CHANGE_DATE};
    const auto nothingHappens = [this](const std::vector<int>& commands) {
        return [=] {
            const std::wstring before = Store();
            for (const int command : commands) Desk().Top()->OnCommand(command);
            Desk().Settle();
            EXPECT_EQ(Desk().Top()->Title(), L"Inkwright");
            EXPECT_FALSE(Tree().IsEditing());
            EXPECT_EQ(Store(), before);
        };
    };
    Script script;
    const struct {
        const wchar_t* path;
        std::vector<int> commands;
    } kCases[] = {{L"Notes", {IDM_ADD_NOTE, IDM_DELETE, IDM_NEXT_MONTH, IDM_MOVE_FOLDER}},
                  {L"Alarms", {IDM_ADD_NOTE, IDM_DELETE, IDM_CREATE_FOLDER, IDM_COPY_TO}},
                  {L"Reminders", {IDM_DELETE, IDM_CREATE_FOLDER, IDM_REFRESH_ALARMS}}};
    for (const auto& each : kCases)
        script.insert(script.end(), {Tap(each.path), nothingHappens(each.commands), nothingHappens(ofNotes)});
    script.insert(script.end(),
                  {Tap(L"Notes"), ExpectTree(L"", {L"Notes", L"Reminders", L"Alarms"}), Tap(L"Notes\\Work"),
                   Tap(L"Notes\\Work\\a"), Press(IDM_CALENDAR), Shortcut(L'N'), Shortcut(L'F'),
                   Press(platform::Key::Delete), nothingHappens(ofNotes),
                   nothingHappens({IDM_CREATE_FOLDER, IDM_CURRENT_MONTH}), Press(IDM_CALENDAR),
                   [this] { Tree().PressKey(platform::Key::PageDown); },  // the tree's own key
                   Press(IDM_CALENDAR), ExpectText(L"March 2007  "), Press(IDM_CALENDAR)});
    RunManager(L"", script);
    RunManager(L"Work\\a.ikw", {Shortcut(L'N'), ExpectTitle(L"[new] - Inkwright"), Close(), Shortcut(L'F'),
                                ExpectTitle(L" Find..."), Press(platform::kIdCancel), Shortcut(L'X'),
                                ExpectTitle(L"Inkwright")});
}

// Only the folder of a note that came or went is read again.
TEST_F(Commands, NotesAreOpenedAndMadeFromTheTree) {
    int lists = 0;
    const auto expectLists = [&lists](int count) { return [&lists, count] { EXPECT_EQ(lists, count); }; };
    RunManager(L"Work\\a.ikw", {[this] { device.files.PutFolder(kRoot + L"Came later"); },
                                CountLists(lists),
                                DoubleTap(L"Notes\\Work\\a"),
                                ExpectTitle(L"a - Inkwright"),
                                Write({{30, 100}}),
                                Close(),
                                expectLists(0),
                                ExpectSelected(L"a"),
                                Press(IDM_ADD_NOTE),
                                Close(),
                                expectLists(0),  // nothing was written
                                ExpectSelected(L"a"),
                                Press(IDM_ADD_NOTE),
                                Write({{30, 100}}),
                                Close(),
                                Close(),
                                expectLists(1),
                                ExpectSelected(L"Work 2007-03-05"),
                                ExpectTree(L"Notes", {L"Home", L"Work  (2 found) "}),
                                Press(IDM_OPEN),
                                FullErase(),
                                Close(),
                                ExpectSelected(L"Work  (1 found) "),
                                Press(IDM_ADD_NOTE),
                                Write({{30, 100}}),
                                Press(IDM_NEW_NOTE),
                                Close(),
                                Close(),
                                ExpectSelected(L"Work  (2 found) ")});  // one note was left behind
}

TEST_F(Commands, RemindersComeAndGoWithTheirDays) {
    const Script pick{Press(IDM_ADD_NOTE), PickDay(IDC_MONTH_CALENDAR, 2007, 4, 2),
                      ExpectTitle(L"Monday, 4/2/2007 - Inkwright")};
    Play({Press(IDM_ADD_NOTE), Press(platform::kIdCancel), ExpectTitle(L"Inkwright")});
    Play(pick);
    Play({Close(), [this] { EXPECT_FALSE(Has(L"Reminders\\2007-04-02")) << "nothing was written"; },
          ExpectSelected(L"Reminders")});
    Play(pick);
    RunManager(L"Reminders\\",
               {Write({{30, 100}}), Close(), Close(), ExpectSelected(L"Reminder 2007-04-02"),
                ExpectTree(L"Reminders", {L"Monday, April 2, 2007  (1 found) "}), Press(IDM_OPEN),
                FullErase(), Close(), ExpectTree(L"Reminders", {}), ExpectSelected(L"Reminders")});
    EXPECT_FALSE(Has(L"Reminders\\2007-04-02"));
}

// March 2007 began on a Thursday: with Friday first its first row begins on the 23rd of February.
TEST_F(Commands, OptionsHoldAtOnceAndInTheNextEditor) {
    uint32_t paper = 0;
    RunManager(
        L"",
        {Press(IDM_CALENDAR), PickTool({L"Options..."}), [this] { Desk().Choose(IDC_FIRST_DAY, 4); },
         [this] { Desk().Turn(IDC_PEN_SIZE_SPIN, 6); }, Close(),
         [this] { EXPECT_LT(Desk().PlaceOf(L"23").left, 240 / 7); }, Press(IDM_CALENDAR), Tap(L"Notes\\Work"),
         Press(IDM_ADD_NOTE), [&] { paper = Shown().Row(80)[45]; }, Write({{30, 100}, {60, 100}}),
         [&] {
             int inked = 0;
             for (int y = 80; y < 120; ++y) inked += Shown().Row(y)[45] != paper ? 1 : 0;
             EXPECT_THAT(inked, testing::AllOf(testing::Ge(6), testing::Le(8))) << "six pixels wide";
         },
         Close(), Close()});
}

TEST_F(Commands, TheToolsMenu) {
    device.files.PutFolder(L"\\Storage Card");
    RunManager(
        L"", {ExpectBox(L"Inkwright 1.1\nA notebook for handwriting.\n\nLarkspur Works", L" About Inkwright"),
              PickTool({L"About Inkwright"}),
              ExpectMenu({L"Options...", L"Storage", L"Main Memory", L"Storage Card", L"-",
                          L"Other Folder...", L"-", L"About Inkwright"}),
              PickTool({L"Storage Card"}), ExpectTree(L"Notes", {}), PickTool({L"Main Memory"}),
              ExpectTree(L"Notes", {L"Home", L"Work"}), [this] { Desk().chosenFolder = L"\\Elsewhere\\"; },
              PickTool({L"Other Folder..."}), ExpectTree(L"Notes", {})});
    EXPECT_TRUE(device.files.Has(L"\\Storage Card\\Inkwright\\Reminders") &&
                device.files.Has(L"\\Elsewhere\\Reminders"));
    EXPECT_EQ(store::Settings::Text(store::SettingId::RootDirPath), L"\\Elsewhere");
}

TEST_F(Commands, APlaceThatCannotHoldTheStoreLeavesItWhereItIs) {
    device.files.PutFolder(L"\\Storage Card");
    device.files.unreachable = L"\\Storage Card";
    Script script;
    for (const std::wstring& folder : {std::wstring(L"\\"), L"\\" + std::wstring(259, L'a'),
                                       std::wstring(L"\\Storage Card\\Ink"), std::wstring()}) {
        const std::wstring text =
            folder.find(L"Card") != std::wstring::npos
                ? L"Reading '" + folder + L"' failed!"
                : L"'" + folder + L"' cannot hold your notes. Please choose another folder.";
        if (!folder.empty()) script.push_back(ExpectBox(text, L" Error"));
        script.insert(script.end(),
                      {[this, folder] { Desk().chosenFolder = folder; }, PickTool({L"Other Folder..."}),
                       ExpectTree(L"Notes", {L"Home", L"Work"})});
    }
    RunManager(L"", script);
    EXPECT_FALSE(device.HasSetting(L"RootDirPath"));
}

// A missing card, or a documents folder out of reach, gets no stand-in on some other storage.
TEST_F(Commands, AStoreThatCannotBeReadIsReportedAtTheStart) {
    const auto unreadable = [this](const std::wstring& root) {
        return ExpectBox(L"Reading '" + root + L"' failed!", L" Error");
    };
    device.files.Put(L"\\File", "in the way");
    for (const std::wstring root : {L"\\File\\Ink", L"\\Storage Card\\Ink"}) {
        device.SetSetting(L"RootDirPath", root);
        unreadable(root)();
        RunManager(L"", {ExpectTree(L"Notes", {L"Home", L"Work"})});
    }
    const std::wstring usual = L"\\My Documents\\Inkwright";
    device.files.Nodes().erase(device.files.KeyOf(usual));
    device.files.unreachable = L"\\My Documents";
    unreadable(L"\\Storage Card\\Ink")();
    unreadable(usual)();
    RunManager(L"", {ExpectTree(L"Notes", {})});
    EXPECT_FALSE(device.files.Has(usual) || device.files.Has(L"\\Storage Card"));
    EXPECT_EQ(store::Settings::Text(store::SettingId::RootDirPath), L"\\Storage Card\\Ink")
        << "it may come back";
}

TEST_F(Commands, ATakeOverClosesTheManager) {
    Play({[this] { Desk().PrivateMessage(platform::kTakeOver); }});
    store::PenSettings pen = store::LoadPenSettings();
    EXPECT_EQ(manager::ManagerWindow(pen, L"").RunModal(nullptr), platform::kIdOk);
}

TEST_F(Commands, ShortMemoryAtTheStart) {
    device.picturesLeft = 0;
    store::PenSettings pen = store::LoadPenSettings();
    EXPECT_EQ(manager::ManagerWindow(pen, L"").RunModal(nullptr), -1);
}

}  // namespace
