#pragma once

#include <string>
#include <vector>

#include "platform/Notifications.h"

// The program's own alarms in the operating system's notification database: the only record there is of
// them. An alarm is ours when its application is this program; alarms of others are never touched.
namespace alarms {

struct NoteAlarm {
    platform::NotificationHandle handle = 0;
    platform::DateTime start;
    std::wstring arguments;  // "<note path>" /alarm
};

// All alarms of the program, in the database's order, under the wait cursor. Entries that can't be read are
// left out.
std::vector<NoteAlarm> ScanAlarms();

// The note's name without extension; false for arguments that are not a note's alarm.
bool AlarmTitle(const std::wstring& arguments, std::wstring& title);

// The note was moved or renamed: its alarms follow.
void MoveNoteAlarms(const std::wstring& oldPath, const std::wstring& newPath);

// The note is gone: so are its alarms.
void ClearNoteAlarms(const std::wstring& notePath);

// Alarms with these arguments (lower case) get those at the same place of `newArguments`.
void MoveAlarms(const std::vector<std::wstring>& oldArguments, const std::vector<std::wstring>& newArguments);

// Clears the alarms whose notes certainly no longer exist: not those of a card that is out or a share that is
// away.
void RemoveOrphanAlarms();

}  // namespace alarms
