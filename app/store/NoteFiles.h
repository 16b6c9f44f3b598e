#pragma once

#include <string>
#include <vector>

#include "app/store/DayFolder.h"

// A note with its memo and its alarms as one thing, and folders of such: whatever moves or deletes them does
// it here. Nothing is asked and nothing told; nothing is rolled back, but what a run was ended in, or could
// not do for memo and alarms, the next one tries again (NoteIntent.h). Paths of folders have no "\" at their
// end.
namespace store {

// What becomes of a memo that lies where the note's own is to go: one left behind by another note.
enum class MemoInTheWay { Replace, Keep };

struct NoteMove {
    bool isMoved = false;
    bool memoStayed = false;
    bool alarmsStayed = false;
};

// Moves or renames a note. What lies at `to` goes first if a memo there would be replaced too, else nothing
// may lie there.
NoteMove MoveNoteFiles(const std::wstring& from, const std::wstring& to, MemoInTheWay memoInTheWay);

// Deletes a note. False when its file could not be deleted; memo and alarms then stay with it.
bool DeleteNoteFiles(const std::wstring& notePath);

// Moves or renames a folder; the alarms of all notes in it and below follow them.
bool MoveNoteFolder(const std::wstring& from, const std::wstring& to);

// Deletes a folder with all that is in it. False when something of it stays; the alarms of what is gone are
// cleared in either case.
bool DeleteNoteFolder(const std::wstring& folder);

// The second halves, for files that are already where they are to be: memo and alarms follow. False when one
// of them did not.
NoteMove FollowMovedNote(const std::wstring& from, const std::wstring& to, MemoInTheWay memoInTheWay);
bool FollowDeletedNote(const std::wstring& notePath);
bool FollowMovedFolder(const std::wstring& from, const std::wstring& to);

// Removes the folders of days without notes from the folder of all reminders; one that holds anything stays.
void DropEmptyDays(const std::wstring& reminders, const std::vector<DayFolder>& days);

}  // namespace store
