#include "app/store/NoteFiles.h"

#include "app/store/NoteAlarms.h"
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
    if (!platform::MoveEntry(from, to)) return {};
    MoveNoteAlarms(from, to);
    return {true, MemoStays(MemoPath(from), MemoPath(to), memoInTheWay)};
}

bool DeleteNoteFiles(const std::wstring& notePath) {
    if (!platform::EraseFile(notePath)) return false;
    ClearNoteAlarms(notePath);
    platform::EraseFile(MemoPath(notePath));
    return true;
}

bool MoveNoteFolder(const std::wstring& from, const std::wstring& to) {
    if (!platform::MoveEntry(from, to)) return false;
    const platform::WaitCursor wait;
    std::vector<std::wstring> oldPaths;
    std::vector<std::wstring> newPaths;
    CollectNotes(from, to, oldPaths, newPaths);
    if (!oldPaths.empty()) MoveNoteAlarms(oldPaths, newPaths);
    return true;
}

bool DeleteNoteFolder(const std::wstring& folder) {
    const platform::WaitCursor wait;
    const bool isGone = DeleteTree(folder);
    RemoveOrphanAlarms();
    return isGone;
}

void DropEmptyDays(const std::wstring& reminders, const std::vector<DayFolder>& days) {
    for (const DayFolder& day : days) platform::DropFolder(WithBackslash(reminders) + day.Name());
}

}  // namespace store
