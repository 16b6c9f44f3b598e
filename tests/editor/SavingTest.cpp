// A note from its file and back: names, failures, and what else may happen while a window is to close.
#include "app/store/NoteFiles.h"
#include "editor/FileNamePattern.h"
#include "editor/InkCanvas.h"
#include "tests/editor/EditorRig.h"

namespace {

using platform::MessageAnswer;
using testing::UnorderedElementsAre;
using namespace testing_support;

const std::wstring kProposed = L"New Notes 2007-03-05";
const std::wstring kPath = kNewNotes + kProposed;

class Saving : public EditorTest {
  protected:
    Step Dot() { return Write({{10, 60}}); }
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
    Texts Notes() { return device.files.NamesIn(kNewNotes); }
};

TEST_F(Saving, NamesOfNewNotes) {
    const std::wstring folder = kNewNotes;
    device.SetSetting(L"RootDirPath", L"\\Ink");
    device.files.Put(folder + L"list.IKW", "someone's note");
    const auto save = [this](const std::wstring& where, const Script& naming, const std::wstring& path) {
        Run(where, All({{Dot(), Ok()}, naming}));
        EXPECT_EQ(RowsAt(path + L".ikw"), std::vector{60});
    };
    save(folder, {ExpectItem(IDC_FILE_NAME, kProposed), ExpectFocus(IDC_FILE_NAME), Ok()}, kPath);
    save(folder, {ExpectItem(IDC_FILE_NAME, kProposed + L" (1)"), Ok()}, kPath + L" (1)");
    save(folder, {Name(L"List")}, folder + L"List (1)");
    save(folder,
         {TypeInto(IDC_FILE_NAME, L"x"), Press(IDC_DEFAULT_NAME),
          ExpectItem(IDC_FILE_NAME, kProposed + L" (2)"), Name(L" \tShopping list  ")},
         folder + L"Shopping list");
    const Step refused = ExpectBox(
        L"Failed to create a file!\n\nPlease make sure that you have enough free storage space and the file "
        L"name does not contain any of the following characters:\n\\ / : * ? \" < > |",
        L" Error");
    device.files.PutFolder(folder + L"sub");
    save(folder, {refused, Name(L" \t "), refused, Name(L"a/b"), refused, Name(L"sub\\a"), Ok()},
         kPath + L" (2)");
    save(L"/newreminder 2007-03-08", {Ok()}, L"\\Ink\\Reminders\\2007-03-08\\Reminder 2007-03-08");
    EXPECT_EQ(device.files.Get(folder + L"list.ikw"), "someone's note");
    // Without anything written there is no file.
    Run(kNewNotes, {Press(platform::Key::Escape), Press(IDM_ERASER), Write({{5, 100}}), Ok()});
    EXPECT_EQ(Notes().size(), 7u);
}

// Midnight is hour 0 of the twelve too, as in names of earlier releases.
TEST_F(Saving, WhatAPatternMakes) {
    const auto expand = [](const wchar_t* pattern, int hour = 9, const wchar_t* folder = L"\\",
                           editor::NoteKind kind = editor::NoteKind::Ordinary) {
        return editor::ExpandFileNamePattern(pattern, kind, folder, {2007, 3, 1, 5, hour, 7, 5, 0});
    };
    device.SetSetting(L"RootDirPath", L"\\Ink\\");
    EXPECT_EQ(expand(L"%f %y %Y %m/%M %d/%D", 9, L"\\Work\\ My Plans\\"), L"My Plans 07 2007 03/3 05/5");
    EXPECT_EQ(expand(L"%i.%s %%d %q 100%"), L"07.05 %d %q 100%");
    for (const auto& [hour, text] : {std::pair{0, L"0 00 0 00 am AM"},
                                     {9, L"9 09 9 09 am AM"},
                                     {12, L"12 12 12 12 pm PM"},
                                     {13, L"1 01 13 13 pm PM"}})
        EXPECT_EQ(expand(L"%g %h %G %H %a %A", hour), text);
    EXPECT_EQ(expand(L"%F", 9, L"\\INK\\Work\\ Plans \\"), L"Work  Plans");
    EXPECT_EQ(expand(L"%F", 9, L"\\Inkling\\Plans\\"), L"Plans");
    EXPECT_EQ(expand(L"%F", 9, L"\\Ink\\Reminders\\2007-03-05\\", editor::NoteKind::Reminder), L"2007-03-05");
    device.SetSetting(L"RootDirPath", L"");
    EXPECT_EQ(expand(L"%F", 9, L"\\Ink\\Work\\Plans\\"), L"Plans") << "no root";
}

// A declined name is kept as a proposal: what lies there meanwhile is somebody else's, and so is the memo.
TEST_F(Saving, ANameWithoutAFileBelongsToWhoeverTakesItFirst) {
    const Step strangers = [this] {
        for (const wchar_t* kind : {L".ikw", L".txt"}) device.files.Put(kPath + kind, "a stranger's");
    };
    const Script declined{Dot(), ExpectDiscard(kPath + L".ikw", MessageAnswer::No), Ok(),
                          Press(platform::kIdCancel), strangers};
    Run(kNewNotes, All({Memo(L"", L"jam"), declined, Memo(L"jam", L"jam and tea"), {Ok()}}));
    for (const wchar_t* kind : {L".ikw", L".txt"}) EXPECT_EQ(device.files.Get(kPath + kind), "a stranger's");
    EXPECT_EQ(RowsAt(kPath + L" (1).ikw"), std::vector{60});
    EXPECT_EQ(device.files.Get(kPath + L" (1).txt"), "jam and tea");
}

TEST_F(Saving, ANoteIsWrittenBackWithItsNewInk) {
    const std::string stroke = Words({2, 0, 0x3456, 0x12, 60, 70, 10, 60, 20, 70});
    device.files.Put(kNote, Words({5, 0xFFFF, 1, kViewHeight, 1}) + stroke);
    Edited({ExpectTitle(L"a - Inkwright"), Write({{30, 100}, {40, 110}})});
    EXPECT_EQ(device.files.Get(kNote), Words({5, 0xFFFF, 1, kViewHeight, 2}) + stroke +
                                           Words({2, 0, 0x8080, 0x80, 100, 110, 30, 100, 40, 110}));
    EXPECT_EQ(Desk().waitCursors, 2) << "reading and writing";
    Edited({Fail({FileCall::Create})});  // an untouched note is not written
    Run(kNote, {Press(IDM_NEW_NOTE), ExpectTitle(L"[new] - Inkwright"), Ok()});
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
}

// A folder that two devices keep in step: what comes is shown, unless something was written here; then both
// versions stay.
TEST_F(Saving, ANoteThatIsChangedElsewhere) {
    const auto others = [this](const std::vector<int32_t>& rows) {
        return [=] {
            device.now.minute += 1;
            PutNote(rows);
            device.files.Find(kNote)->lastWrite = device.now;
        };
    };
    const Step half = [this] {
        device.now.minute += 1;
        device.files.Put(kNote, device.files.Get(kNote).substr(0, 30));
        device.files.Find(kNote)->lastWrite = device.now;
    };
    PutNote({10, kNoStroke, 300});
    Run(kNote, {Scroll(platform::ScrollCode::ThumbPosition, 187), others({10, 40, 300}), half, Wait(3000),
                ExpectInk({{100, 113}}), others({10, kNoStroke, 320}), Wait(3000), ExpectPosition(187),
                ExpectInk({{100, 133}}, {{100, 113}}), Ok()});
    EXPECT_EQ(RowsAt(kNote), (std::vector{320, 10}));
    const std::wstring aside = L"\\Ink\\a (conflict).ikw";
    const Step said = ExpectBox(
        std::wstring(L"'") + kNote +
            L"' was changed elsewhere while it was open here.\n\nWhat you wrote is in '" + aside + L"'.",
        L" Note Changed");
    Run(kNote, {Dot(), others({77}), Wait(5000), ExpectInk({{10, 60}}), said, Ok()});
    EXPECT_EQ(RowsAt(kNote), std::vector{77});
    EXPECT_EQ(RowsAt(aside).size(), 3u);
    // Without a word at the end of the session; and one that was deleted is simply written again.
    Run(kNote, {Dot(), others({78}), [this] { Desk().EndSession(); }});
    EXPECT_EQ(RowsAt(kNote), std::vector{78});
    EXPECT_EQ(RowsAt(L"\\Ink\\a (conflict) (1).ikw").size(), 2u);
    Run(kNote, {Dot(), [this] { device.files.Nodes().erase(device.files.KeyOf(kNote)); }, Ok()});
    EXPECT_EQ(RowsAt(kNote).size(), 2u);
}

// Each failing call, and each byte that the storage lacks, leaves the old note or the new one, and is told.
TEST_F(Saving, AFaultOfAnyWriteLeavesAWholeNote) {
    const auto isSaved = [this] {
        Run(kNote, {Dot(), [this] { Desk().answers = {MessageAnswer::Yes}; }, Ok()});
        const bool isNew = RowsAt(kNote).size() % 100 == 1;
        EXPECT_EQ(Desk().messages.size(), isNew ? 0u : 1u);
        Desk().messages.clear();
        Desk().answers.clear();
        return isNew;
    };
    const int calls = SweepFiles({FileCall::Create, FileCall::Write, FileCall::Flush}, [&](Fault& fault) {
        PutNote({});
        const bool isNew = isSaved();
        EXPECT_NE(isNew, fault.HasStruck());
    });
    EXPECT_GE(calls, 3);
    // An open file that can't be moved is closed, and moved by its path.
    for (const int failing : {1, 2}) {
        PutNote({});
        Fail({FileCall::Replace}, failing)();
        EXPECT_EQ(isSaved(), failing == 1);
        Fail({})();
    }
    // Where both have no room beside the journal, the new one is written over the old one.
    uint64_t needed = 0;
    for (bool fits = false; !fits && needed < 5000; needed += 4) {
        PutNote(std::vector<int32_t>(100, 9));
        device.files.capacity = device.files.UsedBytes() + needed;
        fits = isSaved();
    }
    EXPECT_LT(needed, 5000u);
    device.files.capacity = UINT64_MAX;
    // Another answer keeps the window and its ink, for closing as for a new note.
    const Step declined = ExpectDiscard(kNote, MessageAnswer::No);
    Edited({Dot(), Fail({FileCall::Create}), declined, Ok(), declined, Press(IDM_NEW_NOTE), Fail({})});
    Run(kNote, {Dot(), Fail({FileCall::Create}), ExpectDiscard(kNote, MessageAnswer::Yes),
                Press(IDM_NEW_NOTE), ExpectTitle(L"[new] - Inkwright"), ExpectInk({}, {{10, 60}}), Ok()});
}

// What is on the card stays there, and what is not waits for it: the page, the memo, and what was begun.
TEST_F(Saving, ACardThatIsPulledOutTakesNothingWithIt) {
    const std::wstring card = L"\\Storage Card";
    const std::wstring note = card + L"\\a.ikw";
    const Step out = [&] { device.files.unreachable = card; };
    const Step in = [this] { device.files.unreachable.clear(); };
    device.files.Put(note, Words({5, 0xFFFFFF, 0, kViewHeight}));
    device.files.Put(card + L"\\a.txt", "jam");
    const Step noErasing = ExpectBox(L"Deleting '" + note + L"' failed.", L" Error");
    const Step noSaving = ExpectBox(
        L"Saving Text Memo Failed! Please make sure that the selected storage device has enough free space.",
        L"Error");
    const Step asked = ExpectBox(L"Contents will permanently be lost! Continue?", L"Confirm Text Memo Save",
                                 MessageAnswer::No);
    const Step kept = ExpectDiscard(note, MessageAnswer::No);
    Run(note, All({{Dot(), out, ExpectErase(MessageAnswer::Yes), noErasing, Press(IDM_FULL_ERASE)},
                   Memo(L"", L"tea"),
                   {noSaving, in, asked, Press(IDC_MEMO_SAVE), Press(platform::kIdCancel), out, kept, Ok(),
                    in, Ok()}}));
    EXPECT_EQ(RowsAt(note), std::vector{60});
    EXPECT_EQ(device.files.Get(card + L"\\a.txt"), "jam");
    // The note goes, and with it the power.
    int calls = 0;
    device.files.fault = [&](FileCall call, const std::wstring&) {
        return call == FileCall::Erase && ++calls > 1 ? platform::FileError::Other
                                                      : platform::FileError::None;
    };
    store::DeleteNoteFiles(note);
    device.files.fault = nullptr;
    ASSERT_TRUE(device.files.Has(card + L"\\a.txt"));
    for (const Step& change : {out, in}) {
        change();
        Run(kNewNotes, {Ok()});
    }
    EXPECT_FALSE(device.files.Has(card + L"\\a.txt"));
}

// Of a new note with the page until that is saved, else beside the note.
TEST_F(Saving, WhereAMemoIsKept) {
    const Step told = ExpectBox(
        L"Saving Text Memo Failed! Please make sure that the selected storage device has enough free space.",
        L"Error");
    Play(All({Memo(L"", L"not this", IDC_MEMO_CANCEL),
              Memo(L"", L"first"),
              Memo(L"first", L"first one"),
              {[this] { EXPECT_TRUE(Notes().empty()); }, Press(IDM_NEW_NOTE), Ok()}}));
    Run(kNewNotes, All({Memo(L"", L"second\r\n\u4E2D"),
                        {Ok(), Fail({FileCall::Write}, 1, L"Two.tx"), told, Name(L"Two")}}));
    EXPECT_THAT(Notes(), UnorderedElementsAre(kProposed + L".ikw", kProposed + L".txt", L"Two.ikw"));
    EXPECT_EQ(device.files.Get(kPath + L".txt"), "first one");
}

// What another copy sends to have windows closed comes again and again, whatever is open over them.
TEST_F(Saving, RepeatedRequestsCloseOnceAndChooseNothing) {
    platform::Window* editor = nullptr;
    const Step closeBelow = [&editor] { editor->OnCommand(platform::kIdOk); };
    device.SetSetting(L"RootDirPath", L"\\Ink");
    Run(L"/newalarm 200703515203005",
        {Dot(), [&] { editor = Desk().Top(); }, Ok(), closeBelow, ExpectTitle(L" Inkwright - Save As"),
         closeBelow, ExpectBox(L"Alarm is successfully set!", L" 3/15/2007 8:30:05 PM"), Ok()});
    EXPECT_EQ(device.notifications.size(), 1u);
}

// The question for a name counts as declined then, and what was saved stays.
TEST_F(Saving, TheSessionsEndSavesUnderTheNameThatIsProposed) {
    Run(kNewNotes, {Dot(), Ok(), ExpectDiscard(kPath + L".ikw", platform::MessageAnswer::No),
                    [&] { Desk().EndSession(); }});
    EXPECT_THAT(Notes(), testing::ElementsAre(kProposed + L".ikw"));
}

TEST_F(Saving, ATakeOverEndsTheWholeCopyAndSavesWhatIsOpen) {
    device.SetSetting(L"RootDirPath", L"\\Ink");
    Run(L"/manage Work", {Press(IDM_ADD_NOTE), Dot(), Press(IDM_TEXT_MEMO), TypeInto(IDC_MEMO_TEXT, L"jam"),
                          TakeOver(), TakeOver()});  // the name is asked
    EXPECT_THAT(device.files.NamesIn(L"\\Ink\\Work"),
                UnorderedElementsAre(L"Work 2007-03-05.ikw", L"Work 2007-03-05.txt"));
}

}  // namespace
