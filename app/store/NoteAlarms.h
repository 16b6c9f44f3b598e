#pragma once

#include <string>
#include <vector>

#include "platform/Notifications.h"

// The program's own alarms in the operating system's notification database: the only record there is of
// them. An alarm is ours when its application is this program; alarms of others are never touched.
namespace store {

struct NoteAlarm {
    platform::NotificationHandle handle = 0;
    platform::DateTime start;
    std::wstring arguments;  // "<note path>" /alarm
};

// All alarms of the program, in the database's order, under the wait cursor. Entries that can't be read are
// left out; `areAll` then becomes false.
std::vector<NoteAlarm> ScanAlarms(bool* areAll = nullptr);

// The arguments with which the system starts the program for a note's alarm: the note's full path in
// quotation marks, a blank and "/alarm".
std::wstring AlarmArguments(const std::wstring& notePath);
// True for a text that ends as such arguments do, whatever the case.
bool EndAsAlarmArguments(const std::wstring& arguments);
// The note's name without extension; false for arguments that are not a note's alarm.
bool AlarmTitle(const std::wstring& arguments, std::wstring& title);

// The next four are false when the database did not do all of it.

// The note was moved or renamed: its alarms follow.
bool MoveNoteAlarms(const std::wstring& oldPath, const std::wstring& newPath);

// The note is gone: so are its alarms.
bool ClearNoteAlarms(const std::wstring& notePath);

// The same for many notes: `newPaths[i]` is where `oldPaths[i]` is now.
bool MoveNoteAlarms(const std::vector<std::wstring>& oldPaths, const std::vector<std::wstring>& newPaths);

// Clears the alarms whose notes certainly no longer exist: not those of a card that is out or a share that is
// away.
bool RemoveOrphanAlarms();

}  // namespace store
