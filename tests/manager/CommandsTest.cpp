// When commands are possible, and what the window shows after them.
#include "tests/manager/ManagerRig.h"

namespace {

using platform::MessageAnswer;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::kRoot;

class Commands : public testing_support::WorkTest {};

TEST_F(Commands, TheHeaderTellsTheRoomThatIsLeft) {
    device.files.PutFolder(L"\\Storage Card");
    device.files.Put(std::wstring(kRoot) + L"Work\\large.ikw", std::string(100000, 0));
    device.files.capacity = device.files.UsedBytes() + 10 * 1024 * 1024 + 50000;  // 10.05 MB are left
    std::vector<std::vector<uint32_t>> headers;
    const auto look = [this, &headers] {
        Desk().Settle();
        const ink::PixelSurface shown = Shown();
        headers.emplace_back(shown.Row(0), shown.Row(manager::HeaderBar::Height()));
    };
    Then([this, look] {
        look();
        hand.ChooseEntries({L"Copy To \\Storage Card"});
        Tree().Hold({L"Notes", L"Work  (2 found) "});
    });
    Then([this, look] {
        look();
        Desk().answers = {MessageAnswer::Yes};
        Desk().Command(IDM_DELETE);
        look();
    });
    RunManager(std::wstring(kRoot) + L"Work\\");
    EXPECT_TRUE(headers[0] != headers[1]) << "copied: less than 10 MB";
    EXPECT_TRUE(headers[0] == headers[2]) << "deleted";
}

// A posted command may come too late, a key at any time.
TEST_F(Commands, WhatIsNotPossibleDoesNothing) {
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    struct Case {
        Path path;
        std::vector<int> commands;
    };
    const std::vector<int> ofNotes{IDM_OPEN,      IDM_RENAME,        IDM_TEXT_MEMO,
                                   IDM_SET_ALARM, IDM_CHANGE_FOLDER, IDM_CHANGE_DATE};
    Then([this, ofNotes] {
        const auto nothingHappens = [this](const std::vector<int>& commands) {
            for (const int command : commands) Window().OnCommand(command);
            EXPECT_EQ(Desk().Top(), &Window());
            EXPECT_FALSE(Tree().IsEditing());
            EXPECT_THAT(Desk().messages, IsEmpty());
        };
        for (const Case& c : {Case{{L"Notes"}, {IDM_ADD_NOTE, IDM_DELETE, IDM_NEXT_MONTH, IDM_MOVE_FOLDER}},
                              Case{{L"Alarms"}, {IDM_ADD_NOTE, IDM_DELETE, IDM_CREATE_FOLDER, IDM_COPY_TO}},
                              Case{{L"Reminders"}, {IDM_DELETE, IDM_CREATE_FOLDER, IDM_REFRESH_ALARMS}}}) {
            Tree().Tap(c.path);
            nothingHappens(c.commands);
            nothingHappens(ofNotes);
        }
        Tree().Tap({L"Notes"});
        EXPECT_THAT(Tree().Texts(), ElementsAre(L"Notes", L"Reminders", L"Alarms")) << "no list of alarms";
        Tree().Tap({L"Notes", L"Work"});
        Tree().Tap(kNotePathInTree);
        Desk().Command(IDM_CALENDAR);
        Desk().PressShortcut(L'N');
        Desk().PressShortcut(L'F');
        Desk().Press(platform::Key::Delete);
        Desk().Settle();
        nothingHappens(ofNotes);
        nothingHappens({IDM_CREATE_FOLDER, IDM_CURRENT_MONTH});
        Desk().Command(IDM_CALENDAR);
        Tree().PressKey(platform::Key::PageDown);
        EXPECT_EQ(Window().Month().Grid().Month(), 3) << "the tree's own key";
    });
    RunManager();
    EXPECT_TRUE(Has(L"Work\\a.ikw") && !Has(L"New Folder"));
}

// Only the folder of a note that came or went is read again.
TEST_F(Commands, NotesAreOpenedAndMadeFromTheTree) {
    int lists = 0;
    Then([this, &lists] {
        device.files.PutFolder(std::wstring(kRoot) + L"Came later");
        device.files.fault = [&lists](platform::host::FileCall call, const std::wstring&) {
            lists += call == platform::host::FileCall::List ? 1 : 0;
            return platform::FileError::None;
        };
        Tree().Activate(kNotePathInTree);
    });
    Then([this] {
        EXPECT_EQ(Desk().Top()->Title(), L"a - Inkwright");
        Desk().Stroke({{30, 100}});
        Desk().Command(platform::kIdOk);
    });
    Then([this, &lists] {
        EXPECT_EQ(lists, 0);
        EXPECT_EQ(Selected(), L"a");
        Desk().Command(IDM_ADD_NOTE);
    });
    Then(Close());
    Then([this, &lists] {
        EXPECT_EQ(lists, 0) << "nothing was written";
        EXPECT_EQ(Selected(), L"a");
        Desk().Command(IDM_ADD_NOTE);
    });
    Then([this] {
        Desk().Stroke({{30, 100}});
        Desk().Command(platform::kIdOk);
    });
    Then(Close());
    Then([this, &lists] {
        EXPECT_EQ(lists, 1);
        EXPECT_EQ(Selected(), L"Work 2007-03-05");
        EXPECT_THAT(Tree().Texts({L"Notes"}), ElementsAre(L"Home", L"Work  (2 found) "));
        Desk().Command(IDM_OPEN);
    });
    Then([this] {
        Desk().answers = {MessageAnswer::Yes};
        Desk().Command(IDM_FULL_ERASE);
        Desk().Command(platform::kIdOk);
    });
    Then([this] {
        EXPECT_EQ(Selected(), L"Work  (1 found) ");
        Desk().Command(IDM_ADD_NOTE);
    });
    Then([this] {
        Desk().Stroke({{30, 100}});
        Desk().Command(IDM_NEW_NOTE);
    });
    Then(Close());
    Then(Close());
    Then([this] { EXPECT_EQ(Selected(), L"Work  (2 found) ") << "one note was left behind"; });
    RunManager(NotePath());
}

TEST_F(Commands, RemindersComeAndGoWithTheirDays) {
    const auto pickDay = [this] {
        Desk().Top()->Handle()->items[IDC_MONTH_CALENDAR].moment = {2007, 4, 0, 2, 0, 0, 0, 0};
        Desk().Command(platform::kIdOk);
    };
    Then([this] { Desk().Command(IDM_ADD_NOTE); });
    Then(pickDay);
    Then(Close());
    Then([this] {
        EXPECT_FALSE(Has(L"Reminders\\2007-04-02")) << "nothing was written";
        EXPECT_EQ(Selected(), L"Reminders");
        Desk().Command(IDM_ADD_NOTE);
    });
    Then(pickDay);
    Then([this] {
        Desk().Stroke({{30, 100}});
        Desk().Command(platform::kIdOk);
    });
    Then(Close());
    Then([this] {
        EXPECT_EQ(Selected(), L"Reminder 2007-04-02");
        EXPECT_THAT(Tree().Texts({L"Reminders"}), ElementsAre(L"Monday, April 2, 2007  (1 found) "));
        Desk().Command(IDM_OPEN);
    });
    Then([this] {
        Desk().answers = {MessageAnswer::Yes};
        Desk().Command(IDM_FULL_ERASE);
        Desk().Command(platform::kIdOk);
    });
    Then([this] {
        EXPECT_THAT(Tree().Texts({L"Reminders"}), IsEmpty());
        EXPECT_EQ(Selected(), L"Reminders");
    });
    RunManager(std::wstring(kRoot) + L"Reminders\\");
    EXPECT_FALSE(Has(L"Reminders\\2007-04-02"));
}

// March 2007 began on a Thursday: with Friday first its first row begins on the 23rd of February.
TEST_F(Commands, OptionsHoldInTheCalendarAtOnceAndInTheNextEditor) {
    Then([this] {
        Desk().Command(IDM_CALENDAR);
        hand.ChooseEntries({L"Options..."});
        Desk().Command(IDM_MANAGER_TOOLS);
        EXPECT_EQ(Window().Month().Grid().At(0, 0).day, 23);
        Desk().Command(IDM_CALENDAR);
        Tree().Tap({L"Notes", L"Work"});
        Desk().Command(IDM_ADD_NOTE);
    });
    Then([this] {
        Desk().Choose(IDC_FIRST_DAY, 4);
        Desk().Turn(IDC_PEN_SIZE_SPIN, 6);
        Desk().Command(platform::kIdOk);
    });
    Then([this] {
        const uint32_t paper = Shown().Row(80)[45];
        Desk().Stroke({{30, 100}, {60, 100}});
        int inked = 0;
        for (int y = 80; y < 120; ++y) inked += Shown().Row(y)[45] != paper ? 1 : 0;
        EXPECT_THAT(inked, testing::AllOf(testing::Ge(6), testing::Le(8))) << "six pixels wide";
        Desk().Command(platform::kIdOk);
    });
    Then(Close());
    RunManager();
}

TEST_F(Commands, AnotherStorageBecomesTheRoot) {
    device.files.PutFolder(L"\\Storage Card");
    Then([this] {
        hand.ChooseEntries({L"Storage Card"});
        Desk().Command(IDM_MANAGER_TOOLS);
        EXPECT_EQ(Window().Folders().RootPrefix(), L"\\Storage Card\\Inkwright\\");
        EXPECT_TRUE(device.files.Has(L"\\Storage Card\\Inkwright\\Reminders"));
        Desk().chosenFolder = L"\\Elsewhere\\";
        hand.ChooseEntries({L"Other Folder..."});
        Desk().Command(IDM_MANAGER_TOOLS);
        EXPECT_EQ(Window().Folders().RootPrefix(), L"\\Elsewhere\\");
    });
    RunManager();
    EXPECT_EQ(store::Settings::Text(store::SettingId::RootDirPath), L"\\Elsewhere");
}

TEST_F(Commands, APlaceThatCannotHoldTheStoreLeavesItWhereItIs) {
    device.files.PutFolder(L"\\Storage Card");
    device.files.unreachable = L"\\Storage Card";
    const std::wstring tooLong = L"\\" + std::wstring(259, L'a');
    Then([this, tooLong] {
        const std::wstring before = Window().Folders().RootPrefix();
        hand.ChooseEntries({L"Other Folder..."});
        for (const std::wstring& folder :
             {std::wstring(L"\\"), tooLong, std::wstring(L"\\Storage Card\\Ink")}) {
            Desk().chosenFolder = folder;
            Desk().Command(IDM_MANAGER_TOOLS);
            EXPECT_EQ(Window().Folders().RootPrefix(), before);
        }
    });
    RunManager();
    EXPECT_EQ(store::Settings::Text(store::SettingId::RootDirPath), L"");
    ASSERT_EQ(Desk().messages.size(), 3u);
    EXPECT_EQ(Desk().messages[0].text, L"'\\' cannot hold your notes. Please choose another folder.");
    EXPECT_EQ(Desk().messages[2].text, L"Reading '\\Storage Card\\Ink' failed!");
}

// A missing card, or a documents folder out of reach, gets no stand-in on some other storage.
TEST_F(Commands, AStoreThatCannotBeReadIsReportedAtTheStart) {
    const std::wstring usual = L"\\My Documents\\Inkwright";
    device.SetSetting(L"RootDirPath", L"\\Storage Card\\Ink");
    for (const bool isDocumentsAway : {false, true}) {
        Desk().messages.clear();
        device.files.Nodes().erase(L"\\MY DOCUMENTS\\INKWRIGHT");
        if (isDocumentsAway) device.files.unreachable = L"\\My Documents";
        Then([this, usual] { EXPECT_EQ(Window().Folders().RootPrefix(), usual + L"\\"); });
        RunManager();
        ASSERT_EQ(Desk().messages.size(), isDocumentsAway ? 2u : 1u);
        EXPECT_EQ(Desk().messages[0].text, L"Reading '\\Storage Card\\Ink' failed!");
        EXPECT_EQ(Desk().messages[0].caption, L" Error");
        EXPECT_EQ(Desk().messages.back().text,
                  L"Reading '" + (isDocumentsAway ? usual : L"\\Storage Card\\Ink") + L"' failed!");
        EXPECT_EQ(device.files.Has(usual), !isDocumentsAway);
        EXPECT_FALSE(device.files.Has(L"\\Storage Card"));
    }
    EXPECT_EQ(store::Settings::Text(store::SettingId::RootDirPath), L"\\Storage Card\\Ink")
        << "it may come back";
}

}  // namespace
