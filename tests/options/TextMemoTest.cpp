#include "options/memo/TextMemoDialog.h"
#include "platform/host/HostWindow.h"
#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace {

using options::TextMemoDialog;
using platform::FileError;
using platform::MessageAnswer;
using platform::Rect;
using platform::host::FileCall;
using testing::ElementsAre;

constexpr wchar_t kMemo[] = L"\\Ink\\a.txt";
const std::wstring kLosing = L"Confirm Text Memo Delete|Contents will permanently be lost! Continue?";
const std::wstring kReplacing = L"Confirm Text Memo Save|Contents will permanently be lost! Continue?";
const std::wstring kReading = L"Error|Reading Text Memo Failed!";
const std::wstring kSaving =
    L"Error|Saving Text Memo Failed! Please make sure that the selected storage device has enough free "
    L"space.";

class TextMemo : public testing_support::DeskTest {
  protected:
    TextMemo() { device.files.PutFolder(L"\\Ink"); }
    platform::Dialog& Shown() { return dynamic_cast<platform::Dialog&>(*Desk().Top()); }
    std::wstring Text() { return Shown().ItemText(IDC_MEMO_TEXT); }
    platform::HostItem& EditItem() { return Desk().Top()->Handle()->items[IDC_MEMO_TEXT]; }
    void ThenType(const std::wstring& text) {
        Then([this, text] { Desk().Type(IDC_MEMO_TEXT, text); });
    }
    void ThenPress(int button) {
        Then([this, button] { Desk().Command(button); });
    }
    bool RunDialog(TextMemoDialog::Mode mode = TextMemoDialog::Mode::File, std::wstring* memo = nullptr) {
        platform::Screen owner(platform::Screen::ScrollBar::None);
        owner.SetTitle(L"a - Inkwright");
        TextMemoDialog dialog(mode, memo != nullptr ? *memo : kMemo);
        const bool isSaved = dialog.Edit(owner);
        if (memo != nullptr) *memo = dialog.Memo();
        EXPECT_FALSE(Desk().StepWaiting());
        return isSaved;
    }
    // Caption and text of the boxes shown since the last time.
    std::vector<std::wstring> Told() {
        std::vector<std::wstring> told;
        for (const auto& message : Desk().messages) told.push_back(message.caption + L"|" + message.text);
        Desk().messages.clear();
        return told;
    }
};

TEST_F(TextMemo, EveryTextComesBackAsItWas) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
    const struct {
        std::string stored;
        std::wstring appended;
        std::string saved;
    } kCases[] = {
        {all, L"", all},
        {all + std::string(100000, 'x'), L"\r\n", all + std::string(100000, 'x') + "\r\n"},
        {"lone\rand\nmixed\r\n", L"\u20AC\u4E2D!", "lone\rand\nmixed\r\n\x80?!"},
        {std::string("shown\0not shown", 15), L" +", std::string("shown +\0not shown", 17)},
    };
    for (const auto& c : kCases) {
        device.files.Put(kMemo, c.stored);
        Then([this, &c] { Desk().Type(IDC_MEMO_TEXT, Text() + c.appended); });
        ThenPress(IDC_MEMO_SAVE);
        EXPECT_TRUE(RunDialog());
        EXPECT_EQ(device.files.Get(kMemo), c.saved);
    }
    EXPECT_EQ(Desk().waitCursors, 2 * 4);
}

TEST_F(TextMemo, WhatTheButtonsDoToTheFile) {
    const struct {
        const char* stored;  // null for none
        std::wstring typed;
        int button;
        bool isSaved;
        const char* left;
    } kCases[] = {
        {nullptr, L"tea", IDC_MEMO_SAVE, true, "tea"},  {nullptr, L"", IDC_MEMO_SAVE, true, nullptr},
        {"jam", L"", IDC_MEMO_SAVE, true, nullptr},     {"jam", L"tea", platform::kIdOk, true, "tea"},
        {"jam", L"tea", IDC_MEMO_CANCEL, false, "jam"}, {"jam", L"", platform::kIdCancel, false, "jam"},
    };
    for (const auto& c : kCases) {
        device.files.Nodes().erase(L"\\INK\\A.TXT");
        if (c.stored != nullptr) device.files.Put(kMemo, c.stored);
        ThenType(c.typed);
        ThenPress(c.button);
        EXPECT_EQ(RunDialog(), c.isSaved);
        EXPECT_EQ(device.files.Has(kMemo), c.left != nullptr);
        if (c.left != nullptr) {
            EXPECT_EQ(device.files.Get(kMemo), c.left);
        }
    }
    std::wstring memo = L"kept by the page";
    ThenType(L"tea");
    ThenPress(IDC_MEMO_SAVE);
    EXPECT_TRUE(RunDialog(TextMemoDialog::Mode::Text, &memo));
    EXPECT_EQ(memo, L"tea");
    EXPECT_THAT(Told(), testing::IsEmpty());
}

// Each file call fails in turn: what is told, and that the memo is the old or the new one but never a part.
TEST_F(TextMemo, AFailureOfAnyCallLosesNothing) {
    const struct {
        FileCall call;
        std::wstring typed;
        MessageAnswer answer;
        std::vector<std::wstring> told;
        const char* left;
    } kCases[] = {
        {FileCall::Open, L"new", MessageAnswer::No, {kReplacing}, "the old memo"},
        {FileCall::Open, L"", MessageAnswer::No, {kReplacing}, "the old memo"},
        {FileCall::Open, L"new", MessageAnswer::Yes, {kReplacing}, "new"},
        {FileCall::Read, L"new", MessageAnswer::No, {kReading, kReplacing}, "the old memo"},
        {FileCall::Create, L"new", MessageAnswer::Yes, {kSaving}, "the old memo"},
        {FileCall::Write, L"new", MessageAnswer::Yes, {kSaving}, "the old memo"},
    };
    for (const auto& c : kCases) {
        device.files.Put(kMemo, "the old memo");
        Desk().answers = {c.answer};
        int failures = 1;
        device.files.fault = [&](FileCall call, const std::wstring&) {
            return call == c.call && failures-- > 0 ? FileError::Other : FileError::None;
        };
        ThenType(c.typed);
        ThenPress(IDC_MEMO_SAVE);
        const bool stays = c.left != std::string("new");
        if (stays) ThenPress(IDC_MEMO_CANCEL);
        EXPECT_EQ(RunDialog(), !stays) << "it stays open with its text";
        EXPECT_EQ(Told(), c.told);
        EXPECT_EQ(device.files.Get(kMemo), c.left);
    }
    device.files.fault = nullptr;
    device.files.Nodes().erase(L"\\INK\\A.TXT");
    device.files.capacity = device.files.UsedBytes() + 2;
    ThenType(L"tea");
    ThenPress(IDC_MEMO_SAVE);
    ThenPress(IDC_MEMO_CANCEL);
    EXPECT_FALSE(RunDialog());
    EXPECT_FALSE(device.files.Has(kMemo)) << "half a memo is none";
}

// One that was taken away stays away, whatever becomes of the text typed instead; one that others hold is
// told of before anybody is asked whether it may go.
TEST_F(TextMemo, WhatASaveThatFailsLeaves) {
    device.files.Put(kMemo, "the old memo");
    Desk().answers = {MessageAnswer::Yes};
    Then([this] {
        Desk().Stroke({{200, 10}});
        Desk().Type(IDC_MEMO_TEXT, L"new");
        device.files.fault = [](FileCall call, const std::wstring&) {
            return call == FileCall::Write ? FileError::Other : FileError::None;
        };
    });
    ThenPress(IDC_MEMO_SAVE);
    ThenPress(IDC_MEMO_CANCEL);
    RunDialog();
    EXPECT_THAT(Told(), ElementsAre(kLosing, kSaving));
    EXPECT_FALSE(device.files.Has(kMemo));

    for (const char* held : {"the old memo", ""}) {
        device.files.Put(kMemo, held);
        device.files.fault = [](FileCall call, const std::wstring&) {
            return call == FileCall::Open || call == FileCall::Create ? FileError::Other : FileError::None;
        };
        ThenType(L"new");
        ThenPress(IDC_MEMO_SAVE);
        Then([this, held] {
            EXPECT_THAT(Told(), ElementsAre(kSaving));
            EXPECT_EQ(device.files.Get(kMemo), held);
            device.files.fault = nullptr;
            if (*held != '\0') Desk().answers = {MessageAnswer::Yes};
            Desk().Command(IDC_MEMO_SAVE);
        });
        EXPECT_TRUE(RunDialog());
        EXPECT_EQ(Told().size(), *held != '\0' ? 1u : 0u) << "an empty file loses nothing";
        EXPECT_EQ(device.files.Get(kMemo), "new");
    }
}

TEST_F(TextMemo, WordWrapIsStoredAtOnceAndKeepsTheText) {
    Then([this] {
        EXPECT_EQ(Shown().Title(), L"a - Inkwright");
        EXPECT_TRUE((Shown().WindowRect() == Rect{15, 52, 225, 222}));
        EXPECT_TRUE((EditItem().source.place == Rect{6, 26, 204, 141}));
        EXPECT_FALSE(Shown().IsItemChecked(IDC_WORD_WRAP) || EditItem().wordWrap);
        Desk().Type(IDC_MEMO_TEXT, L"a\r\nb");
        Desk().Command(IDC_WORD_WRAP);
        EXPECT_TRUE(EditItem().wordWrap);
        EXPECT_EQ(Text(), L"a\r\nb");
        EXPECT_EQ(Desk().Top()->Handle()->focusedItem, IDC_MEMO_TEXT);
        EXPECT_EQ(device.Settings()[L"TextMemoWordWrap"].data, std::string("\1\0\0\0", 4));
        EXPECT_EQ(device.Settings()[L"TextMemoWordWrap"].type, platform::RegistryType::Binary);
    });
    ThenPress(IDC_MEMO_CANCEL);
    EXPECT_FALSE(RunDialog());
    Then([this] {
        EXPECT_TRUE(Shown().IsItemChecked(IDC_WORD_WRAP) && EditItem().wordWrap);
        Desk().Command(IDC_WORD_WRAP);
        EXPECT_EQ(device.NumberSetting(L"TextMemoWordWrap"), 0u);
    });
    ThenPress(IDC_MEMO_CANCEL);
    RunDialog();
}

TEST_F(TextMemo, TheStripDragsAndTheSquareDeletes) {
    device.files.Put(kMemo, "jam");
    Desk().answers = {MessageAnswer::No, MessageAnswer::Yes};
    Then([this] {
        const struct {
            platform::Point from;
            platform::Point to;
            Rect window;
        } kDrags[] = {{{10, 10}, {17, 4}, {22, 46, 232, 216}},
                      {{189, 20}, {190, 22}, {23, 48, 233, 218}},
                      {{190, 10}, {100, 10}, {23, 48, 233, 218}},
                      {{10, 21}, {30, 60}, {23, 48, 233, 218}}};
        for (const auto& drag : kDrags) {
            Desk().PenDown(drag.from);
            EXPECT_EQ(Desk().Top()->HasPen(), drag.from.x <= 189 && drag.from.y <= 20);
            Desk().PenMove(drag.to);
            Desk().PenUp({200, 60});
            Desk().PenMove({90, 90});
            EXPECT_TRUE((Shown().WindowRect() == drag.window));
        }
        for (const platform::Point edge : {platform::Point{190, 10}, {210, 10}, {200, 0}, {200, 20}})
            Desk().Stroke({edge});
        Desk().PenDown({20, 10});
        Desk().PenUp({200, 10});
        EXPECT_THAT(Told(), testing::IsEmpty());
        Desk().Stroke({{200, 10}});
        EXPECT_EQ(Text(), L"jam");
        EXPECT_EQ(Desk().messages[0].defaultButton, platform::DefaultButton::Second);
        Desk().Stroke({{191, 1}});
        EXPECT_THAT(Told(), ElementsAre(kLosing, kLosing));
        EXPECT_EQ(Text(), L"");
        EXPECT_FALSE(device.files.Has(kMemo));
    });
    ThenPress(IDC_MEMO_CANCEL);
    RunDialog();
}

TEST_F(TextMemo, TheClipboardMenu) {
    std::vector<std::wstring> menu;
    int choice = 0;
    Desk().chooseFromMenu = [&](const std::vector<platform::PopupMenu::Item>& items) {
        menu.clear();
        for (const auto& item : items) {
            const std::wstring entry = std::to_wstring(item.command) + L" " + item.text;
            menu.push_back(item.command == 0 ? L"-" : item.enabled ? entry : L"(" + entry + L")");
        }
        return choice;
    };
    Then([&] {
        const auto hold = [&](int command) {
            choice = command;
            Desk().Hold(IDC_MEMO_TEXT, {60, 70});
        };
        hold(0);
        EXPECT_THAT(menu, ElementsAre(L"(100 Undo)", L"-", L"(110 Cut)", L"(120 Copy)", L"(130 Paste)",
                                      L"(140 Delete)", L"-", L"(150 Select All)"));
        EXPECT_EQ(Desk().menuPlace, (platform::Point{60, 70}));
        Desk().Type(IDC_MEMO_TEXT, L"one two");
        for (const int command : {150, 110, 130, 130, 100, 150, 140, 100, 150, 120}) hold(command);
        hold(0);
        EXPECT_THAT(menu, ElementsAre(L"100 Undo", L"-", L"110 Cut", L"120 Copy", L"130 Paste", L"140 Delete",
                                      L"-", L"150 Select All"));
        EXPECT_EQ(Text(), L"one two");
    });
    ThenPress(IDC_MEMO_CANCEL);
    RunDialog();
}

}  // namespace
