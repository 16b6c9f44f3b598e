#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "app/store/DayFolder.h"
#include "app/store/NodeKind.h"
#include "platform/TreeView.h"

namespace manager {

// The tree of the note store: "Notes", "Reminders" and "Alarms". A branch is read from disk when it is
// selected and dropped when the selection leaves it, so that every visit shows what is really there. Folder
// paths end in "\".
class FolderTree {
  public:
    explicit FolderTree(platform::TreeView& tree);
    ~FolderTree();

    // The store root with one "\" at its end.
    void SetRootPrefix(const std::wstring& prefix) { rootPrefix_ = prefix; }
    const std::wstring& RootPrefix() const { return rootPrefix_; }

    // Only the three top items; then selects `path` (a note, or a folder ending in "\") as far as it exists,
    // "Notes" when it is empty or not below the root.
    void Rebuild(const std::wstring& path);

    // The tree's events.
    void SelectionChanged(platform::TreeItem old, platform::TreeItem selected);
    void ItemDeleted(intptr_t data);

    platform::TreeItem NotesTop() const { return notesTop_; }
    store::NodeKind KindOf(platform::TreeItem item) const {
        return static_cast<store::NodeKind>(tree_.Image(item));
    }
    store::NodeKind SelectedKind() const { return KindOf(tree_.Selection()); }
    // Path of the selected note relative to the root, with extension; empty when no note is selected.
    const std::wstring& SelectedNote() const { return selectedNote_; }
    std::wstring SelectedNotePath() const {
        return selectedNote_.empty() ? std::wstring() : rootPrefix_ + selectedNote_;
    }

    // Relative to the root: folders end in "\", a note has no extension. Empty for the alarms' branch; the
    // root itself ("Notes") is empty as well.
    std::wstring RelativePath(platform::TreeItem item) const;
    std::wstring FolderPath(platform::TreeItem item) const { return rootPrefix_ + RelativePath(item); }
    // The folder's name in the store; empty for anything else.
    std::wstring FolderName(platform::TreeItem item) const;
    // The same as it is shown, without its count: a day's long date.
    std::wstring ShownName(platform::TreeItem item) const;
    // Which day the item is the folder of, if any.
    std::optional<store::DayFolder> DayOf(platform::TreeItem item) const;
    std::wstring PathOf(const store::DayFolder& day) const;
    // The item itself, or for a note or an alarm what it lies in.
    platform::TreeItem Container(platform::TreeItem item) const;

    // Reads the folder of a note, or the folder `path` (ending in "\"), again and selects what it names;
    // other branches stay as they are.
    void ReadAgain(const std::wstring& path);
    // Reads the node's folder again; `noteToSelect` is a file name or empty.
    void Fill(platform::TreeItem node, const std::wstring& noteToSelect);
    void ListAlarms();
    platform::TreeItem InsertFolder(platform::TreeItem parent, store::NodeKind kind,
                                    const std::wstring& name);
    void RenameFolder(platform::TreeItem item, const std::wstring& name);
    void RenameNote(platform::TreeItem item, const std::wstring& name);
    // Marks a note if it has a memo now; nothing for any other item.
    void ShowMemoMark(platform::TreeItem item);
    // Shows how many notes the folder or day holds.
    void ShowCount(platform::TreeItem item);
    int CountNotes(platform::TreeItem item) const;
    void Sort(platform::TreeItem parent);

  private:
    struct NodeRecord;
    static int Compare(const NodeRecord& a, const NodeRecord& b);
    const NodeRecord* RecordOf(intptr_t data) const;
    NodeRecord& ChangeRecord(platform::TreeItem item);
    void InsertChildren(platform::TreeItem node);
    platform::TreeItem Insert(platform::TreeItem parent, store::NodeKind kind, bool isFolder,
                              const std::wstring& name);
    void ShowCount(platform::TreeItem item, int count);
    void SetKind(platform::TreeItem item, store::NodeKind kind) {
        tree_.SetImage(item, static_cast<int>(kind));
    }
    void ShowPlain(platform::TreeItem item);
    bool IsAncestor(platform::TreeItem above, platform::TreeItem item) const;
    platform::TreeItem ChildFolder(platform::TreeItem parent, const std::wstring& name) const;
    platform::TreeItem TopOf(const std::wstring& path, std::wstring& rest) const;
    void SelectPath(const std::wstring& path);
    void SelectAndRead(platform::TreeItem item);
    void SelectNote(const std::wstring& fileName);

    platform::TreeView& tree_;
    // By item data; alarm entries carry their notification's handle instead and have none.
    std::unordered_map<intptr_t, std::unique_ptr<NodeRecord>> records_;
    std::wstring rootPrefix_;
    platform::TreeItem notesTop_ = 0;
    platform::TreeItem remindersTop_ = 0;
    platform::TreeItem alarmsTop_ = 0;
    std::wstring selectedNote_;
    bool rebuilding_ = false;
};

}  // namespace manager
