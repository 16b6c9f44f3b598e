// What is restored after the program's end, where, and what the user is asked. Days of use: see DaysTest.cpp.
#include "ink/Blocks.h"
#include "res/resource.h"
#include "tests/app/Life.h"

namespace {

using namespace testing_support;

// The files of the folder "Work": notes by their strokes, memos by their texts.
std::string Work(platform::host::HostDevice& device) {
    std::string text;
    for (const auto& [key, node] : device.files.Nodes()) {
        if (key.find(L"\\WORK\\") == std::wstring::npos) continue;
        const size_t strokes = node->bytes.size() < 20 ? 0 : static_cast<size_t>(node->bytes[16]);
        const bool isNote = node->name.back() == L'w';
        text += std::string(node->name.begin(), node->name.end()) + "=" +
                (isNote ? std::to_string(strokes) : node->bytes) + " ";
    }
    return text;
}

// A stroke and a memo come back over the note, beside it, or not at all; nothing is asked twice.
TEST(Reliability, WhatIsRestoredWhere) {
    using platform::MessageAnswer;
    using Device = platform::host::HostDevice;
    const std::wstring note = kStore + L"Work\\a.ikw";
    const auto nothing = [](Device&) {};
    const auto otherNote = [&](Device& device) { device.files.Put(note, Words({5, 0, 0, 268})); };
    const auto otherMemo = [](Device& device) {
        ++device.files.Nodes()[device.files.KeyOf(kStore + L"Work\\a.txt")]->lastWrite.milliseconds;
    };
    const auto noNote = [&](Device& device) { device.files.Nodes().erase(device.files.KeyOf(note)); };
    const auto otherDevice = [](Device& device) { device.folder = L"X"; };
    const std::vector<MessageAnswer> yes{MessageAnswer::Yes, MessageAnswer::Ok};
    const struct {
        std::function<void(Device&)> meanwhile;
        std::vector<MessageAnswer> answers;
        const char* left;
        int questions;  // at the next two starts
    } kCases[] = {{nothing, yes, "a.ikw=2 a.txt=tea ", 1},
                  {otherNote, yes, "a (restored).ikw=2 a (restored).txt=tea a.ikw=0 a.txt=jam ", 1},
                  {noNote, yes, "a (restored).ikw=2 a (restored).txt=tea a.txt=jam ", 1},
                  {otherMemo, yes, "a (restored).ikw=2 a (restored).txt=tea a.ikw=2 a.txt=jam ", 1},
                  {nothing, {MessageAnswer::No, MessageAnswer::Yes}, "a.ikw=1 a.txt=jam ", 1},
                  {nothing, {MessageAnswer::No, MessageAnswer::No}, "a.ikw=1 a.txt=jam ", 2},
                  {otherDevice, {}, "a.ikw=1 a.txt=jam ", 0}};
    for (const auto& c : kCases) {
        SCOPED_TRACE(&c - kCases);
        Life life;
        life.device.files.Put(note, NoteWith(0));
        life.device.files.Put(kStore + L"Work\\a.txt", "jam");
        life.Live(note, {life.Stroke(1), life.Press(IDM_TEXT_MEMO), life.TypeInto(IDC_MEMO_TEXT, L"tea"),
                         life.Wait(), [&] { life.MeetTrouble(1); }});
        Life next(life);
        c.meanwhile(next.device);
        next.device.desk.answers.assign(c.answers.begin(), c.answers.end());
        int questions = 0;
        const auto start = [&questions](Life& each) {
            each.Live(L"", {});
            for (const auto& box : each.device.desk.messages)
                questions +=
                    box.text.find(L"before these notes were saved:\n\na, 2 strokes, ") != std::wstring::npos;
        };
        start(next);
        EXPECT_EQ(Work(next.device), c.left);
        Life after(next);
        after.device.folder = next.device.folder;
        start(after);
        EXPECT_EQ(questions, c.questions);
    }
}

TEST(Reliability, ANewNoteThatWasEmptiedAgainIsNone) {
    Life life;
    life.Live(kStore + L"New Notes\\", {life.Stroke(0), life.Shortcut(L'Z'), [&] { life.MeetTrouble(1); }});
    Life next(life);
    next.Live(L"", {});
    EXPECT_TRUE(next.device.desk.messages.empty() &&
                next.device.files.NamesIn(kStore + L"New Notes").empty());
}

TEST(Reliability, AJournalOfAnotherVersionIsNamedAndLeftAlone) {
    Life life;
    ink::BlockPacker head(16);
    head.Text(L"Inkwright journal");
    head.Number(2);
    const ink::BlockBytes bytes = head.Finish();
    const std::wstring journal = kStore + L"Temp\\unsaved 1.ikj";
    life.device.files.Put(journal, std::string(bytes.begin(), bytes.end()));
    life.Live(L"", {});
    ASSERT_EQ(life.device.desk.messages.size(), 1u);
    EXPECT_NE(life.device.desk.messages[0].text.find(journal), std::wstring::npos);
    EXPECT_TRUE(life.device.files.Has(journal));
}

// Nobody is asked, nothing waits for the next start.
TEST(Reliability, TheSessionsEndSavesWhatIsOpen) {
    const std::wstring work = kStore + L"Work\\";
    for (const std::wstring& opened : {kStore + L"New Notes\\", work + L"a.ikw"}) {
        Life life;
        life.device.files.Put(work + L"a.ikw", Words({5, 0xFFFFFF, 0, 268}));
        life.Live(opened,
                  {life.Stroke(0), life.Press(IDM_TEXT_MEMO), life.TypeInto(IDC_MEMO_TEXT, L"tea"), [&] {
                       life.device.desk.EndSession();
                       const std::wstring saved =
                           opened.back() == L'\\' ? opened + L"New Notes 2007-03-05.ikw" : opened;
                       EXPECT_NE(life.device.files.Get(saved).size(), 16u);
                       EXPECT_EQ(life.device.files.Get(saved.substr(0, saved.size() - 3) + L"txt"), "tea");
                   }});
        Life next(life);
        next.Live(L"", {});
        EXPECT_TRUE(life.device.desk.messages.empty() && next.device.desk.messages.empty());
    }
}

}  // namespace
