#include "app/store/Settings.h"
#include "tests/manager/ManagerRig.h"

namespace {

using platform::MessageAnswer;
using namespace testing_support;

class Commands : public ManagerTest {
  protected:
    // What the tool bar greys. A posted command may come too late: it does nothing then.
    Step ExpectPossible(const std::vector<int>& possible) {
        return [=] {
            const Texts menu = hand.Menu();
            const std::wstring store = Store();
            for (const int command :
                 {IDM_ADD_NOTE, IDM_OPEN, IDM_DELETE, IDM_FIND, IDM_CREATE_FOLDER, IDM_MOVE_FOLDER,
                  IDM_RENAME, IDM_CHANGE_FOLDER, IDM_CHANGE_DATE, IDM_MOVE_TO_FOLDER, IDM_MOVE_TO_REMINDERS,
                  IDM_TEXT_MEMO, IDM_SET_ALARM, IDM_REFRESH_ALARMS, IDM_NEXT_MONTH, IDM_COPY_TO}) {
                const bool isPossible = std::count(possible.begin(), possible.end(), command) != 0;
                EXPECT_EQ(hand.Tool(command).enabled, isPossible && command < IDM_CREATE_FOLDER) << command;
                if (!isPossible) Desk().Top()->OnCommand(command);
            }
            Desk().Settle();
            EXPECT_EQ(Desk().Top()->Title(), L"Inkwright");
            EXPECT_FALSE(Tree().IsEditing());
            EXPECT_EQ(Store(), store);
            EXPECT_EQ(hand.Menu(), menu);
        };
    }
};

TEST_F(Commands, WhatIsPossibleWhere) {
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    const std::wstring day = L"Reminders\\" + kMonday;
    const struct {
        std::wstring path;
        Texts menu;
        std::vector<int> possible;
    } kCases[] = {
        {L"Notes", {L"Create Folder"}, {IDM_FIND, IDM_CREATE_FOLDER}},
        {L"Notes\\Work",
         {L"New", L"-", L"Rename", L"Delete", L"-", L"Create Folder", L"Move Folder", L"-"},
         {IDM_ADD_NOTE, IDM_DELETE, IDM_FIND, IDM_CREATE_FOLDER, IDM_MOVE_FOLDER, IDM_RENAME}},
        {L"Notes\\Work\\a",
         {L"Open", L"-", L"Rename", L"Delete", L"-", L"Text Memo...", L"Set Alarm...", L"-",
          L"Change Folder...", L"Move To Reminders..."},
         {IDM_ADD_NOTE, IDM_OPEN, IDM_DELETE, IDM_FIND, IDM_CREATE_FOLDER, IDM_RENAME, IDM_CHANGE_FOLDER,
          IDM_MOVE_TO_REMINDERS, IDM_TEXT_MEMO, IDM_SET_ALARM}},
        {L"Reminders", {L"Add"}, {IDM_ADD_NOTE, IDM_FIND}},
        {day, {L"Add", L"Show Calendar", L"-", L"Delete", L"-"}, {IDM_ADD_NOTE, IDM_DELETE, IDM_FIND}},
        {day + L"\\r",
         {L"Open", L"-", L"Rename", L"Delete", L"-", L"Text Memo...", L"Set Alarm...", L"-",
          L"Change Date...", L"Move To Folder..."},
         {IDM_ADD_NOTE, IDM_OPEN, IDM_DELETE, IDM_FIND, IDM_RENAME, IDM_CHANGE_DATE, IDM_MOVE_TO_FOLDER,
          IDM_TEXT_MEMO, IDM_SET_ALARM}},
        {L"Alarms", {L"Refresh"}, {IDM_FIND, IDM_REFRESH_ALARMS}}};
    for (const auto& each : kCases)
        Play({Hold(each.path, {L"nothing"}), ExpectMenu(each.menu), ExpectPossible(each.possible)});
    const Step pageDown = [this] { Tree().PressKey(platform::Key::PageDown); };  // the tree's own key
    Play({Tap(L"Notes\\Work"), Tap(L"Notes\\Work\\a"), Press(IDM_CALENDAR), Shortcut(L'N'), Shortcut(L'F'),
          Press(platform::Key::Delete), ExpectPossible({IDM_NEXT_MONTH}), Press(IDM_CALENDAR), pageDown,
          Press(IDM_CALENDAR), ExpectText(L"March 2007  "), Press(IDM_CALENDAR)});
    RunManager(L"", {Shortcut(L'N'), ExpectTitle(L"[new] - Inkwright"), Close(), Shortcut(L'F'),
                     ExpectTitle(L" Find..."), Press(platform::kIdCancel), Shortcut(L'X'),
                     ExpectTitle(L"Inkwright")});
    // Folders are listed only once "Notes" was visited.
    RunManager(L"Reminders\\2007-03-05\\r.ikw", {Hold(day + L"\\r", {L"Move To Folder..."}), [this] {
                                                     EXPECT_EQ(hand.Menu().back(), L"(Move To Folder...)");
                                                 }});
}

// Only the folder of a note that came or went is read again.
TEST_F(Commands, NotesAreOpenedAndMadeFromTheTree) {
    const Step folderComes = [this] { device.files.PutFolder(kRoot + L"Came later"); };
    const Step activate = [this] { Tree().Activate({L"Notes", L"Work  (1 found) ", L"a"}); };
    const Step dot = Write({{30, 100}});
    Play({folderComes, CountLists(), activate, ExpectTitle(L"a - Inkwright"), dot, Close(),
          ExpectSelected(L"a"), Press(IDM_ADD_NOTE), Close(), ExpectLists(0), ExpectSelected(L"a"),
          Press(IDM_ADD_NOTE), dot, Close(), Close(), ExpectLists(1), ExpectSelected(L"Work 2007-03-05")});
    RunManager(
        L"Work\\a.ikw",
        {ExpectTree(L"Notes", {L"Home", L"Work  (2 found) "}), Tap(L"Notes\\Work\\a"), Press(IDM_OPEN),
         ExpectErase(MessageAnswer::No), Press(IDM_FULL_ERASE), ExpectTitle(L"a - Inkwright"),
         ExpectErase(MessageAnswer::Yes), Press(IDM_FULL_ERASE), ExpectTitle(L"[new] - Inkwright"), Close(),
         ExpectStore(L"WORK\\WORK 2007-03-05.IKW "), ExpectSelected(L"Work  (1 found) "), Press(IDM_ADD_NOTE),
         dot, Press(IDM_NEW_NOTE), Close(), Close(), ExpectSelected(L"Work  (2 found) ")});
}

TEST_F(Commands, ANoteThatIsACopyShowsInItsFolder) {
    Desk().chosenPlace = kRoot + L"Work\\twin.ikw";
    RunManager(L"Work\\a.ikw", {Press(IDM_OPEN), Write({{30, 100}}), Press(IDM_SAVE_COPY), Close(),
                                ExpectSelected(L"a"), ExpectTree(L"Notes\\Work", {L"a", L"twin"})});
}

TEST_F(Commands, RemindersComeAndGoWithTheirDays) {
    const Step pick = PickDay(IDC_MONTH_CALENDAR, 2007, 4, 2);
    const Step noDay = [this] { EXPECT_FALSE(Has(L"Reminders\\2007-04-02")); };
    Play({Press(IDM_ADD_NOTE), Press(platform::kIdCancel), ExpectTitle(L"Inkwright"), Press(IDM_ADD_NOTE),
          pick, ExpectTitle(L"Monday, 4/2/2007 - Inkwright"), Close(), noDay, ExpectSelected(L"Reminders")});
    RunManager(L"Reminders\\", {Press(IDM_ADD_NOTE), pick, Write({{30, 100}}), Close(), Close(),
                                ExpectSelected(L"Reminder 2007-04-02"),
                                ExpectTree(L"Reminders", {L"Monday, April 2, 2007  (1 found) "}),
                                Press(IDM_OPEN), ExpectErase(MessageAnswer::Yes), Press(IDM_FULL_ERASE),
                                Close(), ExpectTree(L"Reminders", {}), ExpectSelected(L"Reminders"), noDay});
}

// March 2007 began on a Thursday: with Friday first its first row begins on the 23rd of February.
TEST_F(Commands, OptionsHoldAtOnceAndInTheNextEditor) {
    const Step expectFriday = [this] { EXPECT_LT(Desk().PlaceOf(L"23").left, 240 / 7); };
    const Step expectWide = [this] { EXPECT_NE(Shown().Row(102)[45], Shown().Row(75)[45]); };
    RunManager(L"",
               {Press(IDM_CALENDAR), PickTool({L"Options..."}), Choose(IDC_FIRST_DAY, 4),
                Turn(IDC_PEN_SIZE_SPIN, 6), Close(), expectFriday, Press(IDM_CALENDAR), Tap(L"Notes\\Work"),
                Press(IDM_ADD_NOTE), Write({{30, 100}, {60, 100}}), expectWide, Close(), Close()});
}

// A place that cannot hold the store leaves it where it is.
TEST_F(Commands, TheToolsMenu) {
    device.files.PutFolder(L"\\Storage Card");
    device.files.Put(L"\\File", "in the way");
    const auto chooseFolder = [this](const std::wstring& folder) {
        return [=] {
            Desk().chosenFolder = folder;
            PickTool({L"Other Folder..."})();
        };
    };
    const auto expectHint = [this](bool isThere) {
        return [=] {
            const Picture shown = ShownPixels();
            EXPECT_EQ(std::count(shown.begin(), shown.end(), 0x6074A0u) > 0, isThere);
        };
    };
    const Step f1 = [this] {
        Tree().PressKey(platform::Key::F1);
        EXPECT_EQ(device.guidesOpened, 1);
    };
    const std::wstring longest = L"\\" + std::wstring(259, L'a');
    const std::wstring refused = L"' cannot hold your notes. Please choose another folder.";
    RunManager(
        L"", {ExpectBox(L"Inkwright 1.1\nA notebook for handwriting.\n\nLarkspur Works", L" About Inkwright"),
              PickTool({L"About Inkwright"}),
              ExpectMenu({L"(New Note)", L"New Folder", L"-", L"Options...", L"Storage", L"Main Memory",
                          L"Storage Card", L"-", L"Other Folder...", L"Check Notes\u2026", L"-",
                          L"About Inkwright"}),
              PickTool({L"Storage Card"}),
              ExpectTree(L"Notes", {}),
              expectHint(true),
              Shortcut(L'n'),
              expectHint(false),
              ExpectTree(L"Notes", {L"New Folder  (0 found) "}),
              f1,
              PickTool({L"Main Memory"}),
              ExpectTree(L"Notes", {L"Home", L"Work"}),
              chooseFolder(L"\\Elsewhere\\"),
              ExpectTree(L"Notes", {}),
              ExpectBox(L"'\\" + refused, L" Error"),
              chooseFolder(L"\\"),
              ExpectBox(L"'" + longest + refused, L" Error"),
              chooseFolder(longest),
              ExpectBox(L"Reading '\\File\\Ink' failed!", L" Error"),
              chooseFolder(L"\\File\\Ink"),
              chooseFolder(L"")});
    EXPECT_TRUE(device.files.Has(L"\\Storage Card\\Inkwright\\Reminders") &&
                device.files.Has(L"\\Elsewhere\\Reminders"));
    EXPECT_EQ(store::Settings::Text(store::SettingId::RootDirPath), L"\\Elsewhere");
}

// A missing card, or a documents folder out of reach, gets no stand-in on some other storage.
TEST_F(Commands, AStoreThatCannotBeReadIsReportedAtTheStart) {
    const std::wstring usual = L"\\My Documents\\Inkwright";
    const std::wstring card = L"\\Storage Card\\Ink";
    device.SetSetting(L"RootDirPath", card);
    const Step noCard = ExpectBox(L"Reading '" + card + L"' failed!", L" Error");
    RunManager(L"", {noCard, ExpectTree(L"Notes", {L"Home", L"Work"})});
    device.files.Nodes().erase(device.files.KeyOf(usual));
    device.files.unreachable = L"\\My Documents";
    RunManager(L"",
               {noCard, ExpectBox(L"Reading '" + usual + L"' failed!", L" Error"), ExpectTree(L"Notes", {})});
    EXPECT_FALSE(device.files.Has(usual) || device.files.Has(L"\\Storage Card"));
    EXPECT_EQ(store::Settings::Text(store::SettingId::RootDirPath), card) << "it may come back";
}

}  // namespace
