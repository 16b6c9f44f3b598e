#include "tests/app/Life.h"

#include <sstream>

#include "ink/NoteFile.h"
#include "platform/ProgramEntry.h"
#include "platform/host/HostWindow.h"
#include "res/resource.h"

namespace testing_support {

namespace {

using platform::FileError;
using platform::host::FileCall;
using platform::host::HostFileStore;

constexpr int kMostTries = 60;
constexpr int kNoNote = -1;

// Whether the program ends there.
bool Ends(Trouble trouble) { return trouble <= Trouble::Scattered; }

// Far enough from each other for the eraser.
platform::Point PlaceOf(int k) { return {10 + 5 * k, 50 + 40 * (k % 4)}; }

// Of a note by their numbers; kNoNote for any other file.
std::multiset<int> StrokesOf(const platform::host::FileNode& node) {
    ink::InkPage page;
    page.bandHeight = 268;
    ink::MemorySource source(node.bytes.data(), node.bytes.size());
    ink::NoteFileHeader header;
    if (!ink::ReadNoteHeader(source, header) ||
        ink::ReadNoteBody(source, header, page) != ink::LoadResult::Loaded)
        return {kNoNote};
    std::multiset<int> strokes;
    page.VisitStrokes(
        0, 5000, [&](const ink::StrokeRecord& record) { strokes.insert((record.Points()[0].x - 10) / 5); });
    return strokes;
}

std::wstring Wide(const std::string& text) { return {text.begin(), text.end()}; }
std::string Narrow(const std::wstring& text) { return {text.begin(), text.end()}; }

}  // namespace

Life::Life(Trouble trouble) : Steps(hand), hand(device), trouble_(trouble) {
    device.desk.screen = {240, 320};
    device.desk.takesDefaults = true;
}

Life::Life(Life& before) : Life() {
    std::mt19937 dice(static_cast<uint32_t>(before.calls));
    device.ticks = before.device.ticks;
    for (const auto& [key, node] : before.device.files.Nodes()) {
        auto copy = std::make_shared<platform::host::FileNode>(*node);
        copy->writer = false;
        copy->readers = 0;
        if (before.trouble_ == Trouble::PowerCut) copy->bytes = HostFileStore::BytesOnDisk(*copy);
        if (before.trouble_ == Trouble::Scattered) copy->bytes = HostFileStore::BytesOnDisk(*copy, &dice);
        device.files.Nodes()[key] = std::move(copy);
    }
    device.registry = before.device.registry;
    device.notifications = before.device.notifications;
}

void Life::Live(const std::wstring& commandLine, const Script& script) {
    ++day_;
    Play(script);
    hand.Then(Home());
    platform::RunProgram(commandLine);
}

void Life::MeetTrouble(int nth) {
    if (trouble_ == Trouble::NoRoom)
        device.files.capacity = device.files.UsedBytes() + static_cast<uint64_t>(nth);
    device.files.fault = [this, nth](FileCall, const std::wstring&) {
        const bool isNow = trouble_ != Trouble::NoRoom && ++calls == nth;
        if (isNow && Ends(trouble_)) hasEnded = true;
        // Nothing that the program does has an effect any more: it may as well end quickly.
        if (isNow && Ends(trouble_)) device.desk.answers.assign(99, platform::MessageAnswer::Yes);
        const bool fails = isNow || (calls >= nth && trouble_ == Trouble::AllCalls) || hasEnded;
        return fails ? FileError::Other : FileError::None;
    };
}

// What is left over of a day is no part of the next.
Step Life::Home() {
    return [this, day = day_] {
        if (day == day_) GoHome();
    };
}

// Says Yes to being saved as long as that is possible at all.
void Life::GoHome() {
    platform::Window* top = hand.Top();
    if (top == nullptr) return;
    device.files.capacity = UINT64_MAX;
    if (trouble_ == Trouble::AllCalls && device.files.fault) device.files.fault = nullptr;
    ASSERT_LT(++tries_, kMostTries) << "a window that can't be closed";
    const auto& items = top->Handle()->items;
    const int save = items.count(IDC_MEMO_SAVE) != 0 ? IDC_MEMO_SAVE : platform::kIdOk;
    // A memo that could not be read is not replaced by default.
    const bool isGivenUp = save == IDC_MEMO_SAVE && tries_ > kMostTries / 2;
    if (isGivenUp) memos.clear();
    const bool saves = save == IDC_MEMO_SAVE || items.count(IDC_FILE_NAME) != 0;
    hand.Then(Home());
    saves && !hasEnded && !isGivenUp ? hand.PressButton(save) : hand.PressClose();
}

Step Life::InEditor(const Step& step) {
    return [=] {
        if (hand.Top() != nullptr && hand.Tool(IDM_ERASER).enabled) step();
    };
}

// A step of the page that adds and removes these strokes.
Step Life::Changes(const Step& step, const std::set<int>& added, const std::set<int>& removed) {
    return InEditor([=] {
        if (!hasEnded) Give(removed);
        step();
        if (hasEnded) return;
        kept.insert(added.begin(), added.end());
        added_ = added;
        removed_ = removed;
    });
}

Step Life::TakesBack(const Step& step, bool backwards) {
    return InEditor([=] {
        const auto& [goes, comes] = backwards ? std::tie(added_, removed_) : std::tie(removed_, added_);
        if (!hasEnded) Give(goes);
        step();
        if (hasEnded) return;
        kept.insert(comes.begin(), comes.end());
        // One that can't be read is gone.
        const std::string memo = std::exchange(erasedMemo_, {});
        if (!memo.empty() && Ends(trouble_)) memos.insert(memo);
    });
}

void Life::Give(const std::set<int>& strokes) {
    for (const int k : strokes) kept.erase(k);
}

Step Life::Stroke(int k) {
    const platform::Point place = PlaceOf(k);
    const Step write = Write({place, {place.x, place.y + 6}});
    return Changes(
        [=] {
            write();
            if (trouble_ == Trouble::PowerCut || trouble_ == Trouble::Scattered) hand.PassTime(1000);
        },
        {k}, {});
}

Step Life::Wipe(int k) {
    const platform::Point place = PlaceOf(k);
    return Changes(Write({place, {place.x, place.y + 6}}), {}, {k});
}

// All that is in no other note is on the page.
void Life::FullErase() {
    std::set<int> removed = kept;
    const std::wstring title = hand.Top()->Title();
    const std::wstring name = title.substr(0, title.find(L" - "));
    bool isNote = false;
    for (const auto& [key, node] : device.files.Nodes()) {
        if (node->name == name + L".txt") erasedMemo_ = node->bytes;
        isNote = isNote || node->name == name + L".ikw";
        if (node->name == name + L".ikw") continue;
        for (const int k : StrokesOf(*node)) removed.erase(k);
    }
    const auto before = std::tuple(kept, memos, added_, removed_);
    if (!hasEnded) memos.erase(erasedMemo_);
    Changes([this] { hand.PressButton(IDM_FULL_ERASE); }, {}, removed)();
    // What could not be deleted stays on the page.
    if (!hasEnded && isNote && hand.Top()->Title() == title) std::tie(kept, memos, added_, removed_) = before;
}

void Life::Delete(const std::wstring& path) {
    const std::wstring below = HostFileStore::KeyOf(kStore + path.substr(path.find(L'\\')));
    for (const auto& [key, node] : device.files.Nodes()) {
        const bool goes = key.compare(0, below.size(), below) == 0 &&
                          key.find_first_of(L".\\", below.size()) == below.size();
        if (!goes || hasEnded) continue;
        const std::multiset<int> strokes = StrokesOf(*node);
        Give({strokes.begin(), strokes.end()});
        memos.erase(node->bytes);
    }
    hand.PressButton(IDM_DELETE);
}

// What the dialog shows is replaced.
void Life::EditMemo(const std::wstring& text) {
    if (hand.Top() == nullptr || hand.Top()->Handle()->items.count(IDC_MEMO_SAVE) == 0) return;
    if (!hasEnded) memos.erase(Narrow(hand.Top()->Handle()->items[IDC_MEMO_TEXT].text));
    hand.TypeInto(IDC_MEMO_TEXT, text);
    Wait()();
    if (!hasEnded) memos.insert(Narrow(text));
    hand.PressButton(IDC_MEMO_SAVE);
}

Step Life::Shortcut(wchar_t letter) {
    return [=] {
        hand.PressShortcut(letter);
        device.desk.Settle();
    };
}

Step Life::Wait() {
    return [=] { hand.PassTime(2000); };
}

// Opens the folders above it; 0 when it is not there.
platform::TreeItem Life::Reach(const std::wstring& path) {
    platform::TreeView& tree = *hand.Top()->Handle()->tree;
    platform::TreeItem item = 0;
    std::wistringstream names(path);
    for (std::wstring name; std::getline(names, name, L'\\');) {
        if (item != 0) tree.Select(item);
        item = item == 0 ? platform::host::HostTree(tree).First() : tree.FirstChild(item);
        while (item != 0 && tree.Text(item).substr(0, tree.Text(item).find(L"  (")) != name)
            item = tree.NextSibling(item);
        if (item == 0) return 0;
    }
    tree.Select(item);
    device.desk.Settle();
    return item;
}

Step Life::At(const std::wstring& path, const Step& step) {
    return [=] {
        const bool isTree = hand.Top() != nullptr && hand.Top()->Handle()->tree != nullptr;
        if (isTree && Reach(path) != 0) step();
    };
}

Step Life::Hold(const std::wstring& path, const Texts& entries) {
    return At(path, [=] {
        hand.ChooseEntries(entries);
        hand.HoldTree(hand.Top()->Handle()->tree->Selection());
    });
}

Script Life::Lines(const std::string& day) {
    Script script;
    std::istringstream lines(day);
    for (std::string line; std::getline(lines, line);) {
        std::wistringstream words(Wide(line.substr(0, line.find('#'))));
        std::vector<std::wstring> all;
        for (std::wstring word; words >> word;) all.push_back(word);
        if (all.empty()) continue;
        const Script steps = LineOf(Narrow(all[0]), all);
        EXPECT_FALSE(steps.empty()) << "no such line: " << line;
        script.insert(script.end(), steps.begin(), steps.end());
    }
    return script;
}

Script Life::LineOf(const std::string& verb, const std::vector<std::wstring>& words) {
    const std::wstring path = words.size() > 1 ? words[1] : L"";
    const std::wstring to = words.size() > 2 ? words[2] : L"";
    const auto number = [&words](size_t i) { return std::stoi(words.at(i)); };
    const auto press = [this](int id) { return InEditor(Press(id)); };
    const Step ok = [this] {
        if (hand.Top() != nullptr && hand.Top()->Handle()->isDialog) hand.PressButton(platform::kIdOk);
    };
    if (verb == "open") return {At(path, Press(IDM_OPEN))};
    if (verb == "add") return {At(path, Press(IDM_ADD_NOTE))};
    if (verb == "write") return {press(IDM_PEN), Stroke(number(1))};
    if (verb == "wipe") return {press(IDM_ERASER), Wipe(number(1))};
    if (verb == "rows") return {press(IDM_SPACE_TOOL), Changes(Write({{9, 30}, {9, 45}}), {}, {})};
    if (verb == "full") return {InEditor([this] { FullErase(); })};
    if (verb == "undo") return {TakesBack(Shortcut(L'Z'), true)};
    if (verb == "redo") return {TakesBack(Shortcut(L'Y'), false)};
    if (verb == "memo") return {Press(IDM_TEXT_MEMO), [=] { EditMemo(path); }};
    if (verb == "close") return {InEditor(Press(platform::kIdOk)), ok};
    if (verb == "rename")
        return {At(path, [=] {
            hand.PressInTree(platform::Key::F2);
            if (hand.EditedLabel()) hand.EndEditing(to);
        })};
    if (verb == "move") return {Hold(path, {L"Change Folder...", to})};
    if (verb == "alarm") return {Hold(path, {L"Set Alarm..."}), ok};
    if (verb == "copy") return {Hold(path, {L"Copy To \\Storage Card"})};
    if (verb == "delete") return {At(path, [=] { Delete(path); })};
    if (verb == "remind" || verb == "change")
        return {Hold(path, {verb == "remind" ? L"Move To Reminders..." : L"Change Date..."}), [=] {
                    if (!hand.Top()->Handle()->isDialog) return;
                    hand.Top()->Handle()->items[IDC_MONTH_CALENDAR].moment = {2007, 3, 0, std::stoi(to),
                                                                              0,    0, 0, 0};
                    hand.PressButton(platform::kIdOk);
                }};
    if (verb == "size")
        return {InEditor([=, width = number(1)] { device.desk.Resize({width, std::stoi(to)}); })};
    if (verb == "calendar") return {Press(IDM_CALENDAR), Press(IDM_NEXT_MONTH), Press(IDM_CALENDAR)};
    // With a storage that takes nothing it is as if the program was killed without a net.
    const bool canSave = trouble_ != Trouble::AllCalls && trouble_ != Trouble::NoRoom;
    if (verb == "logoff")
        return {[=] {
            if (canSave) device.desk.EndSession();
        }};
    return {};
}

void Life::TakeStock(std::multiset<int>& strokes, std::set<std::string>& texts) {
    for (const auto& [key, node] : device.files.Nodes()) {
        if (node->isFolder) continue;
        SCOPED_TRACE(Narrow(key));
        const std::wstring stem = key.substr(0, key.rfind(L'.'));
        if (key.substr(stem.size()) == L".TXT") {
            texts.insert(node->bytes);
            EXPECT_TRUE(device.files.Has(stem + L".IKW")) << "a memo without a note";
            continue;
        }
        EXPECT_EQ(Narrow(key.substr(stem.size())), ".IKW");
        std::multiset<int> found = StrokesOf(*node);
        EXPECT_EQ(found.erase(kNoNote), 0u) << "a part of a note";
        if (key.find(L"STORAGE CARD") != std::wstring::npos) continue;  // copies
        strokes.merge(found);
    }
    for (const auto& entry : device.notifications) {
        const std::wstring& arguments = entry.second.trigger.arguments;
        EXPECT_TRUE(device.files.Has(arguments.substr(1, arguments.find(L'"', 1) - 1)))
            << "an alarm for nothing";
    }
}

std::string NoteWith(int k) {
    const platform::Point at = PlaceOf(k);
    return Words({5, 0xFFFFFF, 1, 268, 1, 2, 0, 0, 0, at.y, at.y + 6, at.x, at.y, at.x, at.y + 6});
}

}  // namespace testing_support
