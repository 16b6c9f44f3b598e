#include "platform/AlarmSchedule.h"

#include <utility>

namespace platform {

AlarmSchedule::Plan AlarmSchedule::Make(const std::vector<ScheduledEntry>& entries, int64_t now,
                                        uint64_t ticks) {
    Plan plan;
    std::map<NotificationHandle, Attempt> attempts;
    for (size_t i = 0; i < entries.size(); ++i) {
        const ScheduledEntry& entry = entries[i];
        if (entry.start > now) {
            if (!plan.next || entry.start < entries[*plan.next].start) plan.next = i;
            continue;
        }
        plan.lookAgain = true;
        const auto tried = attempts_.find(entry.handle);
        const bool isFresh = tried != attempts_.end() && tried->second.bytes == entry.bytes &&
                             ticks - tried->second.ticks < kRetryMilliseconds;
        if (isFresh) attempts[entry.handle] = tried->second;
        if (isFresh || entry.isBeingFired) continue;
        attempts[entry.handle] = {entry.bytes, ticks};
        plan.fire.push_back(entry.handle);
    }
    attempts_ = std::move(attempts);
    return plan;
}

}  // namespace platform
