#pragma once

namespace store {

// What an item of the manager's tree stands for. A tree item's image is its kind; there is no other mark.
// The numbers are places in the strip of pictures.
enum class NodeKind : int {
    None = -1,
    NotesTop = 0,
    Folder = 1,
    OpenFolder = 2,  // expanded, its notes counted
    Note = 3,
    RemindersTop = 4,
    Day = 5,  // a day's folder of reminders
    OpenDay = 6,
    Reminder = 7,  // a note in a day's folder
    AlarmsTop = 10,
    Alarm = 11,
};

inline bool IsNoteKind(NodeKind kind) { return kind == NodeKind::Note || kind == NodeKind::Reminder; }
inline bool IsFolderKind(NodeKind kind) { return kind == NodeKind::Folder || kind == NodeKind::OpenFolder; }
inline bool IsDayKind(NodeKind kind) { return kind == NodeKind::Day || kind == NodeKind::OpenDay; }

}  // namespace store
