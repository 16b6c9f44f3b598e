#include "manager/FolderTree.h"

#include <memory>
#include <set>

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

// What a tree item of a folder or a note carries as its data; freed with the item.
struct NodeRecord {
    TreeItem item = 0;
    bool isFolder = false;
    std::wstring name;  // of a folder in the store
};

NodeRecord* RecordOf(intptr_t data) { return reinterpret_cast<NodeRecord*>(data); }

std::wstring WithCount(const std::wstring& text, int count) {
    return text + L"  (" + std::to_wstring(count) + L" found) ";
}

bool HasNoteExtension(const std::wstring& fileName) {
    const std::wstring extension = app::kNoteExtension;
    return fileName.size() >= extension.size() &&
           platform::EqualNoCase(fileName.substr(fileName.size() - extension.size()), extension);
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

void FolderTree::ItemDeleted(int kind, intptr_t data) {
    if (kind != kAlarm) std::unique_ptr<NodeRecord>(RecordOf(data)).reset();
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
    const NodeRecord* record = tree_.Image(item) == kAlarm ? nullptr : RecordOf(tree_.Data(item));
    return record != nullptr ? record->name : std::wstring();
}

std::wstring FolderTree::RelativePath(TreeItem item) const {
    if (item == remindersTop_) return std::wstring(kRemindersText) + L"\\";
    if (item == notesTop_ || item == 0) return {};
    std::wstring path = IsNoteKind(tree_.Image(item)) ? tree_.Text(item) : FolderName(item) + L"\\";
    for (TreeItem above = tree_.Parent(item); above != notesTop_; above = tree_.Parent(above)) {
        if (above == remindersTop_) return std::wstring(kRemindersText) + L"\\" + path;
        if (above == 0 || above == alarmsTop_) return {};
        path = FolderName(above) + L"\\" + path;
    }
    return item == alarmsTop_ ? std::wstring() : path;
}

void FolderTree::Fill(TreeItem node, const std::wstring& noteToSelect) {
    const std::wstring folder = FolderPath(node);
    tree_.Freeze(true);
    tree_.CollapseAndDrop(node);
    selectedNote_.clear();
    if (node == remindersTop_) {
        FillReminders(node, folder);
    } else if (node == notesTop_) {
        FillNotesTop(node, folder);
    } else {
        FillFolder(node, folder);
    }
    Sort(node);
    ShowCount(node);
    tree_.Expand(node);
    tree_.EnsureVisible(node);
    tree_.Freeze(false);
    if (!noteToSelect.empty()) SelectNote(noteToSelect);
}

void FolderTree::FillReminders(TreeItem node, const std::wstring& folder) {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(app::WithoutTrailingBackslashes(folder), L"*.*", entries);
    for (const platform::FolderEntry& entry : entries) {
        DayName day;
        if (!entry.isFolder || !ReadDayName(entry.name, day)) continue;
        if (app::HoldsNotes(folder + entry.name)) {
            InsertFolder(node, kDay, entry.name);
        } else {
            platform::DropFolder(folder + entry.name);
        }
    }
}

void FolderTree::FillNotesTop(TreeItem node, const std::wstring& folder) {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(app::WithoutTrailingBackslashes(folder), L"*.*", entries);
    for (const platform::FolderEntry& entry : entries) {
        if (entry.isFolder && !app::IsReservedName(entry.name)) InsertFolder(node, kFolder, entry.name);
    }
}

// Memos are found in the same listing: asking the disk once more for every note would cost more than all
// else.
void FolderTree::FillFolder(TreeItem node, const std::wstring& folder) {
    const int kind = ChildKind(tree_.Image(node));
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(app::WithoutTrailingBackslashes(folder), L"*.*", entries);
    std::set<std::wstring> names;
    for (const platform::FolderEntry& entry : entries) names.insert(platform::LowerCase(entry.name));
    for (const platform::FolderEntry& entry : entries) {
        if (entry.isFolder && kind == kNote) InsertFolder(node, kFolder, entry.name);
        if (entry.isFolder || !HasNoteExtension(entry.name)) continue;
        const TreeItem item = InsertNote(node, kind, entry.name);
        const std::wstring memo = WithoutExtension(entry.name) + L".txt";
        if (names.count(platform::LowerCase(memo)) != 0) tree_.SetOverlay(item, true);
    }
}

TreeItem FolderTree::InsertFolder(TreeItem parent, int kind, const std::wstring& name) {
    auto record = std::make_unique<NodeRecord>(NodeRecord{0, true, name});
    const std::wstring text = kind == kDay ? LongDayText(name) : name;
    NodeRecord* placed = record.release();
    placed->item =
        tree_.Insert(parent, platform::TreeView::Where::Last, text, kind, reinterpret_cast<intptr_t>(placed));
    return placed->item;
}

TreeItem FolderTree::InsertNote(TreeItem parent, int kind, const std::wstring& fileName) {
    NodeRecord* placed = std::make_unique<NodeRecord>().release();
    placed->item = tree_.Insert(parent, platform::TreeView::Where::Last, WithoutExtension(fileName), kind,
                                reinterpret_cast<intptr_t>(placed));
    return placed->item;
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
    RecordOf(tree_.Data(item))->name = name;
    ShowCount(item);
    Sort(tree_.Parent(item));
}

void FolderTree::RenameNote(TreeItem item, const std::wstring& name) {
    tree_.SetText(item, name);
    selectedNote_ = RelativePath(item) + app::kNoteExtension;
    Sort(tree_.Parent(item));
}

int FolderTree::CountNotes(TreeItem item) const {
    int count = 0;
    for (TreeItem child = tree_.FirstChild(item); child != 0; child = tree_.NextSibling(child)) {
        if (IsNoteKind(tree_.Image(child))) ++count;
    }
    return count;
}

void FolderTree::ShowCount(TreeItem item) {
    const int kind = tree_.Image(item);
    if (!IsFolderKind(kind) && !IsDayKind(kind)) return;
    const std::wstring name = FolderName(item);
    tree_.SetText(item, WithCount(IsDayKind(kind) ? LongDayText(name) : name, CountNotes(item)));
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

// Folders before notes; folders by name, which puts days in order; notes by code units of their texts.
void FolderTree::Sort(TreeItem parent) {
    tree_.SortChildren(parent, [this](TreeItem a, intptr_t dataA, TreeItem b, intptr_t dataB) {
        const NodeRecord* first = RecordOf(dataA);
        const NodeRecord* second = RecordOf(dataB);
        if (first->isFolder != second->isFolder) return first->isFolder ? -1 : 1;
        if (first->isFolder) return platform::CompareNames(first->name, second->name);
        return tree_.Text(a).compare(tree_.Text(b));
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

void FolderTree::SelectPath(const std::wstring& path) {
    const bool below = platform::EqualNoCase(path.substr(0, rootPrefix_.size()), rootPrefix_);
    std::wstring rest = below ? path.substr(rootPrefix_.size()) : std::wstring();
    TreeItem item = notesTop_;
    const std::wstring reminders = std::wstring(kRemindersText) + L"\\";
    if (platform::EqualNoCase(rest.substr(0, reminders.size()), reminders)) {
        item = remindersTop_;
        rest.erase(0, reminders.size());
    }
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

void FolderTree::SelectNote(const std::wstring& fileName) {
    if (!HasNoteExtension(fileName)) return;
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
