#include "manager/FolderTree.h"

#include <algorithm>

#include "app/store/NoteAlarms.h"
#include "app/store/NoteFiles.h"
#include "app/store/StoreListing.h"
#include "app/store/StorePaths.h"
#include "ink/Require.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/TextEncoding.h"

namespace manager {

namespace {

using platform::TreeItem;
using store::NodeKind;

constexpr wchar_t kNotesText[] = L"Notes";
constexpr wchar_t kRemindersText[] = L"Reminders";
constexpr wchar_t kAlarmsText[] = L"Alarms";

}  // namespace

// What a tree item of a folder or a note carries as its data; freed with the item.
struct FolderTree::NodeRecord {
    bool isFolder = false;
    std::wstring name;  // of a folder in the store, or of a note without its extension
};

namespace {

std::wstring WithCount(const std::wstring& text, int count) {
    return text + L"  (" + std::to_wstring(count) + L" found) ";
}

std::wstring ShownName(NodeKind kind, const std::wstring& name) {
    const std::optional<store::DayFolder> day =
        IsDayKind(kind) ? store::DayFolder::Named(name) : std::nullopt;
    return day ? day->LongText() : name;
}

// The form in which open folders are shown.
NodeKind OpenKind(NodeKind kind) {
    return kind == NodeKind::Folder ? NodeKind::OpenFolder : kind == NodeKind::Day ? NodeKind::OpenDay : kind;
}

}  // namespace

FolderTree::FolderTree(platform::TreeView& tree) : tree_(tree) {}
FolderTree::~FolderTree() = default;

void FolderTree::Rebuild(const std::wstring& path) {
    rebuilding_ = true;
    tree_.RemoveAll();
    selectedNote_.clear();
    const auto insertTop = [this](const wchar_t* text, NodeKind kind) {
        const TreeItem item =
            tree_.Insert(0, platform::TreeView::Where::Last, text, static_cast<int>(kind), 0);
        tree_.SetBold(item);
        return item;
    };
    notesTop_ = insertTop(kNotesText, NodeKind::NotesTop);
    remindersTop_ = insertTop(kRemindersText, NodeKind::RemindersTop);
    alarmsTop_ = insertTop(kAlarmsText, NodeKind::AlarmsTop);
    rebuilding_ = false;
    SelectPath(path);
}

void FolderTree::ItemDeleted(intptr_t data) { records_.erase(data); }

const FolderTree::NodeRecord* FolderTree::RecordOf(intptr_t data) const {
    const auto found = records_.find(data);
    return found == records_.end() ? nullptr : found->second.get();
}

FolderTree::NodeRecord& FolderTree::ChangeRecord(TreeItem item) {
    const auto found = records_.find(tree_.Data(item));
    ink::Require(found != records_.end(), "an item of the tree without its record");
    return *found->second;
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
    const NodeKind kind = KindOf(selected);
    if (container != oldContainer) {
        if (!(oldContainer == alarmsTop_ && kind == NodeKind::Alarm)) ShowPlain(oldContainer);
        if (!IsAncestor(oldContainer, container)) tree_.CollapseAndDrop(oldContainer);
        if (tree_.IsExpanded(container)) {
            ShowCount(container);
        } else if (container != alarmsTop_ && container != 0) {
            Fill(container, L"");
        }
    }
    if (IsNoteKind(kind)) selectedNote_ = RelativePath(selected) + store::kNoteExtension;
    if (selected == alarmsTop_ && tree_.FirstChild(selected) == 0) ListAlarms();
}

TreeItem FolderTree::Container(TreeItem item) const {
    const NodeKind kind = KindOf(item);
    return IsNoteKind(kind) || kind == NodeKind::Alarm ? tree_.Parent(item) : item;
}

std::wstring FolderTree::ShownName(TreeItem item) const {
    return manager::ShownName(KindOf(item), FolderName(item));
}

std::optional<store::DayFolder> FolderTree::DayOf(TreeItem item) const {
    if (!IsDayKind(KindOf(item))) return std::nullopt;
    return store::DayFolder::Named(FolderName(item));
}

std::wstring FolderTree::PathOf(const store::DayFolder& day) const {
    return rootPrefix_ + store::kRemindersFolder + L"\\" + day.Name() + L"\\";
}

std::wstring FolderTree::FolderName(TreeItem item) const {
    const NodeRecord* record = RecordOf(tree_.Data(item));
    return record != nullptr && record->isFolder ? record->name : std::wstring();
}

std::wstring FolderTree::RelativePath(TreeItem item) const {
    if (item == remindersTop_) return std::wstring(kRemindersText) + L"\\";
    if (item == notesTop_ || item == 0) return {};
    std::wstring path = IsNoteKind(KindOf(item)) ? tree_.Text(item) : FolderName(item) + L"\\";
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
    tree_.Freeze(true);
    tree_.CollapseAndDrop(node);
    selectedNote_.clear();
    InsertChildren(node);
    ShowCount(node);
    tree_.Expand(node);
    tree_.EnsureVisible(node);
    tree_.Freeze(false);
    if (!noteToSelect.empty()) SelectNote(noteToSelect);
}

void FolderTree::InsertChildren(TreeItem node) {
    const std::wstring folder = FolderPath(node);
    const NodeKind kind = KindOf(node);
    if (kind == NodeKind::NotesTop) {
        for (const std::wstring& name : store::ListUserFolders(folder))
            InsertFolder(node, NodeKind::Folder, name);
    } else if (kind == NodeKind::RemindersTop) {
        const store::ListedDays days = store::ListDays(folder);
        for (const store::DayFolder& day : days.holding) InsertFolder(node, NodeKind::Day, day.Name());
        store::DropEmptyDays(folder, days.empty);
    } else {
        const store::StoreListing listing = store::ListStoreFolder(folder);
        const NodeKind noteKind = IsDayKind(kind) ? NodeKind::Reminder : NodeKind::Note;
        if (noteKind == NodeKind::Note) {
            for (const std::wstring& name : listing.folders) InsertFolder(node, NodeKind::Folder, name);
        }
        for (const store::ListedNote& note : listing.notes) {
            const TreeItem item = Insert(node, noteKind, false, note.name);
            if (note.hasMemo) tree_.SetOverlay(item, true);
        }
    }
}

TreeItem FolderTree::InsertFolder(TreeItem parent, NodeKind kind, const std::wstring& name) {
    return Insert(parent, kind, true, name);
}

TreeItem FolderTree::Insert(TreeItem parent, NodeKind kind, bool isFolder, const std::wstring& name) {
    auto record = std::make_unique<NodeRecord>(NodeRecord{isFolder, name});
    const auto data = reinterpret_cast<intptr_t>(record.get());
    records_[data] = std::move(record);
    return tree_.Insert(parent, platform::TreeView::Where::Last, manager::ShownName(kind, name),
                        static_cast<int>(kind), data);
}

void FolderTree::ListAlarms() {
    tree_.CollapseAndDrop(alarmsTop_);
    int count = 0;
    for (const store::NoteAlarm& alarm : store::ScanAlarms()) {
        std::wstring title;
        if (!store::AlarmTitle(alarm.arguments, title)) continue;
        tree_.Insert(alarmsTop_, platform::TreeView::Where::Sorted,
                     platform::DateAndTime(alarm.start) + L", " + title, static_cast<int>(NodeKind::Alarm),
                     static_cast<intptr_t>(alarm.handle));
        ++count;
    }
    tree_.SetText(alarmsTop_, WithCount(kAlarmsText, count));
    tree_.Expand(alarmsTop_);
    tree_.EnsureVisible(alarmsTop_);
}

void FolderTree::RenameFolder(TreeItem item, const std::wstring& name) {
    ChangeRecord(item).name = name;
    ShowCount(item, CountNotes(item));
    Sort(tree_.Parent(item));
}

void FolderTree::RenameNote(TreeItem item, const std::wstring& name) {
    tree_.SetText(item, name);
    ChangeRecord(item).name = name;
    selectedNote_ = RelativePath(item) + store::kNoteExtension;
    Sort(tree_.Parent(item));
}

void FolderTree::ShowMemoMark(TreeItem item) {
    if (!IsNoteKind(KindOf(item))) return;
    const std::wstring memo = store::MemoPath(rootPrefix_ + RelativePath(item) + store::kNoteExtension);
    tree_.SetOverlay(item, platform::Exists(memo));
}

int FolderTree::CountNotes(TreeItem item) const {
    int count = 0;
    for (TreeItem child = tree_.FirstChild(item); child != 0; child = tree_.NextSibling(child)) {
        if (IsNoteKind(KindOf(child))) ++count;
    }
    return count;
}

void FolderTree::ShowCount(TreeItem item) { ShowCount(item, CountNotes(item)); }

void FolderTree::ShowCount(TreeItem item, int count) {
    const NodeKind kind = KindOf(item);
    if (!IsFolderKind(kind) && !IsDayKind(kind)) return;
    tree_.SetText(item, WithCount(ShownName(item), count));
    SetKind(item, OpenKind(kind));
}

void FolderTree::ShowPlain(TreeItem item) {
    switch (KindOf(item)) {
        case NodeKind::Folder:
        case NodeKind::OpenFolder:
            tree_.SetText(item, ShownName(item));
            SetKind(item, NodeKind::Folder);
            break;
        case NodeKind::Day:
        case NodeKind::OpenDay:
            tree_.SetText(item, ShownName(item));
            SetKind(item, NodeKind::Day);
            break;
        case NodeKind::AlarmsTop:
            tree_.SetText(item, kAlarmsText);
            break;
        default:
            break;
    }
}

void FolderTree::Sort(TreeItem parent) {
    tree_.SortChildren(parent, [this](TreeItem, intptr_t a, TreeItem, intptr_t b) {
        const NodeRecord* first = RecordOf(a);
        const NodeRecord* second = RecordOf(b);
        ink::Require(first != nullptr && second != nullptr, "an item of the tree without its record");
        return Compare(*first, *second);
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
    if (!store::EndsWithNoCase(fileName, store::kNoteExtension)) return;
    TreeItem child = tree_.FirstChild(Container(tree_.Selection()));
    for (; child != 0; child = tree_.NextSibling(child)) {
        const bool isWanted =
            IsNoteKind(KindOf(child)) && platform::EqualNoCase(tree_.Text(child), store::NoteName(fileName));
        if (!isWanted) continue;
        tree_.Select(child);
        tree_.EnsureVisible(child);
        return;
    }
}

}  // namespace manager
