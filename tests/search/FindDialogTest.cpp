// The dialog over the real manager, on a device in memory.
#include "app/store/Settings.h"
#include "search/FindDialog.h"
#include "tests/manager/ManagerRig.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::kRoot;

constexpr wchar_t kFinished[] = L"Finished searching for files/folders.";

class Find : public testing_support::ManagerTest {
  protected:
    void TearDown() override {}
    Find() {
        device.files.Nodes().clear();
        device.files.PutFolder(L"\\My Documents");
        PutNote(L"Home\\Garden.ikw");
        PutNote(L"Work\\Meeting.ikw");
        PutNote(L"Work\\Plan.ikw");
        PutNote(L"Reminders\\2007-03-08\\Call.ikw");
        PutMemo(L"Work\\Plan.txt", "Ring Ann about the garden");
    }
    void PutMemo(const std::wstring& below, const std::string& text) {
        device.files.Put(kRoot + below, text);
    }
    platform::Dialog& Dialog() { return dynamic_cast<platform::Dialog&>(*Desk().Top()); }
    void ThenOpen() {
        Then([this] { Desk().PressShortcut(L'F'); });
    }
    void ThenPress(int button) {
        Then([this, button] { Desk().Command(button); });
    }
    void ThenFind(const std::wstring& text, int button = IDC_FIND_FIRST) {
        Then([this, text, button] {
            Desk().Type(IDC_SEARCH_TEXT, text);
            Desk().Command(button);
        });
    }
    void ThenExpectSelected(const std::wstring& text) {
        Then([this, text] {
            ExpectSelected(text)();
            EXPECT_TRUE(Dialog().IsItemEnabled(IDC_FIND_NEXT)) << "the search has ended";
        });
    }
    std::vector<std::wstring> Messages() {
        std::vector<std::wstring> texts;
        for (const auto& message : Desk().messages) {
            EXPECT_EQ(message.caption, L" Inkwright");
            EXPECT_EQ(message.icon, platform::MessageIcon::Question);
            texts.push_back(message.text);
        }
        return texts;
    }
    void RunFind() {
        ThenPress(platform::kIdCancel);
        RunManager(L"", {});
    }
};

TEST_F(Find, OneMatchAfterAnotherUntilTheEnd) {
    device.SetSetting(L"SearchOpt", 7);
    ThenOpen();
    ThenFind(L"garden");
    ThenExpectSelected(L"Garden");
    ThenPress(IDC_FIND_NEXT);
    ThenExpectSelected(L"Plan");
    ThenPress(IDC_FIND_NEXT);
    Then([this] { EXPECT_THAT(Messages(), ElementsAre(kFinished)); });
    ThenFind(L"call", IDC_FIND_NEXT);
    ThenExpectSelected(L"Call");
    RunFind();
}

TEST_F(Find, OptionsAndTextAreKept) {
    const struct {
        uint32_t stored;
        uint32_t kept;
    } kCases[] = {{0, 1}, {1, 1}, {2, 2}, {4, 4}, {6, 6}, {7, 7}, {0xF8, 1}, {0x102, 2}};
    for (const auto& c : kCases) {
        device.SetSetting(L"SearchOpt", c.stored);
        ThenOpen();
        Then([this, &c] {
            EXPECT_EQ(Dialog().IsItemChecked(IDC_SEARCH_NOTES), (c.kept & 1) != 0);
            EXPECT_EQ(Dialog().IsItemChecked(IDC_SEARCH_FOLDERS), (c.kept & 2) != 0);
            EXPECT_EQ(Dialog().IsItemChecked(IDC_SEARCH_MEMOS), (c.kept & 4) != 0);
        });
        RunFind();
        EXPECT_EQ(device.NumberSetting(L"SearchOpt"), c.kept);
    }
    EXPECT_FALSE(device.HasSetting(L"SearchLastText")) << "an empty text is not stored";
    ThenOpen();
    Then([this] {
        Desk().Type(IDC_SEARCH_TEXT, L"ann");
        Desk().Command(IDC_SEARCH_NOTES);
        Desk().Command(IDC_SEARCH_FOLDERS);
        EXPECT_EQ(Dialog().WindowRect().right, Desk().screen.width);
        EXPECT_EQ(Dialog().WindowRect().bottom, Desk().screen.height);
    });
    RunFind();
    ThenOpen();
    Then([this] {
        EXPECT_EQ(Dialog().ItemText(IDC_SEARCH_TEXT), L"ann");
        Desk().Type(IDC_SEARCH_TEXT, L"");
    });
    RunFind();
    EXPECT_EQ(device.NumberSetting(L"SearchOpt"), 1u);
    EXPECT_EQ(store::Settings::Text(store::SettingId::SearchLastText), L"ann")
        << "the last one that was a text";
}

TEST_F(Find, WithoutATextOrAThreadNothingStarts) {
    ThenOpen();
    ThenPress(IDC_FIND_FIRST);
    Then([this] {
        EXPECT_THAT(Messages(), ElementsAre(L"Please enter some text to search for."));
        EXPECT_TRUE(Dialog().IsItemEnabled(IDC_FIND_FIRST));
        Desk().workersFail = true;
        Desk().Type(IDC_SEARCH_TEXT, L"garden");
        Desk().Command(IDC_FIND_FIRST);
        EXPECT_EQ(Desk().outOfMemoryBoxes, 1);
        EXPECT_TRUE(Dialog().IsItemEnabled(IDC_SEARCH_TEXT));
    });
    RunFind();
    EXPECT_EQ(Desk().messages.size(), 1u);
}

// Pressed, closed and lied to from within the memo that is being read.
TEST_F(Find, CancelOnlyAsksAndClosingWaits) {
    for (const int command : {platform::kIdCancel, platform::kIdOk}) {
        device.SetSetting(L"SearchOpt", 4);
        int reads = 0;
        ThenOpen();
        Then([this, command, &reads] {
            device.files.fault = [this, command, &reads](platform::host::FileCall call, const std::wstring&) {
                if (call != platform::host::FileCall::Read || reads++ != 0) return platform::FileError::None;
                EXPECT_FALSE(Dialog().IsItemEnabled(IDC_FIND_FIRST));
                Desk().PrivateMessage(100);
                Desk().PrivateMessage(115, 12345);
                EXPECT_FALSE(Dialog().IsItemEnabled(IDC_FIND_FIRST)) << "the worker still runs";
                Desk().Top()->OnCommand(IDC_FIND_FIRST);
                Desk().Top()->OnCommand(command);
                return platform::FileError::None;
            };
            Desk().Type(IDC_SEARCH_TEXT, L"nowhere");
            Desk().Command(IDC_FIND_FIRST);
        });
        if (command == platform::kIdCancel) ThenExpectSelected(L"Work  (2 found) ");
        if (command == platform::kIdCancel) ThenPress(platform::kIdCancel);
        RunManager(L"", {});
        device.files.fault = nullptr;
        EXPECT_EQ(reads, 1);
        EXPECT_THAT(Messages(), IsEmpty()) << "a cancelled search tells nothing";
    }
}

TEST_F(Find, IsNotThereInTheCalendar) {
    Then([this] {
        EXPECT_TRUE(Tools().IsEnabled(IDM_FIND));
        Desk().Command(IDM_CALENDAR);
        EXPECT_FALSE(Tools().IsEnabled(IDM_FIND));
        Desk().Top()->OnCommand(IDM_FIND);
    });
    RunManager(L"", {});
}

}  // namespace
