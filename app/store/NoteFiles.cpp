#include "app/store/NoteFiles.h"

#include "app/store/NoteAlarms.h"
#include "app/store/NoteIntent.h"
#include "app/store/SafeFile.h"
#include "app/store/StorePaths.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"

namespace store {

namespace {

bool MemoStays(const std::wstring& from, const std::wstring& to, MemoInTheWay memoInTheWay) {
    if (!IsFile(from)) return false;
    if (memoInTheWay == MemoInTheWay::Replace && IsFile(to)) platform::EraseFile(to);
    if (platform::MoveEntry(from, to)) return false;
    // A copy will do, if it is the only one in the end.
    if (IsFile(to) || !CopySafely(from, to)) return true;
    if (platform::EraseFile(from)) return false;
    platform::EraseFile(to);
    return true;
}

// All notes in a folder and below, as they were under its old name and as they are now.
// False when a folder could not be read.
bool CollectNotes(const std::wstring& oldFolder, const std::wstring& newFolder,
                  std::vector<std::wstring>& oldPaths, std::vector<std::wstring>& newPaths) {
    std::vector<platform::FolderEntry> entries;
    bool areAll = platform::ListFolder(newFolder, L"*.*", entries);
    for (const platform::FolderEntry& entry : entries) {
        const std::wstring oldPath = oldFolder + L"\\" + entry.name;
        const std::wstring newPath = newFolder + L"\\" + entry.name;
        if (entry.isFolder) {
            areAll = CollectNotes(oldPath, newPath, oldPaths, newPaths) && areAll;
        } else if (EndsWithNoCase(entry.name, kNoteExtension)) {
            oldPaths.push_back(oldPath);
            newPaths.push_back(newPath);
        }
    }
    return areAll;
}

// Ends at the first entry that can't be deleted; counts those before.
bool DeleteTree(const std::wstring& folder, size_t& deleted) {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(folder, L"*.*", entries);
    for (const platform::FolderEntry& entry : entries) {
        const std::wstring path = folder + L"\\" + entry.name;
        if (!(entry.isFolder ? DeleteTree(path, deleted) : platform::EraseFile(path))) return false;
        ++deleted;
    }
    return platform::DropFolder(folder);
}

}  // namespace

NoteMove MoveNoteFiles(const std::wstring& from, const std::wstring& to, MemoInTheWay memoInTheWay) {
    const bool replaces = memoInTheWay == MemoInTheWay::Replace;
    NoteIntent intent(replaces ? NoteIntent::Kind::ReplaceNote : NoteIntent::Kind::MoveNote, from, to);
    if (replaces && IsFile(to)) platform::EraseFile(to);
    if (!platform::MoveEntry(from, to)) return {};
    const NoteMove move = FollowMovedNote(from, to, memoInTheWay);
    const bool isInTheWay = !replaces && IsFile(MemoPath(to));
    if ((move.memoStayed && !isInTheWay) || move.alarmsStayed) intent.LeaveOpen();
    return move;
}

NoteMove FollowMovedNote(const std::wstring& from, const std::wstring& to, MemoInTheWay memoInTheWay) {
    const bool alarmsFollow = MoveNoteAlarms(from, to);
    return {true, MemoStays(MemoPath(from), MemoPath(to), memoInTheWay), !alarmsFollow};
}

bool DeleteNoteFiles(const std::wstring& notePath) {
    NoteIntent intent(NoteIntent::Kind::DeleteNote, notePath, L"");
    if (!platform::EraseFile(notePath)) return false;
    if (!FollowDeletedNote(notePath)) intent.LeaveOpen();
    return true;
}

bool FollowDeletedNote(const std::wstring& notePath) {
    const bool areAlarmsGone = ClearNoteAlarms(notePath);
    const std::wstring memo = MemoPath(notePath);
    return (platform::EraseFile(memo) || !IsFile(memo)) && areAlarmsGone;
}

bool MoveNoteFolder(const std::wstring& from, const std::wstring& to) {
    NoteIntent intent(NoteIntent::Kind::MoveFolder, from, to);
    if (!platform::MoveEntry(from, to)) return false;
    if (!FollowMovedFolder(from, to)) intent.LeaveOpen();
    return true;
}

bool FollowMovedFolder(const std::wstring& from, const std::wstring& to) {
    const platform::WaitCursor wait;
    std::vector<std::wstring> oldPaths;
    std::vector<std::wstring> newPaths;
    const bool areListed = CollectNotes(from, to, oldPaths, newPaths);
    return areListed && (oldPaths.empty() || MoveNoteAlarms(oldPaths, newPaths));
}

bool DeleteNoteFolder(const std::wstring& folder) {
    const platform::WaitCursor wait;
    NoteIntent intent(NoteIntent::Kind::DeleteFolder, folder, L"");
    size_t deleted = 0;
    const bool isGone = DeleteTree(folder, deleted);
    // A memo may have lost its note.
    if (!RemoveOrphanAlarms() || (!isGone && deleted > 0)) intent.LeaveOpen();
    return isGone;
}

void DropEmptyDays(const std::wstring& reminders, const std::vector<DayFolder>& days) {
    for (const DayFolder& day : days) platform::DropFolder(WithBackslash(reminders) + day.Name());
}

}  // namespace store
