#include "tests/support/DeskTest.h"

namespace {

using platform::FileError;
using platform::host::FileCall;
using testing::IsEmpty;
using testing_support::Words;

const wchar_t kNote[] = L"\\Ink\\Meeting.ikw";

// One stroke of two points in band 0, on a yellow page of 268-row bands.
std::string SmallNote() {
    return Words({5, 0x00FFFF, 1, 268, 1, 2, 0, 0x3456, 0x12, 60, 70, 10, 60, 20, 70});
}

class NoteStorage : public testing_support::DeskTest {
  protected:
    NoteStorage() { device.files.Put(kNote, SmallNote()); }
    void ThenTitle(const wchar_t* title) {
        Then([this, title] { EXPECT_EQ(Desk().Top()->Title(), title); });
    }
};

TEST_F(NoteStorage, ANoteIsShownAndWrittenBackWithNewInk) {
    ThenTitle(L"Meeting - Inkwright");
    Then([this] { Desk().Stroke({{30, 100}, {40, 110}}); });
    Then(Close());
    Run(kNote);
    EXPECT_EQ(device.files.Get(kNote),
              Words({5,  0x00FFFF, 1, 268, 2,      2,    0,   0x3456, 0x12, 60,  70, 10, 60,
                     20, 70,       2, 0,   0x8080, 0x80, 100, 110,    30,   100, 40, 110}));
    EXPECT_GT(Desk().waitCursors, 0);
}

TEST_F(NoteStorage, AnUntouchedNoteIsNotWritten) {
    device.files.fault = [](FileCall call, const std::wstring&) {
        return call == FileCall::Create || call == FileCall::Write ? FileError::Other : FileError::None;
    };
    Then(Close());
    Run(kNote);
    EXPECT_EQ(device.files.Get(kNote), SmallNote());
    EXPECT_THAT(Desk().messages, IsEmpty());
}

TEST_F(NoteStorage, ANoteThatAnotherWriterHoldsIsReadAfterAWhile) {
    for (const int refusals : {1, 4, 5}) {
        int reads = 0;
        device.files.fault = [&](FileCall call, const std::wstring&) {
            return call == FileCall::Read && reads++ < refusals ? FileError::AccessDenied : FileError::None;
        };
        const uint32_t before = device.ticks;
        ThenTitle(refusals < 5 ? L"Meeting - Inkwright" : L"[new] - Inkwright");
        Then(Close());
        Run(kNote);
        EXPECT_EQ(device.ticks - before, static_cast<uint32_t>(std::min(refusals, 4)) * 500u);
        if (refusals == 5) {
            EXPECT_EQ(reads, 5);
        }
    }
}

TEST_F(NoteStorage, WhatCannotBeReadWholeBecomesANewNoteInItsFolder) {
    const std::string whole = SmallNote();
    for (const std::string& damaged :
         {std::string(), whole.substr(0, 15), whole.substr(0, 16), whole.substr(0, whole.size() - 1),
          Words({5, 0, 1, 268, 1, -1, 0, 0, 0, 0, 0})}) {
        device.files.Put(kNote, damaged);
        ThenTitle(L"[new] - Inkwright");
        Then([this] { Desk().Stroke({{10, 60}}); });
        Then(Close());
        Then(Close());
        Run(kNote);
        EXPECT_EQ(device.files.Get(kNote), damaged) << "the damaged file stays as it is";
        EXPECT_TRUE(device.files.Has(L"\\Ink\\Ink 2007-03-05.ikw"));
        device.files.Nodes().erase(L"\\INK\\INK 2007-03-05.IKW");
    }
    EXPECT_THAT(Desk().messages, IsEmpty());
}

TEST_F(NoteStorage, AFileInUseOpensAsANewNote) {
    const platform::File held = platform::File::OpenForReading(kNote);
    ThenTitle(L"[new] - Inkwright");
    Then(Close());
    Run(kNote);
    EXPECT_THAT(Desk().messages, IsEmpty());
}

TEST_F(NoteStorage, AReadErrorAtAnyReadLosesNothing) {
    int total = 0;
    for (int failing = 0; failing <= total; ++failing) {
        int reads = 0;
        device.files.fault = [&](FileCall call, const std::wstring&) {
            return call == FileCall::Read && reads++ == failing ? FileError::Other : FileError::None;
        };
        ThenTitle(L"[new] - Inkwright");
        Then(Close());
        if (failing == 0) total = 1;
        Run(kNote);
        EXPECT_EQ(device.files.Get(kNote), SmallNote());
    }
}

TEST_F(NoteStorage, TheBackgroundOfTheFileIsTaken) {
    Then([this] { EXPECT_EQ(Shown().Row(200)[100], 0xFFFF00u); });
    Then(Close());
    Run(kNote);
    EXPECT_EQ(device.NumberSetting(L"LastBGColor"), 0x00FFFFu) << "the next new page looks the same";
}

}  // namespace
