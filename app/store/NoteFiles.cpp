#include "app/store/NoteFiles.h"

#include "app/store/NoteAlarms.h"
#include "app/store/NoteIntent.h"
#include "app/store/StorePaths.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"

namespace store {

namespace {

bool MemoStays(const std::wstring& from, const std::wstring& to, MemoInTheWay memoInTheWay) {
    if (!IsFile(from)) return false;
    if (memoInTheWay == MemoInTheWay::Replace && IsFile(to)) platform::EraseFile(to);
    return !platform::MoveEntry(from, to);
}

// All notes in a folder and below, as they were under its old name and as they are now.
void CollectNotes(const std::wstring& oldFolder, const std::wstring& newFolder,
                  std::vector<std::wstring>& oldPaths, std::vector<std::wstring>& newPaths) {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(newFolder, L"*.*", entries);
    for (const platform::FolderEntry& entry : entries) {
        const std::wstring oldPath = oldFolder + L"\\" + entry.name;
        const std::wstring newPath = newFolder + L"\\" + entry.name;
        if (entry.isFolder) {
            CollectNotes(oldPath, newPath, oldPaths, newPaths);
        } else if (EndsWithNoCase(entry.name, kNoteExtension)) {
            oldPaths.push_back(oldPath);
            newPaths.push_back(newPath);
        }
    }
}

// Ends at the first entry that can't be deleted.
bool DeleteTree(const std::wstring& folder) {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(folder, L"*.*", entries);
    for (const platform::FolderEntry& entry : entries) {
        const std::wstring path = folder + L"\\" + entry.name;
        if (!(entry.isFolder ? DeleteTree(path) : platform::EraseFile(path))) return false;
    }
    return platform::DropFolder(folder);
}

}  // namespace

NoteMove MoveNoteFiles(const std::wstring& from, const std::wstring& to, MemoInTheWay memoInTheWay) {
    const bool replaces = memoInTheWay == MemoInTheWay::Replace;
    const NoteIntent intent(replaces ? NoteIntent::Kind::ReplaceNote : NoteIntent::Kind::MoveNote, from, to);
    if (replaces && IsFile(to)) platform::EraseFile(to);
    if (!platform::MoveEntry(from, to)) return {};
    return {true, FollowMovedNote(from, to, memoInTheWay)};
}

bool FollowMovedNote(const std::wstring& from, const std::wstring& to, MemoInTheWay memoInTheWay) {
    MoveNoteAlarms(from, to);
    return MemoStays(MemoPath(from), MemoPath(to), memoInTheWay);
}

bool DeleteNoteFiles(const std::wstring& notePath) {
    const NoteIntent intent(NoteIntent::Kind::DeleteNote, notePath, L"");
    if (!platform::EraseFile(notePath)) return false;
    FollowDeletedNote(notePath);
    return true;
}

void FollowDeletedNote(const std::wstring& notePath) {
    ClearNoteAlarms(notePath);
    platform::EraseFile(MemoPath(notePath));
}

bool MoveNoteFolder(const std::wstring& from, const std::wstring& to) {
    const NoteIntent intent(NoteIntent::Kind::MoveFolder, from, to);
    if (!platform::MoveEntry(from, to)) return false;
    FollowMovedFolder(from, to);
    return true;
}

void FollowMovedFolder(const std::wstring& from, const std::wstring& to) {
    const platform::WaitCursor wait;
    std::vector<std::wstring> oldPaths;
    std::vector<std::wstring> newPaths;
    CollectNotes(from, to, oldPaths, newPaths);
    if (!oldPaths.empty()) MoveNoteAlarms(oldPaths, newPaths);
}

bool DeleteNoteFolder(const std::wstring& folder) {
    const platform::WaitCursor wait;
    const NoteIntent intent(NoteIntent::Kind::DeleteFolder, folder, L"");
    const bool isGone = DeleteTree(folder);
    RemoveOrphanAlarms();
    return isGone;
}

void DropEmptyDays(const std::wstring& reminders, const std::vector<DayFolder>& days) {
    for (const DayFolder& day : days) platform::DropFolder(WithBackslash(reminders) + day.Name());
}

}  // namespace store
