#include "manager/FolderTree.h"

#include <algorithm>
#include <unordered_set>

#include "alarms/AlarmDatabase.h"
#include "app/StorePaths.h"
#include "manager/DayNames.h"
#include "manager/NodeKind.h"
#include "platform/Locale.h"
#include "platform/TextEncoding.h"

namespace manager {

namespace {

using platform::TreeItem;

constexpr wchar_t kNotesText[] = L"Notes";
constexpr wchar_t kRemindersText[] = L"Reminders";
constexpr wchar_t kAlarmsText[] = L"Alarms";

}  // namespace

// What a tree item of a folder or a note carries as its data; freed with the item.
struct FolderTree::NodeRecord {
    TreeItem item = 0;
    bool isFolder = false;
    std::wstring name;  // of a folder in the store, or of a note without its extension
};

namespace {

std::wstring WithCount(const std::wstring& text, int count) {
    return text + L"  (" + std::to_wstring(count) + L" found) ";
}

std::wstring WithoutExtension(const std::wstring& fileName) {
    return fileName.substr(0, fileName.size() - std::wstring(app::kNoteExtension).size());
}

int ChildKind(int kind) {
    switch (kind) {
        case kNotesTop:
            return kFolder;
        case kRemindersTop:
            return kDay;
        case kDay:
        case kOpenDay:
            return kReminder;
        default:
            return kNote;
    }
}

// The form in which open folders are shown.
int OpenKind(int kind) { return kind == kFolder ? kOpenFolder : kind == kDay ? kOpenDay : kind; }

}  // namespace

FolderTree::FolderTree(platform::TreeView& tree) : tree_(tree) {}
FolderTree::~FolderTree() = default;

void FolderTree::Rebuild(const std::wstring& path) {
    rebuilding_ = true;
    tree_.RemoveAll();
    selectedNote_.clear();
    const auto insertTop = [this](const wchar_t* text, int kind) {
        const TreeItem item = tree_.Insert(0, platform::TreeView::Where::Last, text, kind, 0);
        tree_.SetBold(item);
        return item;
    };
    notesTop_ = insertTop(kNotesText, kNotesTop);
    remindersTop_ = insertTop(kRemindersText, kRemindersTop);
    alarmsTop_ = insertTop(kAlarmsText, kAlarmsTop);
    rebuilding_ = false;
    SelectPath(path);
}

void FolderTree::ItemDeleted(intptr_t data) { records_.erase(data); }

const FolderTree::NodeRecord* FolderTree::RecordOf(intptr_t data) const {
    const auto found = records_.find(data);
    return found == records_.end() ? nullptr : found->second.get();
}

// Folders before notes; folders by name, which puts days in order; notes by code units of their texts.
int FolderTree::Compare(const NodeRecord& a, const NodeRecord& b) {
    if (a.isFolder != b.isFolder) return a.isFolder ? -1 : 1;
    return a.isFolder ? platform::CompareNames(a.name, b.name) : a.name.compare(b.name);
}

void FolderTree::SelectionChanged(TreeItem old, TreeItem selected) {
    if (rebuilding_) return;
    selectedNote_.clear();
    const TreeItem oldContainer = Container(old);
    const TreeItem container = Container(selected);
    const int kind = tree_.Image(selected);
    if (container != oldContainer) {
        if (!(oldContainer == alarmsTop_ && kind == kAlarm)) ShowPlain(oldContainer);
        if (!IsAncestor(oldContainer, container)) tree_.CollapseAndDrop(oldContainer);
        if (tree_.IsExpanded(container)) {
            ShowCount(container);
        } else if (container != alarmsTop_ && container != 0) {
            Fill(container, L"");
        }
    }
    if (IsNoteKind(kind)) selectedNote_ = RelativePath(selected) + app::kNoteExtension;
    if (selected == alarmsTop_ && tree_.FirstChild(selected) == 0) ListAlarms();
}

TreeItem FolderTree::Container(TreeItem item) const {
    const int kind = tree_.Image(item);
    return IsNoteKind(kind) || kind == kAlarm ? tree_.Parent(item) : item;
}

std::wstring FolderTree::FolderName(TreeItem item) const {
    const NodeRecord* record = RecordOf(tree_.Data(item));
    return record != nullptr && record->isFolder ? record->name : std::wstring();
}

std::wstring FolderTree::RelativePath(TreeItem item) const {
    if (item == remindersTop_) return std::wstring(kRemindersText) + L"\\";
    if (item == notesTop_ || item == 0) return {};
    std::wstring path = IsNoteKind(tree_.Image(item)) ? tree_.Text(item) : FolderName(item) + L"\\";
    for (TreeItem above = tree_.Parent(item); above != notesTop_; above = tree_.Parent(above)) {
        if (above == remindersTop_) return std::wstring(kRemindersText) + L"\\" + path;
        if (above == 0 || above == alarmsTop_) return {};
        path.insert(0, FolderName(above) + L"\\");
    }
    return item == alarmsTop_ ? std::wstring() : path;
}

// Children are put in order before they are inserted: the control would ask for two texts at every
// comparison.
void FolderTree::Fill(TreeItem node, const std::wstring& noteToSelect) {
    const int kind = tree_.Image(node);
    std::vector<Child> children = ReadChildren(kind, FolderPath(node));
    std::sort(children.begin(), children.end(), [](const Child& a, const Child& b) {
        return Compare({0, a.isFolder, a.name}, {0, b.isFolder, b.name}) < 0;
    });
    tree_.Freeze(true);
    tree_.CollapseAndDrop(node);
    selectedNote_.clear();
    int notes = 0;
    for (const Child& child : children) {
        const int childKind = child.isFolder && kind != kRemindersTop ? kFolder : ChildKind(kind);
        const TreeItem item = Insert(node, childKind, child.isFolder, child.name);
        if (child.hasMemo) tree_.SetOverlay(item, true);
        if (!child.isFolder) ++notes;
    }
    ShowCount(node, notes);
    tree_.Expand(node);
    tree_.EnsureVisible(node);
    tree_.Freeze(false);
    if (!noteToSelect.empty()) SelectNote(noteToSelect);
}

std::vector<FolderTree::Child> FolderTree::ReadChildren(int kind, const std::wstring& folder) const {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(app::WithoutTrailingBackslashes(folder), L"*.*", entries);
    if (kind == kRemindersTop) return DaysOf(entries, folder);
    if (kind == kNotesTop) return TopFoldersOf(entries);
    return NotesAndFoldersOf(entries, ChildKind(kind) == kNote);
}

// Days without a note are removed from the store on the way.
std::vector<FolderTree::Child> FolderTree::DaysOf(const std::vector<platform::FolderEntry>& entries,
                                                  const std::wstring& folder) {
    std::vector<Child> days;
    for (const platform::FolderEntry& entry : entries) {
        DayName day;
        if (!entry.isFolder || !ReadDayName(entry.name, day)) continue;
        if (app::HoldsNotes(folder + entry.name)) {
            days.push_back({entry.name, true, false});
        } else {
            platform::DropFolder(folder + entry.name);
        }
    }
    return days;
}

std::vector<FolderTree::Child> FolderTree::TopFoldersOf(const std::vector<platform::FolderEntry>& entries) {
    std::vector<Child> folders;
    for (const platform::FolderEntry& entry : entries) {
        if (entry.isFolder && !app::IsReservedName(entry.name)) folders.push_back({entry.name, true, false});
    }
    return folders;
}

// Memos are found in the same listing: asking the disk once more for every note would cost more than all
// else.
std::vector<FolderTree::Child> FolderTree::NotesAndFoldersOf(
    const std::vector<platform::FolderEntry>& entries, bool withFolders) {
    std::unordered_set<std::wstring> texts;
    for (const platform::FolderEntry& entry : entries) {
        if (app::EndsWithNoCase(entry.name, L".txt"))
            texts.insert(platform::LowerCase(WithoutExtension(entry.name)));
    }
    std::vector<Child> children;
    for (const platform::FolderEntry& entry : entries) {
        if (entry.isFolder && withFolders) children.push_back({entry.name, true, false});
        if (entry.isFolder || !app::EndsWithNoCase(entry.name, app::kNoteExtension)) continue;
        const std::wstring name = WithoutExtension(entry.name);
        const bool hasMemo = !texts.empty() && texts.count(platform::LowerCase(name)) != 0;
        children.push_back({name, false, hasMemo});
    }
    return children;
}

TreeItem FolderTree::InsertFolder(TreeItem parent, int kind, const std::wstring& name) {
    return Insert(parent, kind, true, name);
}

TreeItem FolderTree::Insert(TreeItem parent, int kind, bool isFolder, const std::wstring& name) {
    auto record = std::make_unique<NodeRecord>(NodeRecord{0, isFolder, name});
    const auto data = reinterpret_cast<intptr_t>(record.get());
    record->item = tree_.Insert(parent, platform::TreeView::Where::Last,
                                kind == kDay ? LongDayText(name) : name, kind, data);
    const TreeItem item = record->item;
    records_[data] = std::move(record);
    return item;
}

void FolderTree::ListAlarms() {
    tree_.CollapseAndDrop(alarmsTop_);
    int count = 0;
    for (const alarms::NoteAlarm& alarm : alarms::ScanAlarms()) {
        std::wstring title;
        if (!alarms::AlarmTitle(alarm.arguments, title)) continue;
        tree_.Insert(alarmsTop_, platform::TreeView::Where::Sorted,
                     platform::DateAndTime(alarm.start) + L", " + title, kAlarm,
                     static_cast<intptr_t>(alarm.handle));
        ++count;
    }
    tree_.SetText(alarmsTop_, WithCount(kAlarmsText, count));
    tree_.Expand(alarmsTop_);
    tree_.EnsureVisible(alarmsTop_);
}

void FolderTree::RenameFolder(TreeItem item, const std::wstring& name) {
    records_[tree_.Data(item)]->name = name;
    ShowCount(item, CountNotes(item));
    Sort(tree_.Parent(item));
}

void FolderTree::RenameNote(TreeItem item, const std::wstring& name) {
    tree_.SetText(item, name);
    records_[tree_.Data(item)]->name = name;
    selectedNote_ = RelativePath(item) + app::kNoteExtension;
    Sort(tree_.Parent(item));
}

void FolderTree::ShowMemoMark(TreeItem item) {
    if (!IsNoteKind(tree_.Image(item))) return;
    const std::wstring memo = app::MemoPath(rootPrefix_ + RelativePath(item) + app::kNoteExtension);
    tree_.SetOverlay(item, platform::Exists(memo));
}

int FolderTree::CountNotes(TreeItem item) const {
    int count = 0;
    for (TreeItem child = tree_.FirstChild(item); child != 0; child = tree_.NextSibling(child)) {
        if (IsNoteKind(tree_.Image(child))) ++count;
    }
    return count;
}

void FolderTree::ShowCount(TreeItem item) { ShowCount(item, CountNotes(item)); }

void FolderTree::ShowCount(TreeItem item, int count) {
    const int kind = tree_.Image(item);
    if (!IsFolderKind(kind) && !IsDayKind(kind)) return;
    const std::wstring name = FolderName(item);
    tree_.SetText(item, WithCount(IsDayKind(kind) ? LongDayText(name) : name, count));
    tree_.SetImage(item, OpenKind(kind));
}

void FolderTree::ShowPlain(TreeItem item) {
    switch (tree_.Image(item)) {
        case kFolder:
        case kOpenFolder:
            tree_.SetText(item, FolderName(item));
            tree_.SetImage(item, kFolder);
            break;
        case kDay:
        case kOpenDay:
            tree_.SetText(item, LongDayText(FolderName(item)));
            tree_.SetImage(item, kDay);
            break;
        case kAlarmsTop:
            tree_.SetText(item, kAlarmsText);
            break;
        default:
            break;
    }
}

void FolderTree::Sort(TreeItem parent) {
    tree_.SortChildren(parent, [this](TreeItem, intptr_t a, TreeItem, intptr_t b) {
        return Compare(*RecordOf(a), *RecordOf(b));
    });
}

bool FolderTree::IsAncestor(TreeItem above, TreeItem item) const {
    for (; item != 0; item = tree_.Parent(item)) {
        if (item == above) return true;
    }
    return false;
}

TreeItem FolderTree::ChildFolder(TreeItem parent, const std::wstring& name) const {
    TreeItem child = tree_.FirstChild(parent);
    while (child != 0 && !platform::EqualNoCase(FolderName(child), name)) child = tree_.NextSibling(child);
    return child;
}

// The top item below which a path leads, and the rest of the path from there; "Notes" for one outside the
// store.
TreeItem FolderTree::TopOf(const std::wstring& path, std::wstring& rest) const {
    const bool below = platform::EqualNoCase(path.substr(0, rootPrefix_.size()), rootPrefix_);
    rest = below ? path.substr(rootPrefix_.size()) : std::wstring();
    const std::wstring reminders = std::wstring(kRemindersText) + L"\\";
    if (!platform::EqualNoCase(rest.substr(0, reminders.size()), reminders)) return notesTop_;
    rest.erase(0, reminders.size());
    return remindersTop_;
}

void FolderTree::SelectPath(const std::wstring& path) {
    std::wstring rest;
    TreeItem item = TopOf(path, rest);
    tree_.Select(item);
    for (size_t end = rest.find(L'\\'); end != std::wstring::npos; end = rest.find(L'\\')) {
        const TreeItem child = ChildFolder(item, rest.substr(0, end));
        if (child == 0) break;
        item = child;
        tree_.Select(item);
        rest.erase(0, end + 1);
    }
    tree_.EnsureVisible(tree_.Selection());
    if (!rest.empty() && rest.find(L'\\') == std::wstring::npos) SelectNote(rest);
}

void FolderTree::ReadAgain(const std::wstring& path) {
    std::wstring rest;
    TreeItem item = TopOf(path, rest);
    for (size_t end = rest.find(L'\\'); end != std::wstring::npos; end = rest.find(L'\\')) {
        const std::wstring name = rest.substr(0, end);
        if (ChildFolder(item, name) == 0) SelectAndRead(item);  // it may be new
        const TreeItem child = ChildFolder(item, name);
        if (child == 0) break;
        item = child;
        rest.erase(0, end + 1);
    }
    SelectAndRead(item);
    if (rest.find(L'\\') == std::wstring::npos) SelectNote(rest);
}

// Selecting a folder reads it unless it is open or selected already.
void FolderTree::SelectAndRead(TreeItem item) {
    const bool isShown = tree_.IsExpanded(item) || Container(tree_.Selection()) == item;
    tree_.Select(item);
    if (isShown) Fill(item, L"");
}

void FolderTree::SelectNote(const std::wstring& fileName) {
    if (!app::EndsWithNoCase(fileName, app::kNoteExtension)) return;
    TreeItem child = tree_.FirstChild(Container(tree_.Selection()));
    for (; child != 0; child = tree_.NextSibling(child)) {
        const bool isWanted = IsNoteKind(tree_.Image(child)) &&
                              platform::EqualNoCase(tree_.Text(child), WithoutExtension(fileName));
        if (!isWanted) continue;
        tree_.Select(child);
        tree_.EnsureVisible(child);
        return;
    }
}

}  // namespace manager
