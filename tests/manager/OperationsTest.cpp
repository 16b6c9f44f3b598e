// What the menus of the tree do to notes and folders.
#include "manager/StoreOperations.h"
#include "tests/manager/ManagerRig.h"

namespace {

using platform::MessageAnswer;
using testing_support::kRoot;
using testing_support::Script;

const std::wstring kMonday = L"Monday, March 5, 2007";
const wchar_t* const kRenaming =
    L"Renaming failed! Please make sure the file/folder is not currently in use.\n\nNOTE. A file/folder name "
    L"cannot contain any of the following characters:\n\\ / : * ? \" < > |";

class Operations : public testing_support::ManagerTest {};

TEST_F(Operations, MenusByKindOfNode) {
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    const Texts ofNote{L"Open", L"-", L"Rename", L"Delete", L"-", L"Text Memo...", L"Set Alarm...", L"-"};
    const auto with = [](Texts texts, const Texts& more) {
        texts.insert(texts.end(), more.begin(), more.end());
        return texts;
    };
    const struct {
        std::wstring path;
        Texts menu;
    } kCases[] = {
        {L"Notes", {L"Create Folder"}},
        {L"Notes\\Work", {L"New", L"-", L"Rename", L"Delete", L"-", L"Create Folder", L"Move Folder", L"-"}},
        {L"Notes\\Work\\a", with(ofNote, {L"Change Folder...", L"Move To Reminders..."})},
        {L"Reminders", {L"Add"}},
        {L"Reminders\\" + kMonday, {L"Add", L"Show Calendar", L"-", L"Delete", L"-"}},
        {L"Reminders\\" + kMonday + L"\\r", with(ofNote, {L"Change Date...", L"Move To Folder..."})},
        {L"Alarms", {L"Refresh"}}};
    for (const auto& each : kCases) {
        Then(Tap(L"Notes\\Work"));
        for (size_t at = each.path.find(L'\\'); at != std::wstring::npos; at = each.path.find(L'\\', at + 1))
            Then(Tap(each.path.substr(0, at)));
        RunManager(L"", {Hold(each.path, {L"nothing"}), ExpectMenu(each.menu)});
    }
    // Folders are listed only once "Notes" was visited.
    RunManager(L"Reminders\\2007-03-05\\r.ikw",
               {Hold(L"Reminders\\" + kMonday + L"\\r", {L"Move To Folder..."}),
                ExpectMenu(with(ofNote, {L"Change Date...", L"(Move To Folder...)"}))});
}

TEST_F(Operations, TheMemosMarkFollowsTheMemo) {
    Script script;
    for (const wchar_t* text : {L"plum jam", L"", L"tea"}) {
        const bool hasMemo = *text != 0;
        script.insert(script.end(), {Hold(L"Notes\\Work\\a", {L"Text Memo..."}), ExpectTitle(L"Inkwright"),
                                     TypeInto(IDC_MEMO_TEXT, text), Press(IDC_MEMO_SAVE),
                                     [=] {
                                         EXPECT_EQ(Has(L"Work\\a.txt"), hasMemo);
                                         EXPECT_EQ(Tree().IsMarked(TreeControl().Selection()), hasMemo);
                                     },
                                     hasMemo ? ExpectText(L"picture 13") : ExpectNoText(L"picture 13")});
    }
    RunManager(L"Work\\a.ikw", script);
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
    device.files.fault = [](platform::host::FileCall call, const std::wstring&) {
        return call == platform::host::FileCall::MakeFolder ? platform::FileError::Other
                                                            : platform::FileError::None;
    };
    RunManager(L"Reminders\\2007-03-05\\r.ikw",
               {Hold(L"Reminders\\" + kMonday + L"\\r", {L"Change Date..."}),
                ExpectBox(L"Creating reminder folder failed!", L" Error"),
                PickDay(IDC_MONTH_CALENDAR, 2007, 4, 3), ExpectSelected(L"r")});
}

TEST_F(Operations, MovingOntoAFileOfThatName) {
    const std::wstring other = kRoot + L"Home\\a.ikw";
    const struct {
        MessageAnswer answer;
        const wchar_t* moved;
        const char* content;
    } kCases[] = {{MessageAnswer::Yes, L"Home\\a.ikw", "moved"},
                  {MessageAnswer::No, L"Home\\a (1).ikw", "other"},
                  {MessageAnswer::Cancel, nullptr, "other"}};
    for (const auto& each : kCases) {
        device.files.Put(kRoot + L"Work\\a.ikw", "moved");
        device.files.Put(other, "other");
        ExpectBox(L"Destination folder already contains a file with the same name. Overwrite?",
                  L" Confirm Overwrite", each.answer)();
        std::wstring destination = other;
        EXPECT_EQ(manager::MoveNote(nullptr, kRoot + L"Work\\a.ikw", destination), each.moved != nullptr);
        EXPECT_EQ(Desk().messages.back().defaultButton, platform::DefaultButton::Second);
        EXPECT_EQ(device.files.Get(other), each.content);
        if (each.moved == nullptr) continue;
        EXPECT_EQ(destination, kRoot + each.moved);
        EXPECT_EQ(device.files.Get(destination), "moved");
    }
    std::wstring same = kRoot + L"WORK\\A.ikw";
    EXPECT_FALSE(manager::MoveNote(nullptr, kRoot + L"Work\\a.ikw", same)) << "onto itself";
}

TEST_F(Operations, Renaming) {
    PutNote(L"Work\\taken.ikw");
    Script script;
    for (const wchar_t* name : {L"", L"wh?at", L"a\\b", L"taken"}) {
        script.insert(script.end(),
                      {ExpectBox(kRenaming, L" Error"), Rename(L"a", name), ExpectSelected(L"a")});
    }
    script.insert(script.end(),
                  {Rename(L"a", L"a"), ExpectSelected(L"a"), Rename(L"a", L"z"), ExpectSelected(L"z"),
                   ExpectTree(L"Notes\\Work", {L"taken", L"z"}), Press(IDM_OPEN),
                   ExpectTitle(L"z - Inkwright"), Close(), Tap(L"Notes\\Work")});
    for (const std::wstring name : {L"TEMP", L"temp.", L"Reminders . "}) {
        script.insert(script.end(),
                      {ExpectBox(L"The folder name '" + name +
                                     L"' is reserved for internal use. Please enter a different name.",
                                 L" Error"),
                       Rename(L"Work", name)});
    }
    script.insert(script.end(), {ExpectBox(kRenaming, L" Error"), Rename(L"Work", L"Home"),
                                 Rename(L"Work", L"Attic"), ExpectSelected(L"Attic  (2 found) "),
                                 ExpectTree(L"Notes", {L"Attic  (2 found) ", L"Home"})});
    RunManager(L"Work\\a.ikw", script);
    EXPECT_EQ(Store(), L"ATTIC\\TAKEN.IKW ATTIC\\Z.IKW ATTIC\\Z.TXT | Attic\\z.ikw");
}

TEST_F(Operations, DeletingANoteAsksAndTakesMemoAndAlarmsAlong) {
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    PutNote(L"Home\\Deep\\d.ikw");
    PutNote(L"Home\\h.ikw");
    const auto question = [this](const std::wstring& name, MessageAnswer answer) {
        return ExpectBox(L"'" + name + L"' will be permanently deleted. Continue?", L" Confirm File Delete",
                         answer);
    };
    RunManager(L"Work\\a.ikw", {question(L"a.ikw", MessageAnswer::No), Press(IDM_DELETE),
                                ExpectSelected(L"a"), question(L"a.ikw", MessageAnswer::Yes),
                                Press(IDM_DELETE), ExpectTree(L"Notes", {L"Home", L"Work  (0 found) "}),
                                ExpectStore(L"HOME\\DEEP\\D.IKW HOME\\H.IKW REMINDERS\\2007-03-05\\R.IKW ")});
    RunManager(
        L"Reminders\\2007-03-05\\r.ikw",
        {question(L"r.ikw", MessageAnswer::Yes), Press(IDM_DELETE), ExpectTree(L"Reminders", {}),
         [this] { EXPECT_FALSE(Has(L"Reminders\\2007-03-05")) << "the day goes with its last note"; }});
    // The selection goes on to a folder: what is not shown has no count.
    RunManager(L"Home\\h.ikw",
               {question(L"h.ikw", MessageAnswer::Yes), Press(IDM_DELETE),
                ExpectSelected(L"Deep  (1 found) "), ExpectTree(L"Notes", {L"Home", L"Work"})});
}

TEST_F(Operations, DeletingFolders) {
    const auto question = [this](const std::wstring& name, MessageAnswer answer) {
        return ExpectBox(
            L"'" + name + L"' folder and all its contents will be permanently deleted! Continue?",
            L" Confirm Folder Delete", answer);
    };
    PutNote(L"Work\\b.ikw");
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    {
        const platform::File held = platform::File::OpenForReading(kRoot + L"Work\\b.ikw");
        RunManager(
            L"Work\\",
            {question(L"Work", MessageAnswer::No), Press(IDM_DELETE), ExpectSelected(L"Work  (2 found) "),
             question(L"Work", MessageAnswer::Yes), ExpectBox(L"Deleting 'Work' folder failed.", L" Error"),
             [this] { Tree().PressKey(platform::Key::Delete); },
             // Read again; the alarm of the note that went is dropped all the same.
             ExpectTree(L"Notes\\Work", {L"b"}), ExpectStore(L"REMINDERS\\2007-03-05\\R.IKW WORK\\B.IKW ")});
    }
    RunManager(L"Work\\", {question(L"Work", MessageAnswer::Yes), Press(IDM_DELETE),
                           ExpectTree(L"Notes", {L"Home  (0 found) "}), Tap(L"Reminders"),
                           Tap(L"Reminders\\" + kMonday), question(kMonday, MessageAnswer::Yes),
                           Press(IDM_DELETE), ExpectTree(L"Reminders", {}), ExpectStore(L"")});
}

TEST_F(Operations, NewFoldersGetFreeNamesAndWaitForTheirOwn) {
    device.files.Put(kRoot + L"New Folder", "a file in the way");
    RunManager(L"Work\\", {Press(IDM_CREATE_FOLDER),
                           [this] {
                               EXPECT_TRUE(Tree().IsEditing());
                               Tree().CancelEdit();
                           },
                           Tap(L"Notes"), Press(IDM_CREATE_FOLDER),
                           [this] {
                               EXPECT_EQ(Tree().EditText(), L"New Folder (1)");
                               Tree().EndEdit(L"Plans");
                           },
                           ExpectSelected(L"Plans  (0 found) "),
                           ExpectTree(L"Notes", {L"Home", L"Plans  (0 found) ", L"Work"})});
    EXPECT_TRUE(Has(L"Plans") && Has(L"Work\\New Folder"));
}

TEST_F(Operations, MovingFolders) {
    PutNote(L"Work\\Deep\\d.ikw");
    PutNote(L"Work\\Temp\\t.ikw");
    alarms::SetNoteAlarm(kRoot + L"Work\\deep\\D.ikw", {2007, 3, 4, 15, 20, 0, 0, 0});
    const std::wstring refused =
        L"Moving from '" + kRoot + L"Work\\Temp' to '" + kRoot +
        L"Temp' failed!\n\nThe source folder may be in use or the destination folder "
        L"already exists.";
    RunManager(
        L"Work\\Temp\\",
        {ExpectBox(refused, L" Error"), Hold(L"Notes\\Work\\Temp", {L"Move Folder", L"Notes"}),
         Tap(L"Notes\\Work"), Hold(L"Notes\\Work", {L"Move Folder", L"Home"}),
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
                                                         L"Back", L"L6...", L"L12...", L"L14"}),
                                [&] { EXPECT_TRUE(Has(deep + L"\\a.ikw")); }});
    device.files.Nodes().clear();
    PutWork();
    for (int i = 100; i < 1000; ++i)
        device.files.PutFolder(kRoot + L"F" + std::to_wstring(i) + L"\\In " + std::to_wstring(i));
    int lists = 0;
    RunManager(L"Work\\a.ikw", {[&] {
                                    device.files.fault = [&lists](platform::host::FileCall call,
                                                                  const std::wstring&) {
                                        lists += call == platform::host::FileCall::List ? 1 : 0;
                                        return platform::FileError::None;
                                    };
                                },
                                Hold(L"Notes\\Work\\a", {L"Change Folder...", L"F999...", L"In 999"}),
                                [&] {
                                    EXPECT_LE(lists, 320);
                                    EXPECT_TRUE(Has(L"F999\\In 999\\a.ikw"));
                                }});
    device.files.Nodes().clear();
    PutNote(L"Reminders\\2007-03-05\\r.ikw");
    RunManager(L"", {Press(IDM_CREATE_FOLDER),
                     [this] { device.files.Nodes().erase(device.files.KeyOf(kRoot + L"New Folder")); },
                     Tap(L"Reminders"), Tap(L"Reminders\\" + kMonday),
                     Hold(L"Reminders\\" + kMonday + L"\\r", {L"Move To Folder...", L"nothing"}),
                     ExpectMenu({L"(No Folders Exist!)", L"-", L"Cancel"})});
}

TEST_F(Operations, CopyingToACard) {
    device.files.PutFolder(L"\\Storage Card");
    const std::wstring copy = L"\\Storage Card\\Inkwright\\Work\\a";
    device.files.Put(copy + L".ikw", "older");
    RunManager(L"Work\\",
               {ExpectBox(L"'" + copy + L".ikw' will be overwritten. Overwrite?", L" Confirm File Overwrite",
                          MessageAnswer::Yes),
                ExpectBox(L"Done!", L" File Copy"), Hold(L"Notes\\Work", {L"Copy To \\Storage Card"}),
                ExpectMenu({L"New", L"-", L"Rename", L"Delete", L"-", L"Create Folder", L"Move Folder", L"-",
                            L"(Copy To \\My Documents)", L"Copy To \\Storage Card"}),
                [&] {
                    EXPECT_EQ(device.files.Get(copy + L".ikw"), device.files.Get(kRoot + L"Work\\a.ikw"));
                    EXPECT_TRUE(device.files.Has(copy + L".txt"));
                }});
}

TEST_F(Operations, CopyingStopsWhereItIsToldTo) {
    for (const wchar_t* name : {L"a.ikw", L"b.ikw", L"c.ikw"}) {
        device.files.Put(std::wstring(L"\\From\\") + name, "new");
        device.files.Put(std::wstring(L"\\To\\") + name, "old");
    }
    const auto copy = [this](const std::vector<MessageAnswer>& answers) {
        const wchar_t* const names[] = {L"a", L"b", L"c"};
        for (size_t i = 0; i < answers.size(); ++i)
            ExpectBox(std::wstring(L"'\\To\\") + names[i] + L".ikw' will be overwritten. Overwrite?",
                      L" Confirm File Overwrite", answers[i])();
        return manager::CopyFolderTree(nullptr, L"\\From\\", L"\\To\\");
    };
    const auto contents = [this] {
        return device.files.Get(L"\\To\\a.ikw") + device.files.Get(L"\\To\\b.ikw") +
               device.files.Get(L"\\To\\c.ikw");
    };
    EXPECT_EQ(copy({MessageAnswer::Yes, MessageAnswer::Cancel}), manager::CopyResult::Cancelled);
    EXPECT_EQ(contents(), "newoldold");
    // What another copy sends to close the question is no Yes.
    EXPECT_EQ(copy({MessageAnswer::Ok}), manager::CopyResult::Cancelled);
    EXPECT_EQ(copy({MessageAnswer::No, MessageAnswer::No, MessageAnswer::Yes}), manager::CopyResult::Done);
    EXPECT_EQ(contents(), "newoldnew");
}

}  // namespace
