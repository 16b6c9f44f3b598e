#pragma once

#include "app/store/NodeKind.h"

namespace manager {

using store::NodeKind;

// What the manager shows, as far as it decides which commands there are.
struct Situation {
    bool calendarMode = false;
    bool showsCurrentMonth = false;  // calendar mode
    NodeKind kind = NodeKind::None;  // tree mode: of the selected node
    bool hasFolders = false;         // folders are listed that a note could go to
};

inline bool InTree(const Situation& now) { return !now.calendarMode; }
inline bool InCalendar(const Situation& now) { return now.calendarMode; }
inline bool InOtherMonth(const Situation& now) { return now.calendarMode && !now.showsCurrentMonth; }
inline bool OnNote(const Situation& now) { return IsNoteKind(now.kind); }
inline bool OnFolderNote(const Situation& now) { return now.kind == NodeKind::Note; }
inline bool OnReminder(const Situation& now) { return now.kind == NodeKind::Reminder; }
inline bool OnFolder(const Situation& now) { return IsFolderKind(now.kind); }
inline bool OnAnyFolder(const Situation& now) { return IsFolderKind(now.kind) || IsDayKind(now.kind); }
inline bool OnAlarms(const Situation& now) { return now.kind == NodeKind::AlarmsTop; }
inline bool OnAlarm(const Situation& now) { return now.kind == NodeKind::Alarm; }
inline bool CanAddNote(const Situation& now) {
    return OnNote(now) || OnAnyFolder(now) || now.kind == NodeKind::RemindersTop;
}
inline bool CanDelete(const Situation& now) { return OnNote(now) || OnAnyFolder(now) || OnAlarm(now); }
inline bool CanRename(const Situation& now) { return OnNote(now) || now.kind == NodeKind::OpenFolder; }
inline bool CanCreateFolder(const Situation& now) {
    return InTree(now) && (now.kind == NodeKind::None || now.kind == NodeKind::NotesTop || OnFolder(now) ||
                           OnFolderNote(now));
}
inline bool CanMoveToFolder(const Situation& now) { return OnReminder(now) && now.hasFolders; }

}  // namespace manager
