// The dialog over the real manager, on a device in memory.
#include "app/store/Settings.h"
#include "search/TreeWalk.h"
#include "tests/manager/ManagerRig.h"

namespace {

using platform::kIdCancel;
using platform::kIdOk;
using testing_support::kRoot;
using testing_support::Step;

constexpr wchar_t kFinished[] = L"Finished searching for files/folders.";

class Find : public testing_support::ManagerTest {
  protected:
    Find() {
        for (const wchar_t* note :
             {L"Home\\Garden.ikw", L"Work\\Plan.ikw", L"Reminders\\2007-03-08\\Call.ikw"})
            PutNote(note);
        device.files.Put(kRoot + L"Work\\Plan.txt", "Ring Ann about the garden");
    }
    platform::Dialog& Dialog() { return dynamic_cast<platform::Dialog&>(*Desk().Top()); }
    Step Open() {
        return [this] { Desk().PressShortcut(L'F'); };
    }
    Step Search(const std::wstring& text) { return TypeInto(IDC_SEARCH_TEXT, text); }
    Step ExpectFound(const std::wstring& text, int focused = IDC_FIND_NEXT) {
        return [=] {
            ExpectSelected(text)();
            EXPECT_EQ(Dialog().Handle()->focusedItem, focused);
            for (const int id : {IDC_FIND_FIRST, IDC_FIND_NEXT, IDC_SEARCH_TEXT, IDC_SEARCH_MEMOS})
                EXPECT_TRUE(IsItemEnabled(id)) << "the search has ended";
        };
    }
    Step ExpectNotice(const std::wstring& text) { return ExpectBox(text, L" Inkwright"); }
};

TEST_F(Find, OneMatchAfterAnotherUntilTheEnd) {
    device.SetSetting(L"SearchOpt", 7);
    RunManager(
        L"", {Open(), Search(L"garden"), Press(IDC_FIND_FIRST), ExpectFound(L"Garden"), Press(IDC_FIND_NEXT),
              ExpectFound(L"Plan"), ExpectNotice(kFinished), Press(IDC_FIND_NEXT), Search(L"call"),
              Press(IDC_FIND_NEXT), ExpectFound(L"Call"), Press(kIdCancel)});
}

TEST_F(Find, OptionsAndTheLastTextAreKept) {
    const std::pair<uint32_t, uint32_t> kCases[] = {{0, 1}, {1, 1}, {2, 2},    {4, 4},
                                                    {6, 6}, {7, 7}, {0xF8, 1}, {0x102, 2}};
    for (const auto& [stored, kept] : kCases) {
        device.SetSetting(L"SearchOpt", stored);
        const auto expectOptions = [this, options = kept] {
            EXPECT_EQ(Dialog().IsItemChecked(IDC_SEARCH_NOTES), (options & 1) != 0);
            EXPECT_EQ(Dialog().IsItemChecked(IDC_SEARCH_FOLDERS), (options & 2) != 0);
            EXPECT_EQ(Dialog().IsItemChecked(IDC_SEARCH_MEMOS), (options & 4) != 0);
            EXPECT_EQ(Dialog().WindowRect().right, Desk().screen.width);
            EXPECT_GT(Dialog().WindowRect().Width(), 100);
            EXPECT_EQ(Dialog().WindowRect().bottom, Desk().screen.height);
        };
        RunManager(L"", {Open(), expectOptions, Press(kIdCancel)});
        EXPECT_EQ(device.NumberSetting(L"SearchOpt"), kept);
    }
    EXPECT_FALSE(device.HasSetting(L"SearchLastText")) << "an empty text is not stored";
    const auto expectText = [this] { EXPECT_EQ(Dialog().ItemText(IDC_SEARCH_TEXT), L"ann"); };
    RunManager(L"",
               {Open(), Search(L"ann"), Press(IDC_SEARCH_NOTES), Press(IDC_SEARCH_FOLDERS), Press(kIdCancel),
                Open(), expectText, Search(L""), Press(kIdCancel), Open(), expectText, Press(kIdCancel)});
    EXPECT_EQ(device.NumberSetting(L"SearchOpt"), 1u);
}

TEST_F(Find, WithoutATextOrAThreadNothingStarts) {
    const auto takeThreads = [this] { Desk().workersFail = true; };
    RunManager(L"", {Open(), ExpectNotice(L"Please enter some text to search for."), Press(IDC_FIND_FIRST),
                     ExpectFound(L"Notes", IDC_SEARCH_TEXT), takeThreads, Search(L"garden"),
                     Press(IDC_FIND_FIRST), ExpectFound(L"Notes", IDC_SEARCH_TEXT), Press(kIdCancel)});
    EXPECT_EQ(Desk().outOfMemoryBoxes, 1);
}

// Pressed, closed and lied to from within the memo that is being read. A cancelled search tells nothing.
TEST_F(Find, CancelOnlyAsksAndClosingWaits) {
    for (const int command : {kIdCancel, kIdOk}) {
        device.SetSetting(L"SearchOpt", 4);
        int reads = 0;
        const auto disturb = [this, command, &reads] {
            device.files.fault = [this, command, &reads](platform::host::FileCall call, const std::wstring&) {
                if (call != platform::host::FileCall::Read || reads++ != 0) return platform::FileError::None;
                Desk().PrivateMessage(static_cast<uint32_t>(search::WalkCode::Done));
                Desk().PrivateMessage(static_cast<uint32_t>(search::WalkCode::RelativePath), 12345);
                for (const int id : {IDC_FIND_FIRST, IDC_FIND_NEXT, IDC_SEARCH_TEXT, IDC_SEARCH_MEMOS})
                    EXPECT_FALSE(IsItemEnabled(id)) << "the worker still runs";
                for (const int id : {IDC_FIND_FIRST, IDC_FIND_NEXT, command}) Desk().Top()->OnCommand(id);
                return platform::FileError::None;
            };
        };
        testing_support::Script script{Open(), Search(L"nowhere"), disturb, Press(IDC_FIND_FIRST)};
        if (command == kIdCancel)
            script.insert(script.end(), {ExpectFound(L"Work  (2 found) "), Press(kIdCancel)});
        RunManager(L"", script);
        device.files.fault = nullptr;
        EXPECT_EQ(reads, 1);
    }
}

TEST_F(Find, IsNotThereInTheCalendar) {
    const auto expectTool = [this](bool isEnabled) {
        return [=] { EXPECT_EQ(hand.Tool(IDM_FIND).enabled, isEnabled); };
    };
    const auto send = [this] { Desk().Top()->OnCommand(IDM_FIND); };
    RunManager(L"", {expectTool(true), Press(IDM_CALENDAR), expectTool(false), send});
}

}  // namespace
