// Days of use, each ended in the middle of every one of its calls: after the next start, with every question
// answered by its default, whatever stood on a page when the pen was lifted last is in a whole note.
#include <set>

#include "alarms/NoteAlarm.h"
#include "app/store/NoteFiles.h"
#include "ink/Blocks.h"
#include "ink/NoteFile.h"
#include "manager/StoreOperations.h"
#include "platform/ProgramEntry.h"
#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::FileError;
using platform::host::FileCall;
using testing_support::Script;
using testing_support::Step;

const std::wstring kStore = L"\\My Documents\\Inkwright\\";

// A program is killed: what it wrote stays. A device without power keeps what is on its disk, and of files
// that were being written a part; whoever writes has waited a second.
enum class End { Kill, PowerCut };

// A device and the person at it.
class Life : public testing_support::Steps {
  public:
    explicit Life(End end = End::Kill) : Steps(hand), hand(device), end_(end) {
        device.desk.screen = {240, 320};
    }

    // The same device at the next start.
    explicit Life(Life& before) : Life() {
        for (const auto& [key, node] : before.device.files.Nodes()) {
            auto copy = std::make_shared<platform::host::FileNode>(*node);
            copy->writer = false;
            copy->readers = 0;
            device.ticks = before.device.ticks;
            if (before.end_ == End::PowerCut) copy->bytes = platform::host::HostFileStore::BytesOnDisk(*copy);
            device.files.Nodes()[key] = std::move(copy);
        }
        device.registry = before.device.registry;
        device.notifications = before.device.notifications;
        device.desk.answers.assign(9, platform::MessageAnswer::Yes);
    }

    // From its n-th call on nothing that the program does has an effect any more.
    void EndAtCall(int nth) {
        device.files.fault = [this, nth](FileCall, const std::wstring&) {
            hasEnded = hasEnded || ++calls_ == nth;
            device.registryFails = device.notificationsFail = hasEnded;
            return hasEnded ? FileError::Other : FileError::None;
        };
    }

    // Stroke number k; from its lift on it is to stay.
    Step Stroke(int k) {
        return [this, k] {
            Steps::Write({{20 + 30 * k, 60 + 40 * k}, {35 + 30 * k, 60 + 40 * k}})();
            if (end_ == End::PowerCut) hand.PassTime(1000);
            if (!hasEnded) kept.insert(k);
        };
    }
    // What is to stay from now on.
    Step Expects(const std::function<void()>& change) {
        return [=] {
            if (!hasEnded) change();
        };
    }
    Step Shortcut(wchar_t letter) {
        return [=] {
            hand.PressShortcut(letter);
            device.desk.Settle();
        };
    }
    Step Wait() {
        return [=] { hand.PassTime(2000); };
    }
    platform::host::HostDevice device;
    testing_support::DeskHand hand;
    bool hasEnded = false;
    std::set<int> kept;
    std::wstring memo;  // that is to be somewhere

  private:
    const End end_;
    int calls_ = 0;
};

using Day = std::function<void(Life&)>;

void Live(Life& life, const std::wstring& line, const Script& script) {
    life.Play(script);
    platform::RunProgram(line);
}

// The strokes in the notes of the store, each once; every file is what it is by its name.
std::multiset<int> StrokesOf(platform::host::HostDevice& device, bool& hasMemo, const std::wstring& memo) {
    std::multiset<int> strokes;
    for (const auto& [key, node] : device.files.Nodes()) {
        if (node->isFolder) continue;
        SCOPED_TRACE(std::string(key.begin(), key.end()));
        const std::wstring extension = key.substr(key.rfind(L'.'));
        if (extension == L".TXT") {
            hasMemo = hasMemo || node->bytes == std::string(memo.begin(), memo.end());
            EXPECT_TRUE(device.files.Has(key.substr(0, key.rfind(L'.')) + L".IKW"))
                << "a memo without a note";
            continue;
        }
        EXPECT_EQ(std::string(extension.begin(), extension.end()), ".IKW");
        ink::InkPage page;
        page.bandHeight = 268;
        ink::MemorySource source(node->bytes.data(), node->bytes.size());
        ink::NoteFileHeader header;
        EXPECT_TRUE(ink::ReadNoteHeader(source, header) &&
                    ink::ReadNoteBody(source, header, page) == ink::LoadResult::Loaded)
            << "a part of a note";
        page.VisitStrokes(0, 5000, [&](const ink::StrokeRecord& record) {
            strokes.insert((record.Points()[0].x - 20) / 30);
        });
    }
    return strokes;
}

// Returns how often the day was ended early.
int EndAtEveryCall(const Day& morning, const Day& day, End end = End::Kill) {
    for (int nth = 1;; ++nth) {
        SCOPED_TRACE(nth);
        Life life(end);
        morning(life);
        life.EndAtCall(nth);
        day(life);
        Life next(life);
        Live(next, L"", {next.Close()});
        bool hasMemo = life.memo.empty();
        const std::multiset<int> found = StrokesOf(next.device, hasMemo, life.memo);
        for (const int k : life.kept) EXPECT_EQ(found.count(k), 1u) << "stroke " << k;
        EXPECT_TRUE(hasMemo);
        for (const auto& entry : next.device.notifications) {
            const std::wstring& arguments = entry.second.trigger.arguments;
            EXPECT_TRUE(next.device.files.Has(arguments.substr(1, arguments.find(L'"', 1) - 1)));
        }
        if (testing::Test::HasFailure() || !life.hasEnded)
            return end == End::Kill ? nth - 1 + EndAtEveryCall(morning, day, End::PowerCut) : nth - 1;
    }
}

// A note that holds stroke number k.
std::string NoteWith(int k) {
    const int x = 20 + 30 * k;
    return testing_support::Words({5, 0xFFFFFF, 1, 268, 1, 2, 0, 0, 0, 60, 61, x, 60, x, 61});
}

TEST(Reliability, AnOpenNote) {
    const std::wstring note = kStore + L"Work\\a.ikw";
    const int ends = EndAtEveryCall(
        [&](Life& life) {
            life.device.files.Put(note, testing_support::Words({5, 0xFFFFFF, 0, 268}));
        },
        [&](Life& life) {
            Live(life, note,
                 {life.Stroke(0), life.Stroke(1), life.Press(IDM_ERASER),
                  life.Expects([&] { life.kept.erase(0); }), life.Write({{20, 60}, {35, 60}}),
                  life.Shortcut(L'Z'), life.Expects([&] { life.kept.insert(0); }), life.Press(IDM_PEN),
                  life.Stroke(2), life.Press(IDM_SPACE_TOOL), life.Write({{9, 90}, {9, 100}}),
                  life.Shortcut(L'Z'), life.Shortcut(L'Y'), life.Close()});
        });
    EXPECT_GT(ends, 50);
}

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
    const auto otherNote = [&](Device& device) {
        device.files.Put(note, testing_support::Words({5, 0, 0, 268}));
    };
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
        Live(life, note,
             {life.Stroke(1), life.Press(IDM_TEXT_MEMO), life.TypeInto(IDC_MEMO_TEXT, L"tea"), life.Wait(),
              [&] { life.EndAtCall(1); }});
        Life next(life);
        c.meanwhile(next.device);
        next.device.desk.answers.assign(c.answers.begin(), c.answers.end());
        int questions = 0;
        const auto start = [&questions](Life& each) {
            Live(each, L"", {each.Close()});
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
    Live(life, kStore + L"New Notes\\", {life.Stroke(0), life.Shortcut(L'Z'), [&] { life.EndAtCall(1); }});
    Life next(life);
    Live(next, L"", {next.Close()});
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
    Live(life, L"", {life.Close()});
    ASSERT_EQ(life.device.desk.messages.size(), 1u);
    EXPECT_NE(life.device.desk.messages[0].text.find(journal), std::wstring::npos);
    EXPECT_TRUE(life.device.files.Has(journal));
}

// Nobody is asked, nothing waits for the next start.
TEST(Reliability, TheSessionsEndSavesWhatIsOpen) {
    const std::wstring work = kStore + L"Work\\";
    for (const std::wstring& opened : {kStore + L"New Notes\\", work + L"a.ikw"}) {
        Life life;
        life.device.files.Put(work + L"a.ikw", testing_support::Words({5, 0xFFFFFF, 0, 268}));
        Live(life, opened,
             {life.Stroke(0), life.Press(IDM_TEXT_MEMO), life.TypeInto(IDC_MEMO_TEXT, L"tea"), [&] {
                  life.device.desk.EndSession();
                  const std::wstring saved =
                      opened.back() == L'\\' ? opened + L"New Notes 2007-03-05.ikw" : opened;
                  EXPECT_NE(life.device.files.Get(saved).size(), 16u);
                  EXPECT_EQ(life.device.files.Get(saved.substr(0, saved.size() - 3) + L"txt"), "tea");
              }});
        Life next(life);
        Live(next, L"", {next.Close()});
        EXPECT_TRUE(life.device.desk.messages.empty() && next.device.desk.messages.empty());
        bool hasMemo = false;
        EXPECT_EQ(StrokesOf(next.device, hasMemo, L"tea").count(0), 1u);
        EXPECT_TRUE(hasMemo);
    }
}

TEST(Reliability, WhatTheManagerDoesToNotes) {
    const std::wstring note = kStore + L"Work\\a.ikw";
    const std::wstring other = kStore + L"Home\\a.ikw";
    const struct {
        std::function<void()> day;
        std::set<int> kept;
        std::wstring memo;
    } kDays[] = {
        {[&] { store::MoveNoteFiles(note, kStore + L"Work\\b.ikw", store::MemoInTheWay::Keep); },
         {0, 1},
         L"tea"},
        {[&] { store::MoveNoteFiles(note, other, store::MemoInTheWay::Replace); }, {0}, L"tea"},
        {[&] { store::DeleteNoteFiles(note); }, {1}, L"jam"},
        {[&] { store::MoveNoteFolder(kStore + L"Work", kStore + L"Home\\Work"); }, {0, 1}, L"tea"},
        {[&] { store::DeleteNoteFolder(kStore + L"Work"); }, {1}, L"jam"},
        {[&] { manager::CopyFolderTree(nullptr, kStore + L"Work\\", kStore + L"Home\\"); }, {}, L"tea"}};
    for (const auto& each : kDays) {
        const int ends = EndAtEveryCall(
            [&](Life& life) {
                life.device.files.Put(note, NoteWith(0));
                life.device.files.Put(kStore + L"Work\\a.txt", "tea");
                life.device.files.Put(other, NoteWith(1));
                life.device.files.Put(kStore + L"Home\\a.txt", "jam");
                alarms::SetNoteAlarm(note, {2007, 3, 4, 15, 20, 0, 0, 0});
                life.device.desk.answers.assign(9, platform::MessageAnswer::Yes);
                life.kept = each.kept;
                life.memo = each.memo;
            },
            [&](Life&) { each.day(); });
        EXPECT_GT(ends, 8);
    }
}

TEST(Reliability, ANewNoteWithAMemo) {
    const int ends = EndAtEveryCall(
        [](Life&) {},
        [&](Life& life) {
            Live(life, kStore + L"New Notes\\",
                 {life.Stroke(0), life.Press(IDM_TEXT_MEMO), life.TypeInto(IDC_MEMO_TEXT, L"tea"),
                  life.Wait(), life.Expects([&] { life.memo = L"tea"; }), life.Press(IDC_MEMO_SAVE),
                  life.Stroke(1), life.Close(), life.Press(platform::kIdOk)});
        });
    EXPECT_GT(ends, 40);
}

}  // namespace
