// The tree of the store, its strip and the header above it.
#include "tests/manager/ManagerRig.h"

namespace {

using testing_support::kRoot;
using testing_support::Words;

class StoreTree : public testing_support::ManagerTest {
  protected:
    void PutFolder(const std::wstring& below) { device.files.PutFolder(kRoot + below); }
    testing_support::Step ExpectMark(const std::wstring& note, bool isMarked) {
        return [=] { EXPECT_EQ(Tree().IsMarked(Item(note)), isMarked); };
    }
    // A pixel of the strip, which is the last 75 rows.
    void SetWritten(const std::wstring& below) {
        device.files.Find(kRoot + below)->lastWrite = {2007, 3, 1, 5, 14, 30, 12, 0};
    }
    uint32_t StripPixel(int x, int y) { return Shown().Row(Shown().height - 75 + y)[x]; }
};

TEST_F(StoreTree, TheStoreIsSetUpAndOnlyTheTopIsRead) {
    device.files.Nodes().clear();
    device.files.PutFolder(L"\\My Documents");
    RunManager(L"", {ExpectTree(L"", {L"Notes", L"Reminders", L"Alarms"}), ExpectSelected(L"Notes"),
                     ExpectTitle(L"Inkwright"), [this] {
                         EXPECT_TRUE(Has(L"Reminders"));
                         platform::HostTreeNode& top = *TreeControl().Handle()->root.children.front();
                         EXPECT_TRUE(top.bold);
                         EXPECT_EQ(TreeControl().Handle()->frozen, 0);
                     }});
}

TEST_F(StoreTree, FoldersAndNotesInOrderWithTheirCount) {
    for (const wchar_t* note :
         {L"Work\\b.ikw", L"Work\\Z.ikw", L"Work\\a.ikw.bak", L"Work\\temp\\x.IKW", L"loose.ikw"}) {
        PutNote(note);
    }
    for (const wchar_t* folder : {L"Work\\zoo", L"TEMP", L"temp. ", L"apples"}) PutFolder(folder);
    device.files.PutFolder(kRoot + L"Work\\folder.ikw");
    RunManager(L"", {ExpectTree(L"Notes", {L"apples", L"Home", L"Work"}), Tap(L"Notes\\Work"),
                     ExpectSelected(L"Work  (3 found) "),
                     ExpectTree(L"Notes\\Work", {L"folder.ikw", L"temp", L"zoo", L"Z", L"a", L"b"}),
                     Tap(L"Notes\\Work\\temp"), ExpectTree(L"Notes\\Work\\temp", {L"x"})});
}

TEST_F(StoreTree, LeavingABranchDropsItAndItsCount) {
    PutNote(L"Work\\Deep\\n.ikw");
    RunManager(
        L"",
        {Tap(L"Notes\\Work"), Tap(L"Notes\\Work\\Deep"),
         // The way down stays open, without a count.
         ExpectTree(L"Notes", {L"Home", L"Work"}), ExpectTree(L"Notes\\Work", {L"Deep  (1 found) ", L"a"}),
         Tap(L"Notes\\Work"), ExpectTree(L"Notes", {L"Home", L"Work  (1 found) "}),
         ExpectTree(L"Notes\\Work", {L"Deep", L"a"}), Tap(L"Notes\\Home"), ExpectTree(L"Notes\\Work", {})});
}

// Nothing is read and nothing opens again.
TEST_F(StoreTree, AClosedBranchIsSelectedItself) {
    PutNote(L"Work\\Deep\\n.ikw");
    RunManager(L"Work\\Deep\\n.ikw", {[this] {
                                          Tree().CloseBranch({L"Notes", L"Work"});
                                      },
                                      ExpectSelected(L"Work  (1 found) "),
                                      [this] {
                                          EXPECT_FALSE(TreeControl().IsExpanded(TreeControl().Selection()));
                                          EXPECT_FALSE(hand.Tool(IDM_OPEN).enabled);
                                          Tree().CloseBranch({L"Notes"});
                                      },
                                      ExpectSelected(L"Notes"), ExpectTree(L"Notes", {L"Home", L"Work"})});
}

TEST_F(StoreTree, DaysAreShownByTheirLongDatesAndEmptyOnesVanish) {
    for (const wchar_t* note : {L"2007-03-08\\b", L"2007-03-05\\a", L"2007-3-9\\c", L"2007-00-09\\c",
                                L"2007-03-05\\sub\\c", L"2007-02-31\\d"}) {
        PutNote(std::wstring(L"Reminders\\") + note + L".ikw");
    }
    device.files.Put(kRoot + L"Reminders\\2007-03-06\\only.txt", "memo");
    PutFolder(L"Reminders\\2007-03-07");
    const std::wstring monday = L"Monday, March 5, 2007";
    RunManager(
        L"",
        {Tap(L"Reminders"), ExpectTree(L"Reminders", {L"2007-02-31", monday, L"Thursday, March 8, 2007"}),
         [this] {
             EXPECT_FALSE(Has(L"Reminders\\2007-03-07"));
             EXPECT_TRUE(Has(L"Reminders\\2007-03-06")) << "what holds a memo is no empty folder";
         },
         Tap(L"Reminders\\" + monday), ExpectSelected(monday + L"  (1 found) "),
         ExpectTree(L"Reminders\\" + monday, {L"a"}), Tap(L"Reminders\\" + monday + L"\\a"), Tap(L"Notes"),
         ExpectTree(L"Reminders", {L"2007-02-31", monday, L"Thursday, March 8, 2007"})});
}

TEST_F(StoreTree, AMemoMarksItsNoteAtTheNextVisit) {
    PutNote(L"Work\\b.ikw");
    RunManager(L"Work\\",
               {ExpectMark(L"Notes\\Work\\a", true), ExpectMark(L"Notes\\Work\\b", false),
                [this] { device.files.Nodes().erase(device.files.KeyOf(kRoot + L"Work\\a.txt")); },
                Tap(L"Reminders"), Tap(L"Notes"), Tap(L"Notes\\Work"), ExpectMark(L"Notes\\Work\\a", false)});
}

TEST_F(StoreTree, ToolBarFollowsTheSelection) {
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    struct Case {
        const wchar_t* path;
        bool add, open, remove;
    };
    testing_support::Script script;
    for (const Case& c : {Case{L"Notes", false, false, false}, Case{L"Notes\\Work", true, false, true},
                          Case{L"Notes\\Work\\a", true, true, true}, Case{L"Reminders", true, false, false},
                          Case{L"Reminders\\Monday, March 5, 2007", true, false, true},
                          Case{L"Alarms", false, false, false}}) {
        script.insert(script.end(), {Tap(c.path), [this, c] {
                                         EXPECT_EQ(hand.Tool(IDM_ADD_NOTE).enabled, c.add);
                                         EXPECT_EQ(hand.Tool(IDM_OPEN).enabled, c.open);
                                         EXPECT_EQ(hand.Tool(IDM_DELETE).enabled, c.remove);
                                         EXPECT_FALSE(hand.Tool(IDM_CALENDAR).pressed);
                                         EXPECT_FALSE(hand.Tool(IDM_PREVIOUS_MONTH).enabled);
                                     }});
    }
    RunManager(L"", script);
}

TEST_F(StoreTree, APathIsSelectedAtStart) {
    PutNote(L"Work\\Deep\\n.ikw");
    device.files.Put(L"\\Storage Card\\Inkwright\\Trip\\t.ikw", "");
    device.files.PutFolder(L"\\Elsewhere\\Trip");
    const struct {
        std::wstring path;
        const wchar_t* selected;
    } kCases[] = {{kRoot + L"work\\deep\\", L"Deep  (1 found) "},
                  {kRoot + L"Work\\Deep\\N.ikw", L"n"},
                  {kRoot + L"Work\\Gone\\x.ikw", L"Work  (1 found) "},
                  {kRoot + L"Reminders\\", L"Reminders"},
                  {L"\\Storage Card\\Inkwright\\Trip\\", L"Trip  (1 found) "},  // a store of its own
                  {L"\\Elsewhere\\Trip\\", L"Notes"}};
    for (const auto& each : kCases) RunManagerOn(each.path, {ExpectSelected(each.selected)});
    EXPECT_FALSE(device.HasSetting(L"RootDirPath"));
}

TEST_F(StoreTree, TheHeaderTellsTheStorageAndWholeKilobytesOfRoom) {
    device.files.PutFolder(L"\\Storage Card\\Inkwright");
    device.files.PutFolder(kRoot + L"Reminders");
    const uint64_t used = device.files.UsedBytes();
    device.files.capacity = used + 1572864;
    RunManager(L"", {ExpectText(L" Main Memory [ 1.50MB Free ]"), [=] {
                         device.files.capacity = used + 1023;
                         device.SetSetting(L"RootDirPath", L"\\Storage Card\\Inkwright");
                     }});
    RunManager(L"", {ExpectText(L"Storage Card [ 0.00MB Free ]"), [this] {
                         const ink::PixelSurface shown = Shown();
                         const ink::Rect text = Desk().PlaceOf(L"Storage Card [ 0.00MB Free ]");
                         EXPECT_EQ(text.right, shown.width - 5);
                         EXPECT_EQ(shown.Row(text.top)[0], 0xF0F0F0u) << "the bar's colour";
                         EXPECT_EQ(shown.Row(manager::HeaderBar::Height() - 1)[0], 0x646464u) << "its line";
                         EXPECT_EQ(shown.Row((text.top + text.bottom) / 2)[text.left], 0u);
                     }});
}

// Their bands are ten rows high, so that a tall stroke of the head lies in a late one. What old versions have
// where newer ones keep an offset means nothing.
TEST_F(StoreTree, TheStripShowsTheHeadOfTheNoteOnDarkerPaper) {
    for (const auto& [name, version, offset] : {std::tuple{L"a", 5, 0}, std::tuple{L"b", 3, 1000}}) {
        device.files.Put(kRoot + L"Work\\" + name + L".ikw",
                         Words({version, 0xFFFFFF, 4, 10, 0,  0,   0,  2,                    //
                                3,       offset,   0, 0,  30, 200, 50, 30, 90, 30, 90, 200,  //
                                2,       offset,   0, 0,  45, 45,  50, 45, 90, 45}));
        SetWritten(std::wstring(L"Work\\") + name + L".ikw");
        RunManager(std::wstring(L"Work\\") + name + L".ikw",
                   {[this] {
                        EXPECT_EQ(StripPixel(10, 60), 0xD9D9D9u);
                        EXPECT_EQ(StripPixel(70, 30), 0u);
                        EXPECT_EQ(StripPixel(70, 45), 0xD9D9D9u)
                            << "a stroke that begins at row 45 is not shown";
                        EXPECT_EQ(StripPixel(0, 0), 0x646464u) << "the line above";
                    },
                    ExpectText(L"3/5/2007 2:30:12 PM"),
                    name == std::wstring(L"a") ? ExpectText(L"picture 13") : ExpectNoText(L"picture 13")});
    }
}

// What is no note shows as white paper with its date; without a note there is the banner on its own ground.
TEST_F(StoreTree, TheStripWithoutANote) {
    device.files.Put(kRoot + L"Work\\a.ikw", "no note");
    SetWritten(L"Work\\a.ikw");
    const platform::Image mark = platform::Image::FromResource(IDB_NOTE_MARK);
    RunManager(L"Work\\a.ikw", {ExpectText(L"3/5/2007 2:30:12 PM"),
                                [&] {
                                    EXPECT_EQ(StripPixel(100, 60), 0xD9D9D9u);
                                    const ink::PixelSurface pixels = mark.Surface();
                                    const int left = Shown().width - pixels.width;
                                    for (int x = 0; x < pixels.width; ++x)
                                        EXPECT_EQ(StripPixel(left + x, 20 + 8), pixels.Row(8)[x]);
                                },
                                Tap(L"Notes"), ExpectNoText(L"3/5/2007 2:30:12 PM"),
                                [this] {
                                    const platform::Image banner = platform::Image::FromResource(IDB_BANNER);
                                    const ink::PixelSurface pixels = banner.Surface();
                                    const int left = (Shown().width - pixels.width) / 2;
                                    EXPECT_EQ(StripPixel(0, 40), pixels.pixels[0]);
                                    for (int x = 0; x < pixels.width; ++x)
                                        EXPECT_EQ(StripPixel(left + x, 74), pixels.Row(pixels.height - 1)[x]);
                                }});
}

}  // namespace
