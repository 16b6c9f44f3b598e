#include "tests/manager/ManagerRig.h"

namespace {

using namespace testing_support;

class StoreTree : public ManagerTest {};

TEST_F(StoreTree, FoldersAndNotesInOrderWithTheirCount) {
    for (const wchar_t* note :
         {L"Work\\b.ikw", L"Work\\Z.ikw", L"Work\\a.ikw.bak", L"Work\\temp\\x.IKW", L"loose.ikw"})
        PutNote(note);
    for (const wchar_t* folder : {L"Work\\zoo", L"TEMP", L"temp. ", L"apples", L"Work\\folder.ikw"})
        device.files.PutFolder(kRoot + folder);
    const Step look = [this] {
        const auto& tree = *TreeControl().Handle();
        EXPECT_TRUE(tree.root.children.front()->bold && tree.frozen == 0);
    };
    RunManager(L"", {ExpectTree(L"Notes", {L"apples", L"Home", L"Work"}), Tap(L"Notes\\Work"),
                     ExpectSelected(L"Work  (3 found) "),
                     ExpectTree(L"Notes\\Work", {L"folder.ikw", L"temp", L"zoo", L"Z", L"a", L"b"}),
                     Tap(L"Notes\\Work\\temp"), ExpectTree(L"Notes\\Work\\temp", {L"x"}), look});
}

// A closed branch is selected itself. The way down to an open one stays open, without a count.
TEST_F(StoreTree, LeavingABranchDropsItAndItsCount) {
    PutNote(L"Work\\Deep\\n.ikw");
    const Step closeWork = [this] { Tree().CloseBranch({L"Notes", L"Work"}); };
    const Step closeNotes = [this] {
        EXPECT_FALSE(TreeControl().IsExpanded(TreeControl().Selection()));
        EXPECT_FALSE(hand.Tool(IDM_OPEN).enabled);
        Tree().CloseBranch({L"Notes"});
    };
    RunManager(
        L"Work\\Deep\\n.ikw",
        {ExpectTree(L"Notes", {L"Home", L"Work"}), ExpectTree(L"Notes\\Work", {L"Deep  (1 found) ", L"a"}),
         closeWork, ExpectSelected(L"Work  (1 found) "), closeNotes, ExpectSelected(L"Notes"),
         ExpectTree(L"Notes", {L"Home", L"Work"}), Tap(L"Notes\\Work"), Tap(L"Notes\\Work\\Deep"),
         Tap(L"Notes\\Work"), ExpectTree(L"Notes", {L"Home", L"Work  (1 found) "}),
         ExpectTree(L"Notes\\Work", {L"Deep", L"a"}), Tap(L"Notes\\Home"), ExpectTree(L"Notes\\Work", {})});
}

TEST_F(StoreTree, DaysAreShownByTheirLongDatesAndEmptyOnesVanish) {
    for (const wchar_t* note :
         {L"2007-03-08\\b", L"2007-03-05\\a", L"2007-3-9\\c", L"2007-00-09\\c", L"2007_03-05\\c",
          L"2007-03_05\\c", L"0000-03-05\\c", L"2007-03-05\\sub\\c", L"2007-02-31\\d"})
        PutNote(std::wstring(L"Reminders\\") + note + L".ikw");
    device.files.Put(kRoot + L"Reminders\\2007-03-06\\only.txt", "memo");
    device.files.PutFolder(kRoot + L"Reminders\\2007-03-07");
    const Texts days{L"2007-02-31", kMonday, L"Thursday, March 8, 2007"};
    RunManager(L"", {Tap(L"Reminders"), ExpectTree(L"Reminders", days), Tap(L"Reminders\\" + kMonday),
                     ExpectSelected(kMonday + L"  (1 found) "), ExpectTree(L"Reminders\\" + kMonday, {L"a"}),
                     Tap(L"Reminders\\" + kMonday + L"\\a"), Tap(L"Notes"), ExpectTree(L"Reminders", days)});
    EXPECT_FALSE(Has(L"Reminders\\2007-03-07"));
    EXPECT_TRUE(Has(L"Reminders\\2007-03-06")) << "what holds a memo is no empty folder";
}

TEST_F(StoreTree, APathIsSelectedAtStart) {
    PutNote(L"Work\\Deep\\n.ikw");
    device.files.Put(L"\\Storage Card\\Inkwright\\Trip\\t.ikw", "");
    device.files.PutFolder(L"\\Elsewhere\\Trip");
    const std::pair<std::wstring, std::wstring> kCases[] = {
        {kRoot + L"work\\deep\\", L"Deep  (1 found) "},
        {kRoot + L"Work\\Deep\\N.ikw", L"n"},
        {kRoot + L"Work\\Gone\\x.ikw", L"Work  (1 found) "},
        {L"\\Storage Card\\Inkwright\\Trip\\", L"Trip  (1 found) "},  // a store of its own
        {L"\\Elsewhere\\Trip\\", L"Notes"}};
    for (const auto& [path, selected] : kCases) RunManager(path, {ExpectSelected(selected)});
    EXPECT_FALSE(device.HasSetting(L"RootDirPath"));
}

// A tall stroke of the head may lie in a late band of ten rows. What is no note shows as white paper.
TEST_F(StoreTree, TheStripAndTheHeader) {
    device.files.capacity = device.files.UsedBytes() + 1572864;
    const auto note = [](int version, int offset) {
        return Words({version, 0xF0FFFF, 4, 10, 0,  0,   0,  2,                    //
                      3,       offset,   0, 0,  30, 200, 50, 30, 90, 30, 90, 200,  //
                      2,       offset,   0, 0,  45, 45,  50, 45, 90, 45});
    };
    for (const auto& [bytes, golden] : {std::pair{note(5, 0), 2325165948u},
                                        {note(3, 1000), 2325165948u},
                                        {std::string("no note"), 756218085u}}) {
        device.files.Put(kRoot + L"Work\\a.ikw", bytes);
        device.files.Find(kRoot + L"Work\\a.ikw")->lastWrite = {2007, 3, 1, 5, 14, 30, 12, 0};
        RunManager(L"Work\\a.ikw", {ExpectText(L"3/5/2007 2:30:12 PM"), ExpectPicture(golden)});
    }
    const Step fill = [this] { device.files.capacity = device.files.UsedBytes() + 1023; };
    RunManager(L"", {ExpectText(L" Main Memory [ 1.50MB Free ]"), ExpectPicture(2482114309), fill,
                     Press(IDM_CALENDAR), ExpectText(L" Main Memory [ 0.00MB Free ]")});
    fill();
    device.SetSetting(L"RootDirPath", L"\\Storage Card\\Inkwright");
    device.files.PutFolder(L"\\Storage Card\\Inkwright");
    RunManager(L"", {ExpectText(L"Storage Card [ 0.00MB Free ]")});
}

}  // namespace
