#include "options/memo/TextMemoDialog.h"
#include "res/resource.h"
#include "tests/support/DeskSteps.h"

namespace {

using options::TextMemoDialog;
using platform::MessageAnswer;
using platform::Rect;
using namespace testing_support;

constexpr wchar_t kMemo[] = L"\\Ink\\a.txt";

class TextMemo : public DeskSteps {
  protected:
    TextMemo() { device.files.PutFolder(L"\\Ink"); }
    void Put(const char* stored) {
        device.files.Nodes().erase(device.files.KeyOf(kMemo));
        if (stored != nullptr) device.files.Put(kMemo, stored);
    }
    Step ExpectStored(const char* stored) {
        return [=] {
            EXPECT_EQ(device.files.Has(kMemo) ? device.files.Get(kMemo) : "none", stored ? stored : "none");
        };
    }
    Step Type(const std::wstring& text) { return TypeInto(IDC_MEMO_TEXT, text); }
    Step Save() { return Press(IDC_MEMO_SAVE); }
    Step Cancel() { return Press(IDC_MEMO_CANCEL); }
    Step ExpectLosing(MessageAnswer answer, const wchar_t* caption = L"Confirm Text Memo Save") {
        return ExpectBox(L"Contents will permanently be lost! Continue?", caption, answer);
    }
    bool Run(const Script& script, std::wstring* memo = nullptr) {
        using Mode = TextMemoDialog::Mode;
        Play(script);
        platform::Screen owner(platform::Screen::ScrollBar::None);
        owner.SetTitle(L"a - Inkwright");
        store::NoteJournal journal;
        TextMemoDialog dialog(memo ? Mode::Text : Mode::File, memo ? *memo : kMemo, journal);
        const bool isSaved = dialog.Edit(owner);
        if (memo) *memo = dialog.Memo();
        EXPECT_FALSE(Desk().StepWaiting());
        return isSaved;
    }
};

TEST_F(TextMemo, EveryTextComesBackAsItWas) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
    const struct {
        std::string stored;
        std::wstring appended;
        std::string saved;
    } kCases[] = {{all + std::string(100000, 'x'), L"", all + std::string(100000, 'x')},
                  {"lone\rand\nmixed\r\n", L"\u20AC\u4E2D!", "lone\rand\nmixed\r\n\x80?!"},
                  {std::string("shown\0not shown", 15), L" +", std::string("shown +\0not shown", 17)}};
    for (const auto& c : kCases) {
        device.files.Put(kMemo, c.stored);
        EXPECT_TRUE(Run(
            {[&] { Desk().Type(IDC_MEMO_TEXT, Dialog().ItemText(IDC_MEMO_TEXT) + c.appended); }, Save()}));
        EXPECT_EQ(device.files.Get(kMemo), c.saved);
    }
    EXPECT_EQ(Desk().waitCursors, 2 * 3);
}

// The memo is the old or the new one but never a part. What can't be read is replaced only after a question,
// and not at all while others hold it; one that was taken away stays away.
TEST_F(TextMemo, WhatTheButtonsAndFailuresLeave) {
    const Step tea = Type(L"tea");
    const Step yes = ExpectLosing(MessageAnswer::Yes);
    const Step no = ExpectLosing(MessageAnswer::No);
    const Step deleting = ExpectLosing(MessageAnswer::Yes, L"Confirm Text Memo Delete");
    const Step reading = ExpectBox(L"Reading Text Memo Failed!", L"Error");
    const Step failed = ExpectBox(
        L"Saving Text Memo Failed! Please make sure that the selected storage device has enough free space.",
        L"Error");
    const Step stays = ExpectBox(L"Deleting Text Memo Failed!", L"Error");
    const Step endSession = [this] { Desk().EndSession(); };
    const auto failOnce = [this](FileCall call) { return Fail({call}, 1); };
    const struct {
        const char* stored;
        const char* left;
        bool isSaved;
        Script before, script;
    } kCases[] = {
        {nullptr, "tea", true, {}, {tea, Save()}},
        {nullptr, nullptr, true, {}, {Save()}},
        {"jam", nullptr, true, {}, {Type(L""), Save()}},
        {"jam", "jam", false, {failOnce(FileCall::Erase)}, {Type(L""), stays, Save(), Cancel()}},
        {"jam", "tea", true, {}, {tea, TakeOver()}},
        {"jam", "jam", false, {}, {tea, Cancel()}},
        {"jam", "jam", false, {failOnce(FileCall::Open)}, {tea, no, Save(), Cancel()}},
        {"jam", "tea", true, {failOnce(FileCall::Open)}, {tea, yes, Save()}},
        {"jam", "tea", true, {}, {tea, endSession}},
        {"jam", "jam", true, {failOnce(FileCall::Open)}, {tea, endSession}},
        {"", "tea", true, {failOnce(FileCall::Open)}, {tea, Save()}},
        {"jam", "jam", false, {reading, failOnce(FileCall::Read)}, {tea, no, Save(), Cancel()}},
        {"jam", "jam", false, {Fail({FileCall::Open, FileCall::Create})}, {tea, failed, Save(), Cancel()}},
        {"jam", "jam", false, {failOnce(FileCall::Write)}, {tea, failed, Save(), Cancel()}},
    };
    for (const auto& c : kCases) {
        device.files.fault = nullptr;
        Put(c.stored);
        for (const Step& step : c.before) step();
        EXPECT_EQ(Run(c.script), c.isSaved);
        ExpectStored(c.left)();
    }
    std::wstring memo = L"kept by the page";
    const Step erase = Write({{200, 10}});
    EXPECT_TRUE(
        Run({ExpectItem(IDC_MEMO_TEXT, memo), deleting, erase, ExpectItem(IDC_MEMO_TEXT, L""), tea, Save()},
            &memo));
    EXPECT_EQ(memo, L"tea");
}

TEST_F(TextMemo, HowItLooks) {
    Run({ExpectTitle(L"a - Inkwright"), ExpectText(L"Text Memo"), ExpectFocus(IDC_MEMO_TEXT),
         [this] {
             auto& items = Dialog().Handle()->items;
             EXPECT_EQ(Dialog().WindowRect(), (Rect{15, 52, 225, 222}));
             EXPECT_EQ(items[IDC_MEMO_TEXT].source.place, (Rect{6, 26, 204, 141}));
             EXPECT_EQ(items[IDC_MEMO_SAVE].source.place, (Rect{100, 145, 150, 165}));
             EXPECT_EQ(Hash(ShownPixels()), 434964457u);
         },
         Cancel()});
    device.picturesLeft = 2;  // none for what lies around the controls
    EXPECT_TRUE(Run({Type(L"tea"), Save()}));
}

TEST_F(TextMemo, WordWrapIsStoredAtOnceAndKeepsTheText) {
    const auto expectWrap = [this](bool wraps) {
        return [=] {
            EXPECT_EQ(Dialog().Handle()->items[IDC_MEMO_TEXT].wordWrap, wraps);
            EXPECT_EQ(Dialog().IsItemChecked(IDC_WORD_WRAP), wraps);
        };
    };
    const Step toggle = Press(IDC_WORD_WRAP);
    Run({expectWrap(false), Type(L"a\r\nb"), [this] { Dialog().FocusItem(0); }, toggle,
         ExpectFocus(IDC_MEMO_TEXT), expectWrap(true), ExpectItem(IDC_MEMO_TEXT, L"a\r\nb"), Cancel()});
    EXPECT_EQ(device.Settings()[L"TextMemoWordWrap"].type, platform::RegistryType::Binary);
    EXPECT_EQ(Desk().waitCursors, 2) << "reading and wrapping";
    Run({expectWrap(true), toggle, expectWrap(false), Cancel()});
    EXPECT_EQ(device.NumberSetting(L"TextMemoWordWrap"), 0u);
    shortages_ = 2;
    Run({Type(L"tea"), [this] { Desk().textEditsFail = true; }, toggle, expectWrap(false),
         ExpectItem(IDC_MEMO_TEXT, L"tea"), Cancel()});
    EXPECT_EQ(device.NumberSetting(L"TextMemoWordWrap"), 0u);
    EXPECT_FALSE(Run({})) << "it does not open";
}

TEST_F(TextMemo, TheStripDragsAndTheSquareDeletes) {
    const auto expectAt = [this](int left, int top, bool hasPen) {
        return [=] {
            EXPECT_EQ(Dialog().WindowRect(), (Rect{left, top, left + 210, top + 170}));
            EXPECT_EQ(Dialog().HasPen(), hasPen);
        };
    };
    Run({Down({10, 10}), Move({17, 4}), Move({10, 10}), expectAt(22, 46, true), Up({200, 10}), Move({90, 90}),
         expectAt(22, 46, false), Cancel()});
    Run({Down({189, 20}), Move({190, 22}), expectAt(16, 54, true), TakePenAway(), Down({10, 21}),
         Move({30, 60}), expectAt(16, 54, false), Cancel()});
    const wchar_t* caption = L"Confirm Text Memo Delete";
    Put("jam");
    Run({Write({{190, 10}}), Write({{200, 0}}), Write({{200, 20}}), ExpectLosing(MessageAnswer::No, caption),
         Write({{200, 10}}), ExpectItem(IDC_MEMO_TEXT, L"jam"), ExpectLosing(MessageAnswer::Yes, caption),
         Write({{191, 1}}), ExpectItem(IDC_MEMO_TEXT, L""), ExpectStored(nullptr), Cancel()});
}

TEST_F(TextMemo, TheClipboardMenu) {
    const auto hold = [this](const std::wstring& entry) {
        return [=] {
            hand.ChooseEntries({entry});
            Desk().Hold(IDC_MEMO_TEXT, {60, 70});
        };
    };
    Script script{
        hold(L""),
        ExpectMenu({L"(Undo)", L"-", L"(Cut)", L"(Copy)", L"(Paste)", L"(Delete)", L"-", L"(Select All)"}),
        Type(L"one two")};
    for (const wchar_t* entry : {L"Select All", L"Cut", L"Paste", L"Paste", L"Undo", L"Select All", L"Delete",
                                 L"Undo", L"Select All", L"Copy", L""})
        script.push_back(hold(entry));
    Run(All({script,
             {ExpectMenu({L"Undo", L"-", L"Cut", L"Copy", L"Paste", L"Delete", L"-", L"Select All"}),
              ExpectItem(IDC_MEMO_TEXT, L"one two"), Cancel()}}));
    EXPECT_EQ(Desk().menuPlace, (Point{60, 70}));
}

}  // namespace
