#include "search/MemoSearch.h"
#include "search/TreeWalk.h"
#include "tests/manager/ManagerRig.h"

namespace {

using platform::kIdCancel;
using platform::kIdOk;
using namespace testing_support;

constexpr int kControls[] = {IDC_FIND_FIRST, IDC_FIND_NEXT, IDC_SEARCH_TEXT, IDC_SEARCH_MEMOS};

class Find : public ManagerTest {
  protected:
    Find() {
        for (const wchar_t* note :
             {L"Home\\Garden.ikw", L"Work\\Plan.ikw", L"Reminders\\2007-03-08\\Call.ikw"})
            PutNote(note);
        device.files.Put(kRoot + L"Work\\Plan.txt", "Ring Ann about the garden");
    }
    Step ExpectFound(const std::wstring& text, int focused = IDC_FIND_NEXT) {
        return [=] {
            ExpectSelected(text)();
            EXPECT_EQ(Dialog().Handle()->focusedItem, focused);
            for (const int id : kControls) EXPECT_TRUE(IsItemEnabled(id)) << "the search has ended";
        };
    }
};

// Everything from the top on, in the order of the tree. Capitals match in memos only.
TEST_F(Find, OneMatchAfterAnotherUntilTheEnd) {
    for (const wchar_t* note : {L"Home\\Deep\\planet.ikw", L"Home\\Plain\\x.ikw", L"Home\\Plain\\y.ikw"})
        PutNote(note);
    device.files.Put(kRoot + L"Home\\Plain\\y.txt", "PLANTS");
    const struct {
        uint32_t options;
        std::wstring text;
        Texts found;
    } kCases[] = {{1, L"pla", {L"planet", L"Plan"}},
                  {1, L"call", {L"Call"}},
                  {1, L"Plan", {}},
                  {2, L"pla", {L"Plain  (2 found) "}},
                  {2, L"th", {L"Thursday, March 8, 2007  (1 found) "}},
                  {2, L"e", {L"Home  (1 found) ", L"Deep  (1 found) "}},  // the top ones are no folders
                  {4, L"Plan", {L"y"}},
                  {6, L"arden", {L"Plan"}},
                  {7, L"pla", {L"planet", L"Plain  (2 found) ", L"y", L"Plan"}}};
    const Step expectTree = [this] {
        EXPECT_EQ(TreeControl().Text(TreeControl().Selection()).find(L"Alarms"), std::wstring::npos);
    };
    for (const auto& each : kCases) {
        device.SetSetting(L"SearchOpt", each.options);
        Play({Shortcut(L'F'), TypeInto(IDC_SEARCH_TEXT, each.text)});
        int button = IDC_FIND_FIRST;
        for (const std::wstring& found : each.found) {
            Play({Press(button), ExpectFound(found)});
            button = IDC_FIND_NEXT;
        }
        RunManager(L"", {ExpectBox(L"Finished searching for files/folders.", L" Inkwright"), Press(button),
                         expectTree, Press(kIdCancel)});
    }
}

TEST_F(Find, WithoutATextOrAThreadNothingStarts) {
    device.notifications.clear();  // the last item of the tree is "Alarms" then
    const Step noThread = [this] { Desk().workersFail = true; };
    shortages_ = 1;
    RunManager(L"", {Shortcut(L'F'), ExpectBox(L"Please enter some text to search for.", L" Inkwright"),
                     Press(IDC_FIND_FIRST), ExpectFound(L"Notes", IDC_SEARCH_TEXT),
                     TypeInto(IDC_SEARCH_TEXT, L"garden"), Press(IDC_FIND_FIRST), ExpectFound(L"Garden"),
                     noThread, Press(IDC_FIND_FIRST), ExpectFound(L"Garden", IDC_SEARCH_TEXT),
                     Press(kIdCancel), Tap(L"Alarms"), Shortcut(L'F'),
                     ExpectBox(L"Finished searching for files/folders.", L" Inkwright"), Press(IDC_FIND_NEXT),
                     Press(kIdCancel)});
}

TEST_F(Find, OptionsAndTheLastTextAreKept) {
    for (const auto& [stored, kept] : {std::pair{0u, 1u}, {2u, 2u}, {4u, 4u}, {7u, 7u}, {0x102u, 2u}}) {
        device.SetSetting(L"SearchOpt", stored);
        const Step expectOptions = [this, options = kept] {
            EXPECT_EQ(Dialog().IsItemChecked(IDC_SEARCH_NOTES), (options & 1) != 0);
            EXPECT_EQ(Dialog().IsItemChecked(IDC_SEARCH_FOLDERS), (options & 2) != 0);
            EXPECT_EQ(Dialog().IsItemChecked(IDC_SEARCH_MEMOS), (options & 4) != 0);
            const platform::Rect place = Dialog().WindowRect();
            EXPECT_TRUE(place.right == 240 && place.bottom == 320 && place.Width() > 100 &&
                        place.Height() < 200);
        };
        RunManager(L"", {Shortcut(L'F'), ExpectFocus(IDC_SEARCH_TEXT), expectOptions, Press(kIdCancel)});
        EXPECT_EQ(device.NumberSetting(L"SearchOpt"), kept);
    }
    EXPECT_FALSE(device.HasSetting(L"SearchLastText")) << "an empty text is not stored";
    RunManager(L"", {Shortcut(L'F'), TypeInto(IDC_SEARCH_TEXT, L"ann"), Press(IDC_SEARCH_FOLDERS),
                     Press(kIdCancel), Shortcut(L'F'), TypeInto(IDC_SEARCH_TEXT, L""), Press(kIdCancel),
                     Shortcut(L'F'), ExpectItem(IDC_SEARCH_TEXT, L"ann"), Press(kIdCancel)});
    EXPECT_EQ(device.NumberSetting(L"SearchOpt"), 1u);
}

// Pressed, closed and lied to from within the memo that is being read. A cancelled search tells nothing.
TEST_F(Find, CancelOnlyAsksAndClosingWaits) {
    device.SetSetting(L"SearchOpt", 4);
    for (const int command : {kIdCancel, kIdOk}) {
        int reads = 0;
        device.files.fault = [this, command, &reads](platform::host::FileCall call, const std::wstring&) {
            if (call != FileCall::Read || reads++ != 0) return platform::FileError::None;
            Desk().PrivateMessage(static_cast<uint32_t>(search::WalkCode::Done));
            Desk().PrivateMessage(static_cast<uint32_t>(search::WalkCode::RelativePath), 12345);
            for (const int id : kControls) EXPECT_FALSE(IsItemEnabled(id)) << "the worker still runs";
            for (const int id : {IDC_FIND_FIRST, IDC_FIND_NEXT, command}) Desk().Top()->OnCommand(id);
            return platform::FileError::None;
        };
        Play({Shortcut(L'F'), TypeInto(IDC_SEARCH_TEXT, L"nowhere"), Press(IDC_FIND_FIRST)});
        if (command == kIdCancel) Play({ExpectFound(L"Work  (2 found) "), Press(kIdCancel)});
        RunManager(L"", {});
        device.files.fault = nullptr;
        EXPECT_EQ(reads, 1);
    }
}

class Memo : public DeskSteps {
  protected:
    bool Finds(const std::string& text, const std::string& memo) {
        device.files.Put(L"\\m.txt", memo);
        return search::MemoSearch(text).LookIn(L"\\m.txt", cancelled_) == search::MemoResult::Found;
    }
    std::atomic<bool> cancelled_{false};
};

TEST_F(Memo, CapitalsAndSmallLetters) {
    EXPECT_TRUE(Finds("abc", "xx ABC") && Finds("ABC", "xx abc") && Finds("1b", "a1B"));
    EXPECT_FALSE(Finds("abc", "axc abx xbc"));
    EXPECT_FALSE(Finds("abc", "ABC and later abd")) << "capitals count only where no small letter is left";
    EXPECT_TRUE(Finds("abc", "ABC" + std::string(1024, '.') + "abd")) << "in this window";
    EXPECT_TRUE(Finds("az", "x AZ") && Finds("za", "x ZA"));
    EXPECT_FALSE(Finds("\xE9t", "\xC9T")) << "only A to Z fold";
    EXPECT_TRUE(Finds("\xE9t", "\xE9T"));
}

// What stands before a short text begins like it.
TEST_F(Memo, EveryPlaceAroundTheEdgesOfReads) {
    for (const std::string& text : {std::string("r"), std::string("qqr"), std::string(1500, 'q') + "r"}) {
        for (const unsigned at :
             {0u, 1u, 1020u, 1021u, 1022u, 1023u, 1024u, 1025u, 2047u, 65533u, 65534u, 65536u, 66560u}) {
            const std::string before(at, text.size() < 1024 ? 'q' : '.');
            EXPECT_TRUE(Finds(text, before + text)) << at;
            EXPECT_TRUE(Finds(text, before + text + "..")) << at;
            EXPECT_FALSE(Finds(text, before + text.substr(0, text.size() - 1))) << at;
        }
    }
}

TEST_F(Memo, HoldsNothingWhereItCannotBeRead) {
    EXPECT_FALSE(Finds("a", std::string(200000, '.')));
    EXPECT_TRUE(Finds("a", "a"));
    EXPECT_FALSE(Finds("", "text"));
    EXPECT_NE(search::MemoSearch("a").LookIn(L"\\none.txt", cancelled_), search::MemoResult::Found);
    cancelled_ = true;
    EXPECT_FALSE(Finds("a", "a"));
    cancelled_ = false;
    Fail({FileCall::Read})();
    EXPECT_FALSE(Finds("a", "a"));
}

}  // namespace
