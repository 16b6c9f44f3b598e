#include "alarms/NoteAlarm.h"
#include "manager/StoreOperations.h"
#include "tests/manager/ManagerRig.h"

namespace {

using platform::MessageAnswer;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::kRoot;

// The note has an alarm, too.
class Operations : public testing_support::WorkTest {
  protected:
    Operations() {
        alarms::SetNoteAlarm(std::wstring(kRoot) + L"Work\\a.ikw", {2007, 3, 4, 15, 20, 0, 0, 0});
    }
    std::wstring AlarmArguments() {
        return device.notifications.empty() ? L"" : device.notifications.begin()->second.trigger.arguments;
    }
    std::wstring ArgumentsFor(const std::wstring& below) { return L"\"" + (kRoot + below) + L"\" /alarm"; }
};

TEST_F(Operations, MenusByKindOfNode) {
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    struct Case {
        Path path;
        Path menu;
    };
    const std::wstring day = L"Monday, March 5, 2007";
    Then([this, day] {
        for (const Case& c :
             {Case{{L"Notes"}, {L"Create Folder"}},
              Case{{L"Notes", L"Work"},
                   {L"New", L"-", L"Rename", L"Delete", L"-", L"Create Folder", L"Move Folder", L"-"}},
              Case{{L"Notes", L"Work  (1 found) ", L"a"},
                   {L"Open", L"-", L"Rename", L"Delete", L"-", L"Text Memo...", L"Set Alarm...", L"-",
                    L"Change Folder...", L"Move To Reminders..."}},
              Case{{L"Reminders"}, {L"Add"}},
              Case{{L"Reminders", day}, {L"Add", L"Show Calendar", L"-", L"Delete", L"-"}},
              Case{{L"Reminders", day + L"  (1 found) ", L"r"},
                   {L"Open", L"-", L"Rename", L"Delete", L"-", L"Text Memo...", L"Set Alarm...", L"-",
                    L"Change Date...", L"Move To Folder..."}},
              Case{{L"Alarms"}, {L"Refresh"}}}) {
            hand.ChooseEntries({L"nothing"});
            Tree().Hold(c.path);
            EXPECT_EQ(Menu(), c.menu);
        }
    });
    RunManager();
}

TEST_F(Operations, TheMemosMarkFollowsTheMemo) {
    struct Case {
        const wchar_t* text;
        bool hasMemo;
    };
    uint32_t mark[3] = {};
    int step = 0;
    for (const Case& c : {Case{L"plum jam", true}, Case{L"", false}, Case{L"tea", true}}) {
        ThenChoose(kNotePathInTree, L"Text Memo...");
        Then([this, c] {
            EXPECT_EQ(Desk().Top()->Title(), L"Inkwright");
            Desk().Type(IDC_MEMO_TEXT, c.text);
            Desk().Command(IDC_MEMO_SAVE);
        });
        Then([this, c, &mark, &step] {
            EXPECT_EQ(Has(L"Work\\a.txt"), c.hasMemo);
            EXPECT_EQ(Window().Tree().HasOverlay(Tree().Find(kNotePathInTree)), c.hasMemo);
            const ink::PixelSurface shown = Shown();
            for (int y = shown.height - 71; y < shown.height - 55; ++y) {
                for (int x = shown.width - 18; x < shown.width - 2; ++x) mark[step] += shown.Row(y)[x];
            }
            ++step;
        });
    }
    RunManager(std::wstring(kRoot) + L"Work\\");
    EXPECT_NE(mark[0], mark[1]);
    EXPECT_EQ(mark[0], mark[2]);
}

TEST_F(Operations, AReminderGoesToAFolderOnlyOnceFoldersAreListed) {
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    ThenChoose({L"Reminders", L"Monday, March 5, 2007  (1 found) ", L"r"}, L"nothing");
    RunManager(std::wstring(kRoot) + L"Reminders\\2007-03-05\\r.ikw");
    EXPECT_THAT(Menu(), testing::Contains(L"(Move To Folder...)"));
}

TEST_F(Operations, ANoteMovesWithItsMemoAndAlarms) {
    Then([this] {
        hand.ChooseEntries({L"Change Folder...", L"Home"});
        Tree().Hold(kNotePathInTree);
    });
    Then([this] { EXPECT_EQ(Selected(), L"a"); });
    RunManager(NotePath());
    EXPECT_TRUE(Has(L"Home\\a.ikw") && Has(L"Home\\a.txt"));
    EXPECT_FALSE(Has(L"Work\\a.ikw") || Has(L"Work\\a.txt"));
    EXPECT_EQ(AlarmArguments(), ArgumentsFor(L"Home\\a.ikw"));
}

TEST_F(Operations, MovingOntoAFileOfThatName) {
    struct Case {
        MessageAnswer answer;
        const wchar_t* moved;
        bool otherSurvives;
    };
    for (const Case& c :
         {Case{MessageAnswer::Yes, L"Home\\a.ikw", false}, Case{MessageAnswer::No, L"Home\\a (1).ikw", true},
          Case{MessageAnswer::Cancel, nullptr, true}}) {
        device.files.Put(NotePath(), "moved");
        device.files.Put(std::wstring(kRoot) + L"Home\\a.ikw", "other");
        Desk().answers = {c.answer};
        std::wstring destination = std::wstring(kRoot) + L"Home\\a.ikw";
        EXPECT_EQ(manager::MoveNote(nullptr, NotePath(), destination), c.moved != nullptr);
        if (c.moved != nullptr) {
            EXPECT_EQ(destination, kRoot + std::wstring(c.moved));
            EXPECT_EQ(device.files.Get(destination), "moved");
        }
        EXPECT_EQ(device.files.Get(std::wstring(kRoot) + L"Home\\a.ikw") == "other", c.otherSurvives);
        EXPECT_EQ(LastMessage(),
                  L"Destination folder already contains a file with the same name. Overwrite?");
        EXPECT_EQ(Desk().messages.back().caption, L" Confirm Overwrite");
        EXPECT_EQ(Desk().messages.back().defaultButton, platform::DefaultButton::Second);
        device.files.Nodes().erase(device.files.KeyOf(std::wstring(kRoot) + L"Home\\a (1).ikw"));
    }
    std::wstring same = std::wstring(kRoot) + L"WORK\\A.ikw";
    EXPECT_FALSE(manager::MoveNote(nullptr, NotePath(), same)) << "onto itself";
}

TEST_F(Operations, MovingToADay) {
    ThenChoose(kNotePathInTree, L"Move To Reminders...");
    Then([this] {
        Desk().Top()->Handle()->items[IDC_MONTH_CALENDAR].moment = {2007, 4, 0, 2, 0, 0, 0, 0};
        Desk().Command(platform::kIdOk);
    });
    Then([this] { EXPECT_EQ(Selected(), L"a"); });
    RunManager(NotePath());
    EXPECT_TRUE(Has(L"Reminders\\2007-04-02\\a.ikw"));
    EXPECT_EQ(AlarmArguments(), ArgumentsFor(L"Reminders\\2007-04-02\\a.ikw"));
}

TEST_F(Operations, RenamingANote) {
    Then([this] {
        Desk().Command(IDM_RENAME);
        EXPECT_EQ(Tree().EditText(), L"a");
        Tree().EndEdit(L"b");
        EXPECT_EQ(Selected(), L"b");
        EXPECT_EQ(Window().Folders().SelectedNote(), L"Work\\b.ikw");
    });
    RunManager(NotePath());
    EXPECT_TRUE(Has(L"Work\\b.ikw") && Has(L"Work\\b.txt"));
    EXPECT_EQ(AlarmArguments(), ArgumentsFor(L"Work\\b.ikw"));
    EXPECT_THAT(Desk().messages, IsEmpty());
}

TEST_F(Operations, RefusedNamesLeaveEverythingAsItWas) {
    PutNote(L"Work\\taken.ikw");
    for (const wchar_t* name : {L"", L"wh?at", L"a\\b", L"taken"}) {
        Then([this, name] {
            Desk().Command(IDM_RENAME);
            Tree().EndEdit(name);
            EXPECT_EQ(Selected(), L"a");
        });
    }
    Then([this] {
        Desk().Command(IDM_RENAME);
        Tree().EndEdit(L"a");  // unchanged: nothing to say
        Desk().Command(IDM_RENAME);
        Tree().CancelEdit();
    });
    RunManager(NotePath());
    ASSERT_EQ(Desk().messages.size(), 4u);
    for (const auto& message : Desk().messages) {
        EXPECT_EQ(message.text,
                  L"Renaming failed! Please make sure the file/folder is not currently in use.\n\nNOTE. A "
                  L"file/folder "
                  L"name cannot contain any of the following characters:\n\\ / : * ? \" < > |");
        EXPECT_EQ(message.caption, L" Error");
    }
    EXPECT_TRUE(Has(L"Work\\a.ikw"));
}

TEST_F(Operations, RenamingAFolderTakesTheAlarmsOfItsNotesAlong) {
    Then([this] {
        for (const std::wstring name : {L"TEMP", L"temp.", L"Reminders . "}) {
            Desk().Command(IDM_RENAME);
            EXPECT_EQ(Tree().EditText(), L"Work") << "without the count";
            Tree().EndEdit(name);
            EXPECT_EQ(LastMessage(), L"The folder name '" + name +
                                         L"' is reserved for internal use. Please enter a different name.");
        }
        Desk().Command(IDM_RENAME);
        Tree().EndEdit(L"Attic");
        EXPECT_EQ(Selected(), L"Attic  (1 found) ");
        EXPECT_THAT(Tree().Texts({L"Notes"}), ElementsAre(L"Attic  (1 found) ", L"Home"));
    });
    RunManager(std::wstring(kRoot) + L"Work\\");
    EXPECT_TRUE(Has(L"Attic\\a.ikw"));
    EXPECT_EQ(AlarmArguments(), ArgumentsFor(L"Attic\\a.ikw"));
}

TEST_F(Operations, DeletingANoteAsksAndTakesMemoAndAlarmsAlong) {
    Desk().answers = {MessageAnswer::No, MessageAnswer::Yes};
    Then([this] {
        Desk().Command(IDM_DELETE);
        EXPECT_TRUE(Has(L"Work\\a.ikw"));
        EXPECT_EQ(LastMessage(), L"'a.ikw' will be permanently deleted. Continue?");
        EXPECT_EQ(Desk().messages.back().caption, L" Confirm File Delete");
        Desk().Command(IDM_DELETE);
        EXPECT_THAT(Tree().Texts({L"Notes"}), testing::Contains(L"Work  (0 found) "));
    });
    RunManager(NotePath());
    EXPECT_FALSE(Has(L"Work\\a.ikw") || Has(L"Work\\a.txt"));
    EXPECT_THAT(device.notifications, IsEmpty());
}

TEST_F(Operations, OnlyTheFolderThatIsShownHasACount) {
    PutNote(L"Work\\Deep\\d.ikw");
    Desk().answers = {MessageAnswer::Yes};
    Then([this] {
        Desk().Command(IDM_DELETE);
        EXPECT_EQ(Selected(), L"Deep  (1 found) ");
        EXPECT_THAT(Tree().Texts({L"Notes"}), ElementsAre(L"Home", L"Work"));
    });
    RunManager(NotePath());
}

TEST_F(Operations, TheLastReminderOfADayTakesTheDayAlong) {
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    Desk().answers = {MessageAnswer::Yes};
    Then([this] {
        Desk().Command(IDM_DELETE);
        EXPECT_THAT(Tree().Texts({L"Reminders"}), IsEmpty());
    });
    RunManager(std::wstring(kRoot) + L"Reminders\\2007-03-05\\r.ikw");
    EXPECT_FALSE(Has(L"Reminders\\2007-03-05"));
}

TEST_F(Operations, AFolderThatCannotBeDeletedWholeIsReadAgain) {
    PutNote(L"Work\\b.ikw");
    const platform::File held = platform::File::OpenForReading(std::wstring(kRoot) + L"Work\\b.ikw");
    Desk().answers = {MessageAnswer::Yes};
    Then([this] {
        Desk().Command(IDM_DELETE);
        EXPECT_EQ(Desk().messages[0].text,
                  L"'Work' folder and all its contents will be permanently deleted! Continue?");
        EXPECT_EQ(Desk().messages[0].caption, L" Confirm Folder Delete");
        EXPECT_EQ(LastMessage(), L"Deleting 'Work' folder failed.");
        EXPECT_THAT(Tree().Texts({L"Notes", L"Work  (1 found) "}), ElementsAre(L"b"));
    });
    RunManager(std::wstring(kRoot) + L"Work\\");
    EXPECT_THAT(device.notifications, IsEmpty()) << "the alarm of the note that went is dropped all the same";
}

TEST_F(Operations, NewFoldersGetFreeNamesAndWaitForTheirOwn) {
    device.files.Put(std::wstring(kRoot) + L"New Folder", "a file in the way");
    Then([this] {
        Desk().Command(IDM_CREATE_FOLDER);
        EXPECT_TRUE(Tree().IsEditing());
        EXPECT_EQ(Tree().EditText(), L"New Folder (1)");
        Tree().EndEdit(L"Plans");
        EXPECT_EQ(Selected(), L"Plans  (0 found) ");
    });
    RunManager();
    EXPECT_TRUE(Has(L"Plans"));
}

TEST_F(Operations, AFolderMovesButNotIntoItself) {
    PutNote(L"Work\\Deep\\d.ikw");
    alarms::SetNoteAlarm(std::wstring(kRoot) + L"Work\\deep\\D.ikw", {2007, 3, 4, 15, 20, 0, 0, 0});
    Then([this] {
        hand.ChooseEntries({L"Move Folder", L"Home"});
        Tree().Hold({L"Notes", L"Work  (1 found) "});
    });
    Then([this] {
        EXPECT_THAT(Menu(),
                    testing::AllOf(testing::Contains(L"Home"), testing::Not(testing::Contains(L"Work"))));
        EXPECT_EQ(Selected(), L"Work  (1 found) ");
    });
    RunManager(std::wstring(kRoot) + L"Work\\");
    EXPECT_TRUE(Has(L"Home\\Work\\a.ikw") && Has(L"Home\\Work\\Deep\\d.ikw"));
    EXPECT_EQ(AlarmArguments(), ArgumentsFor(L"Home\\Work\\a.ikw"));
    EXPECT_EQ(device.notifications.rbegin()->second.trigger.arguments,
              ArgumentsFor(L"Home\\Work\\Deep\\d.ikw"));
}

TEST_F(Operations, AReservedNameStaysDeeperDown) {
    PutNote(L"Work\\Temp\\d.ikw");
    Then([this] {
        hand.ChooseEntries({L"Move Folder", L"Notes"});
        Tree().Hold({L"Notes", L"Work", L"Temp  (1 found) "});
    });
    RunManager(std::wstring(kRoot) + L"Work\\Temp\\");
    EXPECT_EQ(LastMessage(), L"Moving from '" + (kRoot + std::wstring(L"Work\\Temp' to '")) + kRoot +
                                 L"Temp' failed!\n\nThe source folder may be in use or the destination "
                                 L"folder already exists.");
    EXPECT_TRUE(Has(L"Work\\Temp\\d.ikw") && !Has(L"Temp"));
}

TEST_F(Operations, FoldersOfAnyDepthCanBePicked) {
    std::wstring deep = L"L1";
    for (int level = 2; level <= 14; ++level) deep += L"\\L" + std::to_wstring(level);
    device.files.PutFolder(kRoot + deep);
    Then([this] {
        hand.ChooseEntries(
            {L"Change Folder...", L"L6...", L"L12...", L"Back", L"Back", L"L6...", L"L12...", L"L14"});
        Tree().Hold(kNotePathInTree);
    });
    RunManager(NotePath());
    EXPECT_TRUE(Has(deep + L"\\a.ikw"));
}

TEST_F(Operations, ManyFoldersAreReadInParts) {
    for (int i = 100; i < 1000; ++i) {
        device.files.PutFolder(kRoot + (L"F" + std::to_wstring(i)) + L"\\In " + std::to_wstring(i));
    }
    int lists = 0;
    Then([this, &lists] {
        hand.ChooseEntries({L"Change Folder...", L"F999...", L"In 999"});
        device.files.fault = [&lists](platform::host::FileCall call, const std::wstring&) {
            lists += call == platform::host::FileCall::List ? 1 : 0;
            return platform::FileError::None;
        };
        Tree().Hold(kNotePathInTree);
    });
    Then([&lists] { EXPECT_LE(lists, 320); });
    RunManager(NotePath());
    EXPECT_TRUE(Has(L"F999\\In 999\\a.ikw"));
}

TEST_F(Operations, CopyingToACard) {
    device.files.PutFolder(L"\\Storage Card");
    device.files.Put(L"\\Storage Card\\Inkwright\\Work\\a.ikw", "older");
    Desk().answers = {MessageAnswer::Yes};
    Then([this] {
        hand.ChooseEntries({L"Copy To \\Storage Card"});
        Tree().Hold({L"Notes", L"Work  (1 found) "});
        EXPECT_THAT(Menu(), testing::Contains(L"(Copy To \\My Documents)"));
        Desk().Settle();
        EXPECT_EQ(LastMessage(), L"Done!");
        EXPECT_EQ(Desk().messages.back().caption, L" File Copy");
    });
    RunManager(std::wstring(kRoot) + L"Work\\");
    EXPECT_EQ(device.files.Get(L"\\Storage Card\\Inkwright\\Work\\a.ikw"), EmptyNote());
    EXPECT_TRUE(device.files.Has(L"\\Storage Card\\Inkwright\\Work\\a.txt"));
    EXPECT_EQ(Desk().messages[0].text,
              L"'\\Storage Card\\Inkwright\\Work\\a.ikw' will be overwritten. Overwrite?");
}

TEST_F(Operations, CopyingStopsWhereItIsToldTo) {
    for (const wchar_t* name : {L"a.ikw", L"b.ikw", L"c.ikw"}) {
        device.files.Put(std::wstring(L"\\From\\") + name, "new");
        device.files.Put(std::wstring(L"\\To\\") + name, "old");
    }
    Desk().answers = {MessageAnswer::Yes, MessageAnswer::Cancel};
    EXPECT_EQ(manager::CopyFolderTree(nullptr, L"\\From\\", L"\\To\\"), manager::CopyResult::Cancelled);
    // What another copy sends to close the question is no Yes.
    Desk().answers = {MessageAnswer::Ok};
    EXPECT_EQ(manager::CopyFolderTree(nullptr, L"\\From\\", L"\\To\\"), manager::CopyResult::Cancelled);
    EXPECT_EQ(device.files.Get(L"\\To\\a.ikw") + device.files.Get(L"\\To\\b.ikw"), "newold");
}

}  // namespace
