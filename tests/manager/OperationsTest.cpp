#include "app/store/SafeFile.h"
#include "manager/StoreOperations.h"
#include "tests/manager/ManagerRig.h"

namespace {

using platform::MessageAnswer;
using namespace testing_support;

class Operations : public ManagerTest {
  protected:
    Step Erase(const std::wstring& below) {
        return [=] { device.files.Nodes().erase(device.files.KeyOf(kRoot + below)); };
    }
    Step Delete(const std::wstring& name, MessageAnswer answer, bool fails = false) {
        return [=] {
            const bool isNote = name.find(L".ikw") != std::wstring::npos;
            ExpectBox(L"'" + name +
                          (isNote ? L"' will be permanently deleted. Continue?"
                                  : L"' folder and all its contents will be permanently deleted! Continue?"),
                      isNote ? L" Confirm File Delete" : L" Confirm Folder Delete", answer)();
            const std::wstring told = L"Deleting '" + name + (isNote ? L"' failed." : L"' folder failed.");
            if (fails) ExpectBox(told, L" Error")();
            Desk().Command(IDM_DELETE);
        };
    }
};

TEST_F(Operations, TheMemosMarkFollowsTheMemo) {
    const auto expectMemo = [this](bool hasMemo) {
        return [=] {
            EXPECT_EQ(Tree().IsMarked(TreeControl().Selection()), hasMemo);
            EXPECT_EQ(Has(L"Work\\a.txt"), hasMemo);
            (hasMemo ? ExpectText(L"picture 13") : ExpectNoText(L"picture 13"))();
        };
    };
    Script script{expectMemo(true)};
    for (const wchar_t* text : {L"plum jam", L"", L"tea"})
        script = All({script,
                      {Hold(L"Notes\\Work\\a", {L"Text Memo..."}), ExpectTitle(L"Inkwright"),
                       TypeInto(IDC_MEMO_TEXT, text), Press(IDC_MEMO_SAVE), expectMemo(*text != 0)}});
    const Script away{Erase(L"Work\\a.txt"), Tap(L"Notes"), Tap(L"Notes\\Work"), Tap(L"Notes\\Work\\a")};
    RunManager(L"Work\\a.ikw", All({script, away, {expectMemo(false)}}));
}

TEST_F(Operations, MovingNotes) {
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    RunManager(L"Work\\a.ikw",
               {Hold(L"Notes\\Work\\a", {L"Change Folder...", L"Cancel"}),
                ExpectStore(L"REMINDERS\\2007-03-05\\R.IKW WORK\\A.IKW WORK\\A.TXT | Work\\a.ikw"),
                Hold(L"Notes\\Work\\a", {L"Change Folder...", L"Home"}), ExpectSelected(L"a"),
                ExpectStore(L"HOME\\A.IKW HOME\\A.TXT REMINDERS\\2007-03-05\\R.IKW | Home\\a.ikw"),
                Hold(L"Notes\\Home\\a", {L"Move To Reminders..."}), Press(platform::kIdCancel),
                Hold(L"Notes\\Home\\a", {L"Move To Reminders..."}), PickDay(IDC_MONTH_CALENDAR, 2007, 4, 2),
                ExpectSelected(L"a"),
                ExpectStore(L"REMINDERS\\2007-03-05\\R.IKW REMINDERS\\2007-04-02\\A.IKW "
                            L"REMINDERS\\2007-04-02\\A.TXT | Reminders\\2007-04-02\\a.ikw")});
    RunManager(L"Reminders\\2007-03-05\\r.ikw",
               {Fail({FileCall::MakeFolder}), Hold(L"Reminders\\" + kMonday + L"\\r", {L"Change Date..."}),
                ExpectBox(L"Creating reminder folder failed!", L" Error"),
                PickDay(IDC_MONTH_CALENDAR, 2007, 4, 3), ExpectSelected(L"r")});
}

TEST_F(Operations, MovingOntoAFileOfThatName) {
    const Texts paths{kRoot + L"Work\\a.ikw", kRoot + L"Home\\a.ikw", kRoot + L"Home\\a (1).ikw"};
    for (const auto& [answer, moved] :
         {std::pair{MessageAnswer::Yes, 1u}, {MessageAnswer::No, 2u}, {MessageAnswer::Cancel, 0u}}) {
        device.files.Put(paths[0], "moved");
        device.files.Put(paths[1], "other");
        ExpectBox(L"Destination folder already contains a file with the same name. Overwrite?",
                  L" Confirm Overwrite", answer)();
        std::wstring destination = paths[1];
        EXPECT_EQ(manager::MoveNote(nullptr, paths[0], destination), moved != 0);
        EXPECT_EQ(destination, paths[std::max(moved, 1u)]);
        EXPECT_EQ(device.files.Get(paths[moved]), "moved");
        EXPECT_EQ(device.files.Get(paths[1]), moved == 1 ? "moved" : "other");
    }
    std::wstring same = kRoot + L"WORK\\A.ikw";
    EXPECT_FALSE(manager::MoveNote(nullptr, paths[0], same)) << "onto itself";
}

TEST_F(Operations, Renaming) {
    const Step refused = ExpectBox(
        L"Renaming failed! Please make sure the file/folder is not currently in use.\n\nNOTE. A file/folder "
        L"name cannot contain any of the following characters:\n\\ / : * ? \" < > |",
        L" Error");
    const Step reserved = ExpectBox(
        L"The folder name 'temp.' is reserved for internal use. Please enter a different name.", L" Error");
    PutNote(L"Work\\taken.ikw");
    PutNote(L"Work\\zoo\\n.ikw");
    device.files.Put(kRoot + L"Work\\y.txt", "of another note");
    Play({refused, Rename(L"a", L""), refused, Rename(L"a", L"wh?at"), refused, Rename(L"a", L"a\\b"),
          refused, Rename(L"a", L"taken"), Rename(L"a", L"a"), Rename(L"a", L"y"), Rename(L"y", L"z"),
          ExpectSelected(L"z"), ExpectTree(L"Notes\\Work", {L"zoo", L"taken", L"z"}), Press(IDM_OPEN),
          ExpectTitle(L"z - Inkwright"), Close()});
    RunManager(L"Work\\a.ikw",
               {Tap(L"Notes\\Work"), reserved, Rename(L"Work", L"temp."), refused, Rename(L"Work", L"Home"),
                Rename(L"Work", L"Attic"), ExpectSelected(L"Attic  (2 found) "),
                ExpectTree(L"Notes", {L"Attic  (2 found) ", L"Home"})});
    EXPECT_EQ(Store(),
              L"ATTIC\\A.TXT ATTIC\\TAKEN.IKW ATTIC\\Z.IKW ATTIC\\Z.TXT ATTIC\\ZOO\\N.IKW | Attic\\z.ikw");
}

// With memos and alarms, after asking; a day goes with its last note. What is not shown has no count.
TEST_F(Operations, Deleting) {
    const auto no = MessageAnswer::No;
    const auto yes = MessageAnswer::Yes;
    for (const wchar_t* note :
         {L"Home\\Deep\\d.ikw", L"Home\\h.ikw", L"Work\\b.ikw", L"Reminders\\2007-03-05\\r.ikw"})
        PutNote(note);
    const std::wstring day = L"Reminders\\" + kMonday;
    RunManager(L"Home\\h.ikw",
               {Delete(L"h.ikw", no), Fail({FileCall::Erase}), Delete(L"h.ikw", yes, true),
                ExpectSelected(L"h"), Fail({}), Delete(L"h.ikw", yes), ExpectSelected(L"Deep  (1 found) "),
                ExpectTree(L"Notes", {L"Home", L"Work"}), Tap(L"Reminders"), Tap(day), Tap(day + L"\\r"),
                Delete(L"r.ikw", yes), ExpectTree(L"Reminders", {})});
    EXPECT_FALSE(Has(L"Reminders\\2007-03-05"));
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    device.files.Put(kRoot + L"Work\\b.txt", "memo");
    auto held = platform::File::OpenForReading(kRoot + L"Work\\b.ikw");
    // A folder that stays is read again; the alarm of the note that went is dropped all the same.
    RunManager(L"Work\\",
               {Delete(L"Work", no), ExpectSelected(L"Work  (2 found) "), Delete(L"Work", yes, true),
                ExpectTree(L"Notes\\Work", {L"b"}),
                ExpectStore(L"HOME\\DEEP\\D.IKW REMINDERS\\2007-03-05\\R.IKW WORK\\B.IKW WORK\\B.TXT "),
                [&held] { held = {}; }, Delete(L"Work", yes), ExpectTree(L"Notes", {L"Home  (0 found) "}),
                Tap(L"Reminders"), Tap(day), Delete(kMonday, yes), ExpectTree(L"Reminders", {}),
                ExpectStore(L"HOME\\DEEP\\D.IKW ")});
}

TEST_F(Operations, NewFoldersGetFreeNamesAndWaitForTheirOwn) {
    device.files.Put(kRoot + L"New Folder", "a file in the way");
    const auto end = [this](const std::wstring& proposed, const std::wstring& name) {
        return [=] {
            EXPECT_TRUE(Tree().IsEditing());
            EXPECT_EQ(Tree().EditText(), proposed);
            name.empty() ? Tree().CancelEdit() : Tree().EndEdit(name);
        };
    };
    RunManager(L"Work\\",
               {Press(IDM_CREATE_FOLDER), end(L"New Folder", L""), Tap(L"Notes"), Press(IDM_CREATE_FOLDER),
                ExpectTree(L"Notes", {L"Home", L"New Folder (1)  (0 found) ", L"Work"}),
                end(L"New Folder (1)", L"Plans"), ExpectSelected(L"Plans  (0 found) "),
                ExpectTree(L"Notes", {L"Home", L"Plans  (0 found) ", L"Work"})});
    EXPECT_TRUE(Has(L"Plans") && Has(L"Work\\New Folder"));
}

TEST_F(Operations, MovingFolders) {
    PutNote(L"Work\\Deep\\d.ikw");
    PutNote(L"Work\\Temp\\t.ikw");
    alarms::SetNoteAlarm(kRoot + L"Work\\deep\\D.ikw", {2007, 3, 4, 15, 20, 0, 0, 0});
    RunManager(
        L"Work\\Temp\\",
        {ExpectBox(L"Moving from '" + kRoot + L"Work\\Temp' to '" + kRoot +
                       L"Temp' failed!\n\nThe source folder may be in use or the destination folder already "
                       L"exists.",
                   L" Error"),
         Hold(L"Notes\\Work\\Temp", {L"Move Folder", L"Notes"}), Tap(L"Notes\\Work"),
         Hold(L"Notes\\Work", {L"Move Folder", L"Home"}),
         ExpectMenu({L"Notes", L"-", L"Home", L"-", L"Cancel"}),  // not into itself
         ExpectSelected(L"Work  (1 found) "),
         ExpectStore(L"HOME\\WORK\\A.IKW HOME\\WORK\\A.TXT HOME\\WORK\\DEEP\\D.IKW HOME\\WORK\\TEMP\\T.IKW "
                     L"| Home\\Work\\a.ikw| Home\\Work\\Deep\\d.ikw")});
}

// A menu is six levels deep and reads at most 300 folders; entries with dots lead on.
TEST_F(Operations, AnyFolderCanBePicked) {
    std::wstring deep = L"L1";
    for (int level = 2; level <= 14; ++level) deep += L"\\L" + std::to_wstring(level);
    device.files.PutFolder(kRoot + deep);
    RunManager(L"Work\\a.ikw", {Hold(L"Notes\\Work\\a", {L"Change Folder...", L"L6...", L"L12...", L"Back",
                                                         L"Back", L"L6...", L"L12...", L"L14"})});
    EXPECT_TRUE(Has(deep + L"\\a.ikw"));
    device.files.Nodes().clear();
    PutWork();
    for (int i = 100; i < 1000; ++i)
        device.files.PutFolder(kRoot + L"F" + std::to_wstring(i) + L"\\In " + std::to_wstring(i));
    const Step fewLists = [this] { EXPECT_LE(lists_, 320); };
    RunManager(
        L"Work\\a.ikw",
        {CountLists(), Hold(L"Notes\\Work\\a", {L"Change Folder...", L"F999...", L"In 999"}), fewLists});
    EXPECT_TRUE(Has(L"F999\\In 999\\a.ikw"));
}

// To a card, and no further than it is told. What another copy sends to close the question is no Yes.
TEST_F(Operations, Copying) {
    const std::wstring card = L"\\Storage Card\\Inkwright\\Work\\";
    const Texts names{L"a.ikw", L"b.ikw", L"c.ikw"};
    Erase(L"Work\\a.txt")();
    PutNote(L"Work\\Deep\\d.ikw");
    for (const std::wstring& name : names) {
        device.files.Put(kRoot + L"Work\\" + name, "new");
        device.files.Put(card + name, "old");
    }
    const auto copy = [&](const std::vector<MessageAnswer>& answers) {
        for (size_t i = 0; i < answers.size(); ++i)
            ExpectBox(L"'" + card + names[i] + L"' will be overwritten. Overwrite?",
                      L" Confirm File Overwrite", answers[i])();
        if (answers.size() == names.size()) ExpectBox(L"Done!", L" File Copy")();
        RunManager(L"Work\\",
                   {Hold(L"Notes\\Work", {L"Copy To \\Storage Card"}),
                    ExpectMenu({L"New", L"-", L"Rename", L"Delete", L"-", L"Create Folder", L"Move Folder",
                                L"-", L"(Copy To \\My Documents)", L"Copy To \\Storage Card"})});
        return device.files.Get(card + names[0]) + device.files.Get(card + names[1]) +
               device.files.Get(card + names[2]);
    };
    EXPECT_EQ(copy({MessageAnswer::Yes, MessageAnswer::Cancel}), "newoldold");
    EXPECT_EQ(copy({MessageAnswer::Ok}), "newoldold");
    EXPECT_EQ(copy({MessageAnswer::No, MessageAnswer::No, MessageAnswer::Yes}), "newoldnew");
    EXPECT_TRUE(device.files.Has(card + L"Deep\\d.ikw"));
    // With room for one version only, an old copy makes room for the new one.
    device.files.capacity = device.files.UsedBytes() + 1;
    EXPECT_TRUE(store::CopySafely(kRoot + L"Work\\b.ikw", card + names[1]) &&
                device.files.Get(card + names[1]) == "new");
    EXPECT_FALSE(store::CopySafely(kRoot + L"Work\\Deep\\d.ikw", card + names[1]));
    EXPECT_EQ(device.files.Get(card + names[1]), "new");
}

// The user is told of what, and whatever was to follow stays undone.
TEST_F(Operations, WhatFailsIsTold) {
    const std::wstring work = kRoot + L"Work\\", aborted = L"' failed! Operation aborted!";
    const std::wstring whole = L"WORK\\A.IKW WORK\\A.TXT | Work\\a.ikw";
    const auto move = [&] {
        std::wstring to = kRoot + L"Home\\a.ikw";
        manager::MoveNote(nullptr, work + L"a.ikw", to);
    };
    const auto copy = [&] { manager::CopyFolderTree(nullptr, work, kRoot + L"Home\\"); };
    const struct {
        std::vector<FileCall> calls;
        const wchar_t* in;
        std::function<void()> operation;
        std::wstring told, left;
    } kCases[] = {
        {{FileCall::Move}, L"a.ikw", move, L"Moving 'a.ikw' failed!", whole},
        {{FileCall::Move, FileCall::Copy},
         L"a.txt",
         move,
         L"Moving 'a.txt' failed!",
         L"HOME\\A.IKW WORK\\A.TXT | Home\\a.ikw"},
        {{FileCall::List}, L"Work", copy, L"Copying '" + work + aborted, whole},
        {{FileCall::Copy}, L"a.ik", copy, L"Copying '" + work + L"a.ikw" + aborted, whole},
        {{FileCall::Move}, L"a.tx", copy, L"Copying '" + work + L"a.txt" + aborted, L"HOME\\A.IKW " + whole}};
    for (const auto& c : kCases) {
        device.files.Nodes().clear();
        device.notifications.clear();
        PutWork();
        device.files.PutFolder(kRoot + L"Temp");
        Fail(c.calls, 99, c.in)();
        ExpectBox(c.told, L" Error")();
        c.operation();
        EXPECT_EQ(Store(), c.left);
    }
}

// What is whole of a damaged note goes beside it, once. Pictures on their way are no notes.
TEST_F(Operations, CheckingNotes) {
    const std::string whole = NoteOfDots({10, 20, 30}, 268);
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    device.files.Put(kRoot + L"Home\\torn.ikw", whole.substr(0, whole.size() - 1));
    device.files.Put(kRoot + L"Home\\torn.txt", "tea");
    for (const wchar_t* note : {L"Deep\\Low\\bare.ikw", L"Temp\\x.ikw"})
        device.files.Put(kRoot + note, whole.substr(0, 15));
    const Step check = PickTool({L"Check Notes\u2026"});
    const auto expect = [this](const std::wstring& text) { return ExpectBox(text, L" Check Notes"); };
    const std::wstring damaged = L"These notes can't be read whole:\n";
    const std::wstring torn = damaged + L"Deep\\Low\\bare\nHome\\torn\n    ";
    const std::wstring kept = torn + L"whole strokes: Home\\torn (salvaged)\n\nNotes checked: ";
    const Step expectStore = ExpectStore(
        L"DEEP\\LOW\\BARE.IKW HOME\\TORN (SALVAGED).IKW HOME\\TORN (SALVAGED).TXT HOME\\TORN.IKW "
        L"HOME\\TORN.TXT REMINDERS\\2007-03-05\\R.IKW TEMP\\X.IKW WORK\\A.IKW WORK\\A.TXT | Work\\a.ikw");
    const Step mend = [=] { device.files.Put(kRoot + L"Home\\torn.ikw", whole); };
    Play({Fail({FileCall::Create}), check,
          expect(torn + L"Writing 'Home\\torn (salvaged)' failed!\n\nNotes checked: 4"), Wait(30)});
    Play({Fail({}), check, Wait(10), ExpectItem(IDC_PROGRESS, L"Notes checked: 1\nHome\\")});
    Play({expect(damaged + L"Deep\\Low\\bare\n\nNotes checked: 1"), Press(platform::kIdCancel)});
    Play({check, expect(kept + L"4"), Wait(30), ExpectTree(L"Notes\\Home", {L"torn", L"torn (salvaged)"})});
    Play({check, expect(kept + L"5"), Wait(30), expectStore, check, Wait(10), Ok(), mend});
    Play({Erase(L"Deep\\Low\\bare.ikw"), check, expect(L"All notes can be read.\nNotes checked: 4"),
          Wait(30)});
    const Step unread = expect(damaged + L"Reading '" + kRoot + L"' failed!\n\nNotes checked: 0");
    RunManager(L"Home\\", {Fail({FileCall::List}), check, unread, Wait(10), Fail({})});
    EXPECT_EQ(Rows(*ReadBack(kRoot + L"Home\\torn (salvaged).ikw")), (std::vector<int>{20, 10}));
}

}  // namespace
