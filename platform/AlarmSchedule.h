#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "platform/Notifications.h"

namespace platform {

// An entry of the notification database as the alarm keeper sees it.
struct ScheduledEntry {
    NotificationHandle handle = 0;
    int64_t start = 0;           // local time as a number that grows with it
    std::vector<uint8_t> bytes;  // as it lies in the database: tells whether it was rewritten
    bool isBeingFired = false;
};

// Which entries are to be fired now. An entry that is due stays in the database until what it is for has
// happened; one that was tried is left alone for some minutes, unless it is rewritten.
class AlarmSchedule {
  public:
    struct Plan {
        std::vector<NotificationHandle> fire;
        std::optional<size_t> next;  // the entry that falls due next
        bool lookAgain = false;      // in kRetryMilliseconds, at something that is due and still there
    };
    static constexpr uint32_t kRetryMilliseconds = 5 * 60 * 1000;

    // `now` is in the unit of the starts, `ticks` are milliseconds of a clock that nobody sets.
    Plan Make(const std::vector<ScheduledEntry>& entries, int64_t now, uint64_t ticks);

  private:
    struct Attempt {
        std::vector<uint8_t> bytes;
        uint64_t ticks = 0;
    };
    std::map<NotificationHandle, Attempt> attempts_;
};

}  // namespace platform
