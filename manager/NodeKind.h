#pragma once

// A tree item's image tells what it is; there is no other mark.
namespace manager {

enum NodeKind : int {
    kNotesTop = 0,
    kFolder = 1,
    kOpenFolder = 2,  // expanded, its notes counted
    kNote = 3,
    kRemindersTop = 4,
    kDay = 5,  // a day's folder of reminders
    kOpenDay = 6,
    kReminder = 7,  // a note in a day's folder
    kAlarmsTop = 10,
    kAlarm = 11,
};

// Further images of the same strip.
constexpr int kComingDayImage = 7;  // calendar: notes on today or a later day
constexpr int kPastDayImage = 8;
constexpr int kTodayImage = 9;
constexpr int kMemoOverlayImage = 12;
constexpr int kMemoMarkImage = 13;

inline bool IsNoteKind(int kind) { return kind == kNote || kind == kReminder; }
inline bool IsFolderKind(int kind) { return kind == kFolder || kind == kOpenFolder; }
inline bool IsDayKind(int kind) { return kind == kDay || kind == kOpenDay; }

}  // namespace manager
