#include "app/store/NodeKind.h"
#include "tests/manager/ManagerRig.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::kRoot;
using testing_support::Words;

class FolderTree : public testing_support::ManagerTest {};

TEST_F(FolderTree, TheStoreIsSetUpAndOnlyTheTopIsRead) {
    Then([this] {
        EXPECT_TRUE(Has(L"Reminders"));
        EXPECT_THAT(Tree().Texts(), ElementsAre(L"Notes", L"Reminders", L"Alarms"));
        EXPECT_EQ(Selected(), L"Notes");
        EXPECT_EQ(Window().Title(), L"Inkwright");
    });
    RunManager();
}

TEST_F(FolderTree, FoldersAndNotesInOrderWithTheirCount) {
    for (const wchar_t* note :
         {L"Work\\b.ikw", L"Work\\Z.ikw", L"Work\\a.IKW", L"Work\\a.ikw.bak", L"Work\\temp\\x.ikw"}) {
        PutNote(note);
    }
    device.files.PutFolder(std::wstring(kRoot) + L"Work\\zoo");
    device.files.PutFolder(std::wstring(kRoot) + L"TEMP");
    device.files.PutFolder(std::wstring(kRoot) + L"temp. ");
    device.files.PutFolder(std::wstring(kRoot) + L"apples");
    PutNote(L"loose.ikw");
    Then([this] {
        EXPECT_THAT(Tree().Texts({L"Notes"}), ElementsAre(L"apples", L"Work"));
        Tree().Tap({L"Notes", L"Work"});
        EXPECT_EQ(Selected(), L"Work  (3 found) ");
        EXPECT_EQ(Window().Folders().SelectedKind(), store::NodeKind::OpenFolder);
        EXPECT_THAT(Tree().Texts({L"Notes", L"Work  (3 found) "}),
                    ElementsAre(L"temp", L"zoo", L"Z", L"a", L"b"));
    });
    RunManager();
}

TEST_F(FolderTree, LeavingABranchDropsItAndItsCount) {
    PutNote(L"Work\\Deep\\n.ikw");
    PutNote(L"Home\\h.ikw");
    Then([this] {
        Tree().Tap({L"Notes", L"Work"});
        Tree().Tap({L"Notes", L"Work  (0 found) ", L"Deep"});
        EXPECT_THAT(Tree().Texts({L"Notes"}), ElementsAre(L"Home", L"Work"))
            << "the way down stays open, without a count";
        EXPECT_THAT(Tree().Texts({L"Notes", L"Work"}), ElementsAre(L"Deep  (1 found) "));
        Tree().Tap({L"Notes", L"Work"});
        EXPECT_THAT(Tree().Texts({L"Notes", L"Work  (0 found) "}), ElementsAre(L"Deep"));
        Tree().Tap({L"Notes", L"Home"});
        EXPECT_THAT(Tree().Texts({L"Notes", L"Work"}), IsEmpty());
    });
    RunManager();
}

// Nothing is read and nothing opens again.
TEST_F(FolderTree, AClosedBranchIsSelectedItself) {
    PutNote(L"Work\\Deep\\n.ikw");
    PutNote(L"Work\\w.ikw");
    Then([this] {
        Tree().CloseBranch({L"Notes", L"Work"});
        EXPECT_EQ(Selected(), L"Work  (1 found) ");
        EXPECT_FALSE(Window().Tree().IsExpanded(Window().Tree().Selection()));
        EXPECT_EQ(Window().Folders().SelectedNote(), L"");
        EXPECT_FALSE(Tools().IsEnabled(IDM_OPEN));
        Tree().CloseBranch({L"Notes"});
        EXPECT_EQ(Selected(), L"Notes");
        EXPECT_THAT(Tree().Texts({L"Notes"}), ElementsAre(L"Work"));
    });
    RunManager(std::wstring(kRoot) + L"Work\\Deep\\n.ikw");
}

TEST_F(FolderTree, DaysAreShownByTheirLongDatesAndEmptyOnesVanish) {
    PutNote(L"Reminders\\2007-03-08\\b.ikw");
    PutNote(L"Reminders\\2007-03-05\\a.ikw");
    device.files.Put(std::wstring(kRoot) + L"Reminders\\2007-03-06\\only.txt", "memo");
    device.files.PutFolder(std::wstring(kRoot) + L"Reminders\\2007-03-07");
    PutNote(L"Reminders\\2007-3-9\\c.ikw");
    PutNote(L"Reminders\\2007-00-09\\c.ikw");
    PutNote(L"Reminders\\2007-03-05\\sub\\c.ikw");
    Then([this] {
        Tree().Tap({L"Reminders"});
        EXPECT_THAT(Tree().Texts({L"Reminders"}),
                    ElementsAre(L"Monday, March 5, 2007", L"Thursday, March 8, 2007"));
        EXPECT_FALSE(Has(L"Reminders\\2007-03-07"));
        EXPECT_TRUE(Has(L"Reminders\\2007-03-06")) << "what holds a memo is no empty folder";
        Tree().Tap({L"Reminders", L"Monday, March 5, 2007"});
        EXPECT_EQ(Selected(), L"Monday, March 5, 2007  (1 found) ");
        EXPECT_THAT(Tree().Texts({L"Reminders", L"Monday, March 5, 2007  (1 found) "}), ElementsAre(L"a"));
        Tree().Tap({L"Reminders", L"Monday, March 5, 2007  (1 found) ", L"a"});
        EXPECT_EQ(Window().Folders().SelectedNote(), L"Reminders\\2007-03-05\\a.ikw");
    });
    RunManager();
}

TEST_F(FolderTree, AMemoMarksItsNoteAtTheNextVisit) {
    PutNote(L"Work\\a.ikw");
    PutNote(L"Work\\b.ikw");
    device.files.Put(std::wstring(kRoot) + L"Work\\A.TXT", "memo");
    Then([this] {
        Tree().Tap({L"Notes", L"Work"});
        EXPECT_TRUE(Window().Tree().HasOverlay(Tree().Find({L"Notes", L"Work  (2 found) ", L"a"})));
        EXPECT_FALSE(Window().Tree().HasOverlay(Tree().Find({L"Notes", L"Work  (2 found) ", L"b"})));
        device.files.Nodes().erase(device.files.KeyOf(std::wstring(kRoot) + L"Work\\a.txt"));
        Tree().Tap({L"Reminders"});
        Tree().Tap({L"Notes"});
        Tree().Tap({L"Notes", L"Work"});
        EXPECT_FALSE(Window().Tree().HasOverlay(Tree().Find({L"Notes", L"Work  (2 found) ", L"a"})));
    });
    RunManager();
}

TEST_F(FolderTree, ToolBarFollowsTheSelection) {
    PutNote(L"Work\\a.ikw");
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    struct Case {
        Path path;
        bool add, open, remove;
    };
    Then([this] {
        for (const Case& c :
             {Case{{L"Notes"}, false, false, false}, Case{{L"Notes", L"Work"}, true, false, true},
              Case{{L"Notes", L"Work  (1 found) ", L"a"}, true, true, true},
              Case{{L"Reminders"}, true, false, false},
              Case{{L"Reminders", L"Monday, March 5, 2007"}, true, false, true},
              Case{{L"Alarms"}, false, false, false}}) {
            Tree().Tap(c.path);
            EXPECT_EQ(Tools().IsEnabled(IDM_ADD_NOTE), c.add);
            EXPECT_EQ(Tools().IsEnabled(IDM_OPEN), c.open);
            EXPECT_EQ(Tools().IsEnabled(IDM_DELETE), c.remove);
            EXPECT_FALSE(Tools().IsPressed(IDM_CALENDAR));
            EXPECT_FALSE(Tools().IsEnabled(IDM_PREVIOUS_MONTH));
        }
    });
    RunManager();
}

TEST_F(FolderTree, APathIsSelectedAtStart) {
    PutNote(L"Work\\Deep\\n.ikw");
    Then([this] { EXPECT_EQ(Selected(), L"Deep  (1 found) "); });
    RunManager(std::wstring(kRoot) + L"work\\deep\\");
    Then([this] { EXPECT_EQ(Selected(), L"n"); });
    RunManager(std::wstring(kRoot) + L"Work\\Deep\\N.ikw");
    Then([this] { EXPECT_EQ(Selected(), L"Work  (0 found) "); });
    RunManager(std::wstring(kRoot) + L"Work\\Gone\\x.ikw");
}

TEST_F(FolderTree, AFolderOutsideTheRootShowsItsOwnStoreForThisRun) {
    device.files.Put(L"\\Storage Card\\Inkwright\\Trip\\t.ikw", EmptyNote());
    Then([this] {
        EXPECT_EQ(Selected(), L"Trip  (1 found) ");
        EXPECT_EQ(manager::HeaderBar::Text(Window().Folders().RootPrefix()).substr(0, 12), L"Storage Card");
    });
    RunManager(L"\\Storage Card\\Inkwright\\Trip\\");
    EXPECT_FALSE(device.HasSetting(L"RootDirPath"));
    device.files.PutFolder(L"\\Elsewhere\\Trip");
    Then([this] { EXPECT_EQ(Selected(), L"Notes"); });
    RunManager(L"\\Elsewhere\\Trip\\");
}

TEST_F(FolderTree, AnUnreadableRootIsReportedAndTheUsualOneTaken) {
    device.files.Put(L"\\File", "in the way");
    device.SetSetting(L"RootDirPath", L"\\File\\Ink");
    Then([this] { EXPECT_EQ(Window().Folders().RootPrefix(), kRoot); });
    RunManager();
    ASSERT_EQ(Desk().messages.size(), 1u);
    EXPECT_EQ(Desk().messages[0].text, L"Reading '\\File\\Ink' failed!");
    EXPECT_EQ(Desk().messages[0].caption, L" Error");
}

TEST_F(FolderTree, FreeSpaceCountsWholeKilobytes) {
    device.files.PutFolder(L"\\My Documents\\Inkwright");
    device.files.capacity = 1572864;
    EXPECT_EQ(manager::HeaderBar::Text(kRoot), L" Main Memory [ 1.50MB Free ]");
    device.files.capacity = 1023;
    EXPECT_EQ(manager::HeaderBar::Text(kRoot), L" Main Memory [ 0.00MB Free ]");
    EXPECT_EQ(manager::HeaderBar::Text(L"\\Gone\\Inkwright\\"), L"Gone");
}

// Their bands are ten rows high, so that a tall stroke of the head lies in a late one. What old versions have
// where newer ones keep an offset means nothing.
TEST_F(FolderTree, ThePreviewShowsTheHeadOfTheNoteOnDarkerPaper) {
    for (const auto& [name, version, offset] : {std::tuple{L"a", 5, 0}, std::tuple{L"b", 3, 1000}}) {
        device.files.Put(kRoot + (std::wstring(L"Work\\") + name + L".ikw"),
                         Words({version, 0xFFFFFF, 4, 10, 0,  0,   0,  2,                    //
                                3,       offset,   0, 0,  30, 200, 50, 30, 90, 30, 90, 200,  //
                                2,       offset,   0, 0,  45, 45,  50, 45, 90, 45}));
        Then([this, name = name] {
            Tree().Tap({L"Notes", L"Work  (2 found) ", name});
            Desk().Settle();
            const int top = Window().ClientHeight() - 75;
            EXPECT_EQ(Shown().Row(top + 60)[10], 0xD9D9D9u);
            EXPECT_EQ(Shown().Row(top + 30)[70], 0u);
            EXPECT_EQ(Shown().Row(top + 45)[70], 0xD9D9D9u) << "a stroke that begins at row 45 is not shown";
        });
    }
    RunManager(std::wstring(kRoot) + L"Work\\");
}

}  // namespace
