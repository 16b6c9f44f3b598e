#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::host::FileCall;
using testing::ElementsAre;
using testing::UnorderedElementsAre;
using testing_support::kNewNotes;

// A new note with one dot in it, closed; what follows happens in the Save As dialog.
class Naming : public testing_support::DeskTest {
  protected:
    void WriteAndClose() {
        Then([this] {
            Desk().Stroke({{10, 60}});
            Desk().Command(platform::kIdOk);
        });
    }
    void TypeAndAccept(const std::wstring& name) {
        Then([this, name] {
            Desk().Type(IDC_FILE_NAME, name);
            Desk().Command(platform::kIdOk);
        });
    }
    std::wstring TypedName() { return Dialog().ItemText(IDC_FILE_NAME); }
    platform::Dialog& Dialog() { return dynamic_cast<platform::Dialog&>(*Desk().Top()); }
    std::vector<std::wstring> Notes() { return device.files.NamesIn(kNewNotes); }
};

TEST_F(Naming, ProposesTheFolderAndTheDayAndKeepsNamesApart) {
    for (const wchar_t* name :
         {L"New Notes 2007-03-05", L"New Notes 2007-03-05 (1)", L"New Notes 2007-03-05 (2)"}) {
        WriteAndClose();
        Then([this, name] {
            EXPECT_EQ(Desk().Top()->Title(), L" Inkwright - Save As");
            EXPECT_EQ(TypedName(), name);
            Desk().Command(platform::kIdOk);
        });
        Run(kNewNotes);
    }
    EXPECT_THAT(Notes(), UnorderedElementsAre(L"New Notes 2007-03-05.ikw", L"New Notes 2007-03-05 (1).ikw",
                                              L"New Notes 2007-03-05 (2).ikw"));
}

TEST_F(Naming, AReminderIsNamedByItsOwnPattern) {
    device.SetSetting(L"RootDirPath", L"\\Ink");
    WriteAndClose();
    Then(Close());
    Run(L"/newreminder 2007-03-08");
    EXPECT_THAT(device.files.NamesIn(L"\\Ink\\Reminders\\2007-03-08"),
                ElementsAre(L"Reminder 2007-03-08.ikw"));
}

TEST_F(Naming, DefaultPutsTheProposalBackAndBlanksAreTrimmed) {
    WriteAndClose();
    Then([this] {
        Desk().Type(IDC_FILE_NAME, L"something");
        Desk().Command(IDC_DEFAULT_NAME);
        EXPECT_EQ(TypedName(), L"New Notes 2007-03-05");
    });
    TypeAndAccept(L"  Shopping list ");
    Run(kNewNotes);
    EXPECT_THAT(Notes(), ElementsAre(L"Shopping list.ikw"));
}

TEST_F(Naming, ATakenNameIsMadeUniqueAgain) {
    device.files.Put(std::wstring(kNewNotes) + L"list.IKW", "someone's note");
    WriteAndClose();
    TypeAndAccept(L"List");
    Run(kNewNotes);
    EXPECT_THAT(Notes(), UnorderedElementsAre(L"list.IKW", L"List (1).ikw"));
    EXPECT_EQ(device.files.Get(std::wstring(kNewNotes) + L"list.ikw"), "someone's note");
}

TEST_F(Naming, RefusedNamesAreAskedForAgain) {
    device.files.PutFolder(std::wstring(kNewNotes) + L"sub");
    WriteAndClose();
    for (const wchar_t* refused :
         {L"", L"   ", L"a/b", L"what?", L"a:b", L"sub\\a", L"\"a\"", L"a|b", L"<a>", L"*"}) {
        TypeAndAccept(refused);
        Then([this] { EXPECT_EQ(TypedName(), L"New Notes 2007-03-05"); });
    }
    Then(Close());
    Run(kNewNotes);
    EXPECT_THAT(Notes(), UnorderedElementsAre(L"sub", L"New Notes 2007-03-05.ikw"));
    ASSERT_EQ(Desk().messages.size(), 10u);
    for (const auto& message : Desk().messages) {
        EXPECT_EQ(message.text,
                  L"Failed to create a file!\n\nPlease make sure that you have enough free storage space and "
                  L"the file "
                  L"name does not contain any of the following characters:\n\\ / : * ? \" < > |");
        EXPECT_EQ(message.caption, L" Error");
        EXPECT_EQ(message.icon, platform::MessageIcon::Error);
    }
}

TEST_F(Naming, CancellingAsksWhetherTheInkMayGo) {
    WriteAndClose();
    Desk().answers = {platform::MessageAnswer::No};
    Then([this] { Desk().Command(platform::kIdCancel); });
    Then([this] {
        EXPECT_EQ(Desk().messages.back().text, L"Saving '" + std::wstring(kNewNotes) +
                                                   L"New Notes 2007-03-05.ikw' failed!\nDiscard changes?");
        EXPECT_EQ(Desk().messages.back().caption, L" Error");
        EXPECT_EQ(Desk().messages.back().defaultButton, platform::DefaultButton::Second);
        EXPECT_THAT(Notes(), testing::IsEmpty());
    });
    Then(Close());  // the note has its proposed name now
    Run(kNewNotes);
    EXPECT_THAT(Notes(), ElementsAre(L"New Notes 2007-03-05.ikw"));
}

// It has a name then, but no file: what lies under that name meanwhile is somebody else's, and so is the
// memo.
TEST_F(Naming, ANameWithoutAFileBelongsToWhoeverTakesItFirst) {
    const std::wstring folder = kNewNotes;
    const auto thenMemo = [this](const wchar_t* before, const wchar_t* after) {
        Then([this] { Desk().Command(IDM_TEXT_MEMO); });
        Then([=] {
            EXPECT_EQ(Dialog().ItemText(IDC_MEMO_TEXT), before);
            Desk().Type(IDC_MEMO_TEXT, after);
            Desk().Command(IDC_MEMO_SAVE);
        });
    };
    for (const bool isWriteFault : {false, true}) {
        for (const std::wstring& name : Notes())
            device.files.Nodes().erase(device.files.KeyOf(folder + name));
        bool diskIsFull = isWriteFault;
        device.files.fault = [&](FileCall call, const std::wstring&) {
            return diskIsFull && call == FileCall::Write ? platform::FileError::Other
                                                         : platform::FileError::None;
        };
        Desk().answers = {platform::MessageAnswer::No, platform::MessageAnswer::Yes};
        thenMemo(L"", L"jam");
        WriteAndClose();
        Then([&] { Desk().Command(isWriteFault ? platform::kIdOk : platform::kIdCancel); });
        Then([&, folder] {
            diskIsFull = false;
            device.files.Put(folder + L"New Notes 2007-03-05.ikw", "a stranger's");
            device.files.Put(folder + L"New Notes 2007-03-05.txt", "a stranger's");
            Desk().Command(IDM_TEXT_MEMO);
        });
        Then([this] {
            EXPECT_EQ(Dialog().ItemText(IDC_MEMO_TEXT), L"jam");
            Desk().Type(IDC_MEMO_TEXT, L"jam and tea");
            Desk().Command(IDC_MEMO_SAVE);
        });
        Then(Close());
        Run(kNewNotes);
        EXPECT_EQ(device.files.Get(folder + L"New Notes 2007-03-05.ikw"), "a stranger's");
        EXPECT_EQ(device.files.Get(folder + L"New Notes 2007-03-05.txt"), "a stranger's");
        EXPECT_EQ(ReadBack(folder + L"New Notes 2007-03-05 (1).ikw")->Band(0)->Count(), 1u);
        EXPECT_EQ(device.files.Get(folder + L"New Notes 2007-03-05 (1).txt"), "jam and tea");
        // A full erase before the first save takes nobody's file either.
        WriteAndClose();
        Then([this] { Desk().Command(platform::kIdCancel); });
        Then([this, folder] {
            device.files.Put(folder + L"New Notes 2007-03-05 (2).ikw", "a stranger's");
            Desk().Command(IDM_FULL_ERASE);
        });
        Then(Close());
        Desk().answers = {platform::MessageAnswer::No, platform::MessageAnswer::Yes};
        Run(kNewNotes);
        EXPECT_TRUE(device.files.Has(folder + L"New Notes 2007-03-05 (2).ikw"));
    }
}

TEST_F(Naming, NewNoteAndFullEraseStayInTheFolderWithoutAFile) {
    Then([this] {
        Desk().Stroke({{10, 60}, {20, 70}});
        Desk().Command(IDM_NEW_NOTE);
    });
    TypeAndAccept(L"first");
    Then([this] {
        EXPECT_EQ(Desk().Top()->Title(), L"[new] - Inkwright");
        Desk().Stroke({{10, 60}});
        Desk().Command(IDM_NEW_NOTE);
    });
    TypeAndAccept(L"second");
    Then(Close());
    Run(kNewNotes);
    EXPECT_THAT(Notes(), UnorderedElementsAre(L"first.ikw", L"second.ikw"));
    EXPECT_EQ(ReadBack(std::wstring(kNewNotes) + L"second.ikw")->Band(0)->Count(), 1u);
}

}  // namespace
