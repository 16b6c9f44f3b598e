#pragma once

#include <string>

#include "platform/DateTime.h"

namespace alarms {

// Enters an alarm for the note into the notification database; false when it could not be set.
bool SetNoteAlarm(const std::wstring& notePath, const platform::DateTime& moment);

// The dialog text that is shown shortly after a note was opened by its alarm.
std::wstring AlarmNoticeText(const std::wstring& notePath);

// Has the system show that notice ten seconds from now.
void PostAlarmNotice(const std::wstring& notePath);

}  // namespace alarms
