// A note from its file and back: names, failures, and what else may happen while a window is to close.
#include "alarms/NoteAlarm.h"
#include "editor/InkCanvas.h"
#include "tests/editor/EditorRig.h"

namespace {

using platform::FileError;
using platform::MessageAnswer;
using platform::host::FileCall;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using namespace testing_support;

const std::wstring kFailed =
    L"Failed to create a file!\n\nPlease make sure that you have enough free storage space and the file name "
    L"does not contain any of the following characters:\n\\ / : * ? \" < > |";
const std::wstring kProposed = L"New Notes 2007-03-05";

class Saving : public EditorTest {
  protected:
    Step Dot() { return Write({{10, 60}}); }
    Step PutStranger(const std::wstring& path) {
        return [=] { device.files.Put(path, "a stranger's"); };
    }
    Step ExpectNoNotes() {
        return [=] { EXPECT_THAT(Notes(), IsEmpty()); };
    }
    // Sent to the editor, whatever is open over it.
    Step CloseBelow() {
        return [=] { editor_->OnCommand(platform::kIdOk); };
    }
    Step Name(const std::wstring& name) {
        return [=] {
            Desk().Type(IDC_FILE_NAME, name);
            Desk().Command(platform::kIdOk);
        };
    }
    // Opens the memo, which holds this text, and leaves it by a button with another.
    Script Memo(const std::wstring& before, const std::wstring& after, int button = IDC_MEMO_SAVE) {
        return {Press(IDM_TEXT_MEMO), ExpectItem(IDC_MEMO_TEXT, before), TypeInto(IDC_MEMO_TEXT, after),
                Press(button)};
    }
    std::vector<std::wstring> Notes() { return device.files.NamesIn(kNewNotes); }
    platform::Window* editor_ = nullptr;
};

TEST_F(Saving, NamesOfNewNotes) {
    const std::wstring folder = kNewNotes;
    device.SetSetting(L"RootDirPath", L"\\Ink");
    device.files.Put(folder + L"list.IKW", "someone's note");
    device.files.PutFolder(folder + L"sub");
    Script refused;
    for (const wchar_t* name :
         {L"", L" \t ", L"a/b", L"what?", L"a:b", L"sub\\a", L"\"a\"", L"a|b", L"<a>", L"*"})
        refused = All(
            {refused,
             {ExpectBox(kFailed, L" Error"), Name(name), ExpectItem(IDC_FILE_NAME, kProposed + L" (2)")}});
    const struct {
        std::wstring commandLine;
        Script naming;
        std::wstring path;
    } kCases[] = {
        {folder,
         {ExpectTitle(L" Inkwright - Save As"), ExpectItem(IDC_FILE_NAME, kProposed),
          ExpectFocus(IDC_FILE_NAME), Ok()},
         folder + kProposed},
        {folder, {ExpectItem(IDC_FILE_NAME, kProposed + L" (1)"), Ok()}, folder + kProposed + L" (1)"},
        {folder, {Name(L"List")}, folder + L"List (1)"},
        {folder,
         {TypeInto(IDC_FILE_NAME, L"x"), Press(IDC_DEFAULT_NAME),
          ExpectItem(IDC_FILE_NAME, kProposed + L" (2)"), Name(L" \tShopping list  ")},
         folder + L"Shopping list"},
        {folder, All({refused, {Ok()}}), folder + kProposed + L" (2)"},
        {L"/newreminder 2007-03-08", {Ok()}, L"\\Ink\\Reminders\\2007-03-08\\Reminder 2007-03-08"},
    };
    for (const auto& c : kCases) {
        const size_t before = device.files.Nodes().size();
        Run(c.commandLine, All({{Dot(), Ok()}, c.naming}));
        EXPECT_THAT(RowsAt(c.path + L".ikw"), ElementsAre(60));
        EXPECT_GT(device.files.Nodes().size(), before);
    }
    EXPECT_EQ(device.files.Get(folder + L"list.ikw"), "someone's note");
    // Without anything written there is no file; a note that is not empty names the next one.
    Run(kNewNotes, {Press(platform::Key::Escape), Press(IDM_ERASER), Write({{5, 100}}),
                    ExpectTitle(L"[new] - Inkwright"), Ok()});
    Run(kNewNotes, {Dot(), Press(IDM_NEW_NOTE), Name(L"first"), ExpectTitle(L"[new] - Inkwright"), Dot(),
                    Press(IDM_NEW_NOTE), Name(L"second"), Ok()});
    EXPECT_EQ(Notes().size(), 9u);
    EXPECT_THAT(RowsAt(folder + L"second.ikw"), ElementsAre(60));
}

// A note whose name was declined, or whose file could not be written, keeps that name as a proposal: what
// lies there meanwhile is somebody else's, and so is the memo.
TEST_F(Saving, ANameWithoutAFileBelongsToWhoeverTakesItFirst) {
    const std::wstring path = kNewNotes + kProposed;
    for (const bool isWriteFault : {false, true}) {
        for (const std::wstring& name : Notes())
            device.files.Nodes().erase(device.files.KeyOf(kNewNotes + name));
        const Step decline = isWriteFault ? Ok() : Press(platform::kIdCancel);
        const Script asked{isWriteFault ? Fail({FileCall::Write}) : Fail({}),
                           ExpectDiscard(path + L".ikw", MessageAnswer::No)};
        const Script taken{
            Dot(),   Ok(), decline, ExpectNoNotes(), PutStranger(path + L".ikw"), PutStranger(path + L".txt"),
            Fail({})};
        Run(kNewNotes, All({Memo(L"", L"jam"), asked, taken, Memo(L"jam", L"jam and tea"), {Ok()}}));
        EXPECT_EQ(device.files.Get(path + L".ikw") + device.files.Get(path + L".txt"),
                  "a stranger'sa stranger's");
        EXPECT_THAT(RowsAt(path + L" (1).ikw"), ElementsAre(60));
        EXPECT_EQ(device.files.Get(path + L" (1).txt"), "jam and tea");
        // A full erase before the first save takes nobody's file either.
        Run(kNewNotes,
            {Dot(), ExpectDiscard(path + L" (2).ikw", MessageAnswer::No), Ok(), Press(platform::kIdCancel),
             PutStranger(path + L" (2).ikw"), ExpectErase(MessageAnswer::Yes), Press(IDM_FULL_ERASE), Ok()});
        EXPECT_TRUE(device.files.Has(path + L" (2).ikw"));
    }
}

TEST_F(Saving, ANoteIsWrittenBackWithItsNewInk) {
    const std::string stroke = Words({2, 0, 0x3456, 0x12, 60, 70, 10, 60, 20, 70});
    const std::string after = Words({5, 0xFFFF, 1, kViewHeight, 2}) + stroke +
                              Words({2, 0, 0x8080, 0x80, 100, 110, 30, 100, 40, 110});
    device.files.Put(kNote, Words({5, 0xFFFF, 1, kViewHeight, 1}) + stroke);
    Edited({ExpectTitle(L"a - Inkwright"), Write({{30, 100}, {40, 110}})});
    EXPECT_EQ(device.files.Get(kNote), after);
    EXPECT_EQ(Desk().waitCursors, 2) << "reading and writing";
    Edited({Fail({FileCall::Create})});
    EXPECT_EQ(device.files.Get(kNote), after) << "an untouched note is not written";
}

// Whatever call fails: a note is read whole or not at all, and then it stays as it is while a new one begins.
TEST_F(Saving, AFaultOfAnyReadLosesNothing) {
    PutNote({10, kNoStroke, 300});
    const std::string whole = device.files.Get(kNote);
    const int calls = SweepFiles({FileCall::Open, FileCall::Read}, [&](Fault& fault) {
        std::wstring title;
        Run(kNote, {[&] { title = Desk().Top()->Title(); }, Ok()});
        EXPECT_EQ(title, fault.HasStruck() ? L"[new] - Inkwright" : L"a - Inkwright");
        EXPECT_EQ(device.files.Get(kNote), whole);
    });
    EXPECT_GE(calls, 3);
    for (const std::string& damaged :
         {std::string(), whole.substr(0, 15), whole.substr(0, 16), whole.substr(0, whole.size() - 1),
          Words({5, 0, 1, 268, 1, -1, 0, 0, 0, 0, 0})}) {
        device.files.Put(kNote, damaged);
        Run(kNote, {ExpectTitle(L"[new] - Inkwright"), Dot(), Ok(), Ok()});
        EXPECT_EQ(device.files.Get(kNote), damaged) << "the damaged file stays as it is";
        EXPECT_THAT(RowsAt(L"\\Ink\\Ink 2007-03-05.ikw"), ElementsAre(60));
        device.files.Nodes().erase(L"\\INK\\INK 2007-03-05.IKW");
    }
    device.files.Put(kNote, whole);
    const platform::File held = platform::File::OpenForReading(kNote);
    Run(kNote, {ExpectTitle(L"[new] - Inkwright"), Ok()});
}

TEST_F(Saving, ANoteThatAnotherWriterHoldsIsReadAfterAWhile) {
    for (const int refusals : {1, 4, 5}) {
        int reads = 0;
        device.files.fault = [&](FileCall call, const std::wstring&) {
            return call == FileCall::Read && reads++ < refusals ? FileError::AccessDenied : FileError::None;
        };
        const uint32_t before = device.ticks;
        Run(kNote, {ExpectTitle(refusals < 5 ? L"a - Inkwright" : L"[new] - Inkwright"), Ok()});
        EXPECT_EQ(device.ticks - before, static_cast<uint32_t>(std::min(refusals, 4)) * 500u);
        EXPECT_TRUE(refusals < 5 || reads == 5);
    }
}

// Each failing call, and each byte that a full disk lacks, leaves the note whole or gone, and the user knows.
TEST_F(Saving, AFaultOfAnyWriteLeavesNoPartOfANote) {
    const auto save = [this](const std::function<bool()>& hasFailed) {
        Run(kNote, {Dot(), [this] { Desk().answers = {MessageAnswer::Yes}; }, Ok()});
        EXPECT_EQ(Desk().messages.size(), hasFailed() ? 1u : 0u);
        Desk().messages.clear();
        Desk().answers.clear();
        const std::vector<int> rows = device.files.Has(kNote) ? RowsAt(kNote) : std::vector<int>();
        EXPECT_EQ(rows, hasFailed() ? std::vector<int>() : std::vector{60});
    };
    const int calls = SweepFiles({FileCall::Create, FileCall::Write}, [&](Fault& fault) {
        PutNote({});
        save([&] { return fault.HasStruck(); });
    });
    EXPECT_GE(calls, 2);
    for (uint64_t room = 0; room <= 16 + 4 + 32; room += 4) {
        PutNote({});
        device.files.capacity = device.files.UsedBytes() - 16 + room;
        save([room] { return room < 16 + 4 + 32; });
    }
    // Another answer keeps the window and its ink, for closing as for a new note.
    device.files.capacity = UINT64_MAX;
    PutNote({});
    const Step declined = ExpectDiscard(kNote, MessageAnswer::No);
    Edited({Dot(), Fail({FileCall::Create}), declined, Ok(), declined, Press(IDM_NEW_NOTE), Fail({})});
    Run(kNote, {Dot(), Fail({FileCall::Create}), ExpectDiscard(kNote, MessageAnswer::Yes),
                Press(IDM_NEW_NOTE), ExpectTitle(L"[new] - Inkwright"), ExpectInk({}, {{10, 60}}), Ok()});
}

TEST_F(Saving, FullEraseTakesMemoAndAlarmsAlongAfterAsking) {
    device.files.Put(L"\\Ink\\a.txt", "memo");
    alarms::SetNoteAlarm(kNote, {2007, 3, 4, 15, 20, 0, 0, 0});
    Edited({ExpectErase(MessageAnswer::No), Press(IDM_FULL_ERASE), ExpectTitle(L"a - Inkwright")});
    EXPECT_EQ(device.notifications.size(), 1u);
    Run(kNote,
        {ExpectErase(MessageAnswer::Yes), Press(IDM_FULL_ERASE), ExpectTitle(L"[new] - Inkwright"), Ok()});
    EXPECT_THAT(device.files.NamesIn(L"\\Ink"), IsEmpty());
    EXPECT_THAT(device.notifications, IsEmpty());
}

// Of a new note with the page until that is saved, else beside the note.
TEST_F(Saving, WhereAMemoIsKept) {
    const Step told = ExpectBox(
        L"Saving Text Memo Failed! Please make sure that the selected storage device has enough free space.",
        L"Error");
    Run(kNewNotes, All({Memo(L"", L"not this", IDC_MEMO_CANCEL),
                        Memo(L"", L"first"),
                        Memo(L"first", L"first one"),
                        {ExpectNoNotes(), Press(IDM_NEW_NOTE), Ok()},
                        Memo(L"", L"second\r\n\u4E2D"),
                        {Ok(), Fail({FileCall::Write}, 1, L"Two.txt"), told, Name(L"Two")}}));
    EXPECT_THAT(Notes(), UnorderedElementsAre(kProposed + L".ikw", kProposed + L".txt", L"Two.ikw"));
    EXPECT_EQ(device.files.Get(kNewNotes + kProposed + L".txt"), "first one");
    Edited(Memo(L"", L"jam"));
    EXPECT_EQ(device.files.Get(L"\\Ink\\a.txt"), "jam");
}

// Whether the opener's list of notes is out of date.
TEST_F(Saving, WhatChangesTheStore) {
    const std::pair<Script, bool> kCases[] = {
        {{}, false},
        {{Dot()}, false},
        {Memo(L"", L"jam"), true},
        {Memo(L"jam", L"tea"), false},
        {Memo(L"tea", L""), true},
        {{Press(IDM_NEW_NOTE)}, true},
        {{ExpectErase(MessageAnswer::Yes), Press(IDM_FULL_ERASE)}, true}};
    for (const auto& [script, changes] : kCases) {
        store::PenSettings pen = store::LoadPenSettings();
        editor::InkCanvas canvas(pen, {kNote, L"", L"", false});
        Play(All({script, {Ok()}}));
        EXPECT_EQ(canvas.RunModal(nullptr), platform::kIdOk);
        EXPECT_EQ(canvas.StoreChanged(), changes);
    }
}

// What another copy sends to have windows closed comes again and again, whatever is open over them.
TEST_F(Saving, RepeatedRequestsCloseOnceAndChooseNothing) {
    const auto twice = [this](const auto&) {
        Desk().Command(platform::kIdOk);
        Desk().Command(platform::kIdOk);
        return IDM_SET_ALARM;
    };
    Run(kNote, {Dot(), [=] { Desk().chooseFromMenu = twice; }, Press(IDM_TOOLS)});
    EXPECT_THAT(RowsAt(kNote), ElementsAre(60));

    device.SetSetting(L"RootDirPath", L"\\Ink");
    Run(L"/newalarm 200703515203005",
        {Dot(), [this] { editor_ = Desk().Top(); }, Ok(), CloseBelow(), ExpectTitle(L" Inkwright - Save As"),
         CloseBelow(), ExpectBox(L"Alarm is successfully set!", L" 3/15/2007 8:30:05 PM"),
         [=] { twice(0); }});
    EXPECT_EQ(device.notifications.size(), 1u);
}

TEST_F(Saving, ATakeOverEndsTheWholeCopyAndSavesWhatIsOpen) {
    Run(kNote, {Dot(), [this] { Desk().PrivateMessage(0); }, TakeOver()});
    EXPECT_THAT(RowsAt(kNote), ElementsAre(60));
    device.SetSetting(L"RootDirPath", L"\\Ink");
    Run(L"/manage Work", {Press(IDM_ADD_NOTE), Dot(), Press(IDM_TEXT_MEMO), TypeInto(IDC_MEMO_TEXT, L"jam"),
                          TakeOver(), TakeOver()});  // the name is asked
    EXPECT_THAT(device.files.NamesIn(L"\\Ink\\Work"),
                UnorderedElementsAre(L"Work 2007-03-05.ikw", L"Work 2007-03-05.txt"));
}

}  // namespace
