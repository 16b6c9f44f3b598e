#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::FileError;
using platform::MessageAnswer;
using platform::host::FileCall;
using testing::IsEmpty;
using testing_support::kNewNotes;
using testing_support::Words;

const wchar_t kNote[] = L"\\Ink\\a.ikw";

class Closing : public testing_support::DeskTest {
  protected:
    Closing() { device.files.Put(kNote, Words({5, 0xFFFFFF, 0, 268})); }
    void ThenWriteAndClose() {
        Then([this] {
            Desk().Stroke({{30, 100}, {40, 110}});
            Desk().Command(platform::kIdOk);
        });
    }
};

TEST_F(Closing, AnEmptyNewNoteMakesNoFile) {
    Then(Close());
    Run(kNewNotes);
    EXPECT_THAT(device.files.NamesIn(kNewNotes), IsEmpty());
    EXPECT_THAT(Desk().messages, IsEmpty());
}

TEST_F(Closing, ADeclinedFailureKeepsTheWindowAndItsInk) {
    bool diskIsFull = true;
    device.files.fault = [&](FileCall call, const std::wstring&) {
        return diskIsFull && call == FileCall::Write ? FileError::Other : FileError::None;
    };
    Desk().answers = {MessageAnswer::No, MessageAnswer::No};
    ThenWriteAndClose();
    Then([&] {
        EXPECT_FALSE(device.files.Has(kNote)) << "no half-written note stays";
        Desk().Command(platform::kIdOk);
    });
    Then([&] {
        EXPECT_EQ(Desk().messages.size(), 2u);
        diskIsFull = false;
        Desk().Command(platform::kIdOk);
    });
    Run(kNote);
    EXPECT_EQ(ReadBack(kNote)->Band(0)->Count(), 1u);
}

TEST_F(Closing, AFullDiskAtAnyByteLeavesNoPartOfANote) {
    for (uint64_t room = 0; room < 16 + 4 + 40; room += 4) {
        device.files.Put(kNote, Words({5, 0xFFFFFF, 0, 268}));
        device.files.capacity = device.files.UsedBytes() - 16 + room;
        Desk().answers = {MessageAnswer::Yes};
        ThenWriteAndClose();
        Run(kNote);
        EXPECT_FALSE(device.files.Has(kNote)) << room;
        EXPECT_EQ(Desk().messages.back().text, L"Saving '\\Ink\\a.ikw' failed!\nDiscard changes?");
    }
}

TEST_F(Closing, ASecondCloseWhileAQuestionIsOpenDoesNothing) {
    ThenWriteAndClose();
    Then([this] { EXPECT_EQ(Desk().Top()->Title(), L" Inkwright - Save As"); });
    Then(Close());
    Run(kNewNotes);
}

TEST_F(Closing, AnotherCopysTakeOverClosesAndSaves) {
    Then([this] { Desk().Stroke({{30, 100}, {40, 110}}); });
    Then([this] { Desk().PrivateMessage(0); });
    Then([this] { Desk().PrivateMessage(1); });
    Run(kNote);
    EXPECT_EQ(ReadBack(kNote)->Band(0)->Count(), 1u);
}

// What another copy sends to have windows closed comes again and again, whatever is open over them.
TEST_F(Closing, RepeatedRequestsCloseOnceAndChooseNothing) {
    const auto requestTwice = [this](const auto&) {
        Desk().Command(platform::kIdOk);
        Desk().Command(platform::kIdOk);
        return IDM_SET_ALARM;
    };
    Then([=] {
        Desk().Stroke({{30, 100}, {40, 110}});
        Desk().chooseFromMenu = requestTwice;
        Desk().Command(IDM_TOOLS);
        Desk().Command(platform::kIdOk);
    });
    Run(kNote);
    EXPECT_EQ(ReadBack(kNote)->Band(0)->Count(), 1u);

    // The alarm of a new note is set once.
    device.SetSetting(L"RootDirPath", L"\\Ink");
    Then([this] {
        Desk().Stroke({{30, 100}, {40, 110}});
        Desk().Command(platform::kIdOk);
    });
    Then([=] {
        Desk().Command(platform::kIdOk);
        Desk().Command(platform::kIdOk);
    });
    Run(L"/newalarm 200703515203005");
    EXPECT_EQ(device.notifications.size(), 1u);

    Then([this] { Desk().Command(IDM_PALETTE_PEN); });
    Then([this] {
        EXPECT_EQ(Desk().Top()->Title(), L"Color Palette");
        Desk().Command(platform::kIdOk);
    });
    Then(Close());
    Run(kNote);
    EXPECT_EQ(device.NumberSetting(L"LastPenColor"), 0x808080u);
}

TEST_F(Closing, ATakeOverEndsTheWholeCopyAndSavesWhatIsOpen) {
    device.SetSetting(L"RootDirPath", L"\\Ink");
    Then([this] { Desk().Command(IDM_ADD_NOTE); });
    Then([this] {
        Desk().Stroke({{30, 100}, {40, 110}});
        Desk().Command(IDM_TEXT_MEMO);
    });
    Then([this] {
        Desk().Type(IDC_MEMO_TEXT, L"jam");
        Desk().PrivateMessage(platform::kTakeOver);
    });
    Then([this] { Desk().PrivateMessage(platform::kTakeOver); });  // the name is asked
    Run(L"/manage Work");
    EXPECT_THAT(device.files.NamesIn(L"\\Ink\\Work"),
                testing::UnorderedElementsAre(L"Work 2007-03-05.ikw", L"Work 2007-03-05.txt"));
}

TEST_F(Closing, EscapeDoesNothing) {
    Then([this] { Desk().Press(platform::Key::Escape); });
    Then([this] { EXPECT_TRUE(Desk().Top()->Exists()); });
    Then(Close());
    Run(kNote);
}

TEST_F(Closing, FullEraseDeletesTheNoteAndItsMemoAfterAsking) {
    device.files.Put(L"\\Ink\\a.txt", "memo");
    Desk().answers = {MessageAnswer::No, MessageAnswer::Yes};
    Then([this] { Desk().Command(IDM_FULL_ERASE); });
    Then([this] {
        EXPECT_TRUE(device.files.Has(kNote));
        EXPECT_EQ(Desk().messages.back().text, L"Notes will be completely erased. Continue?");
        EXPECT_EQ(Desk().messages.back().caption, L" Confirm Full Erase");
        EXPECT_EQ(Desk().messages.back().icon, platform::MessageIcon::Question);
        Desk().Command(IDM_FULL_ERASE);
    });
    Then([this] {
        EXPECT_EQ(Desk().Top()->Title(), L"[new] - Inkwright");
        EXPECT_THAT(device.files.NamesIn(L"\\Ink"), IsEmpty());
    });
    Then(Close());
    Run(kNote);
}

TEST_F(Closing, TheMemoOfANewNoteIsKeptWithThePage) {
    const auto thenMemo = [this](const wchar_t* before, const wchar_t* after, int button) {
        Then([this] { Desk().Command(IDM_TEXT_MEMO); });
        Then([=] {
            EXPECT_EQ(dynamic_cast<platform::Dialog&>(*Desk().Top()).ItemText(IDC_MEMO_TEXT), before);
            Desk().Type(IDC_MEMO_TEXT, after);
            Desk().Command(button);
        });
    };
    const std::wstring folder = kNewNotes;
    thenMemo(L"", L"not this", IDC_MEMO_CANCEL);
    thenMemo(L"", L"first", IDC_MEMO_SAVE);
    Then([this, folder] {
        EXPECT_THAT(device.files.NamesIn(folder), IsEmpty());
        Desk().Command(IDM_NEW_NOTE);
    });
    Then(Close());
    Then([this, folder] { EXPECT_EQ(device.files.NamesIn(folder).size(), 2u); });
    thenMemo(L"", L"second\r\n\u4E2D", IDC_MEMO_SAVE);
    device.files.fault = [](FileCall call, const std::wstring& path) {
        const bool isMemo = path.find(L"01).txt") != std::wstring::npos;
        return call == FileCall::Write && isMemo ? FileError::Other : FileError::None;
    };
    Then(Close());
    Then([this] {
        Desk().Type(IDC_FILE_NAME, L"Two (01)");
        Desk().Command(platform::kIdOk);
    });
    Run(kNewNotes);
    EXPECT_THAT(device.files.NamesIn(folder), testing::SizeIs(3)) << "the ink is safe, half a memo is none";
    EXPECT_THAT(device.files.NamesIn(folder), testing::Contains(L"Two (01).ikw"));
    ASSERT_EQ(Desk().messages.size(), 1u);
    EXPECT_EQ(Desk().messages[0].text,
              L"Saving Text Memo Failed! Please make sure that the selected storage device has enough free "
              L"space.");
}

TEST_F(Closing, ANoteWithAFileHasItsMemoBesideIt) {
    Then([this] { Desk().Command(IDM_TEXT_MEMO); });
    Then([this] {
        EXPECT_EQ(Desk().Top()->Title(), L"a - Inkwright") << "what the navigation bar showed before";
        Desk().Type(IDC_MEMO_TEXT, L"jam");
        Desk().Command(IDC_MEMO_SAVE);
    });
    Then(Close());
    Run(kNote);
    EXPECT_EQ(device.files.Get(L"\\Ink\\a.txt"), "jam");
}

TEST_F(Closing, NewNoteAfterAFailedSaveKeepsOrDropsTheInkAsAnswered) {
    device.files.fault = [](FileCall call, const std::wstring&) {
        return call == FileCall::Create ? FileError::Other : FileError::None;
    };
    Desk().answers = {MessageAnswer::No, MessageAnswer::Yes};
    Then([this] {
        Desk().Stroke({{30, 100}, {40, 110}});
        Desk().Command(IDM_NEW_NOTE);
    });
    Then([this] {
        EXPECT_EQ(Desk().Top()->Title(), L"a - Inkwright");
        Desk().Command(IDM_NEW_NOTE);
    });
    Then([this] { EXPECT_EQ(Desk().Top()->Title(), L"[new] - Inkwright"); });
    Then(Close());
    Run(kNote);
    EXPECT_EQ(Desk().messages.size(), 2u);
}

}  // namespace
