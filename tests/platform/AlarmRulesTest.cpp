#include <gmock/gmock.h>

#include "platform/keeper/AlarmSchedule.h"
#include "platform/keeper/NoticePlace.h"
#include "platform/windows/NotificationEntry.h"

namespace platform::windows {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(AlarmSchedule, WhatIsDueIsFiredOnceAndTriedAgainInMinutes) {
    constexpr uint64_t kRetry = AlarmSchedule::kRetryMilliseconds;
    AlarmSchedule schedule;
    std::vector<ScheduledEntry> entries{{1, 90, {1}, false},
                                        {2, 100, {2}, false},
                                        {3, 130, {3}, false},
                                        {4, 120, {4}, false},
                                        {5, 80, {5}, true}};
    const AlarmSchedule::Plan plan = schedule.Make(entries, 100, 1000);
    EXPECT_THAT(plan.fire, ElementsAre(1, 2)) << "another process is at the last one";
    EXPECT_EQ(plan.next, 3u);
    EXPECT_TRUE(plan.lookAgain);
    entries[1].isBeingFired = true;
    EXPECT_THAT(schedule.Make(entries, 100, 1001).fire, IsEmpty());
    entries[1].isBeingFired = false;
    EXPECT_THAT(schedule.Make(entries, 100, 1000 + kRetry - 1).fire, IsEmpty());
    entries[0].bytes = {9};
    EXPECT_THAT(schedule.Make(entries, 100, 1000 + kRetry - 1).fire, ElementsAre(1)) << "it was rewritten";
    EXPECT_THAT(schedule.Make(entries, 100, 1000 + kRetry).fire, ElementsAre(2));
    entries[4].isBeingFired = false;
    EXPECT_THAT(schedule.Make(entries, 100, 1000 + kRetry).fire, ElementsAre(5)) << "that process is gone";
    const AlarmSchedule::Plan idle = schedule.Make({entries[2]}, 100, 1000);
    EXPECT_FALSE(idle.lookAgain);
    EXPECT_EQ(idle.next, 0u);
    EXPECT_FALSE(schedule.Make({}, 100, 1000).next);
}

NotificationEntry Sample() {
    NotificationEntry entry;
    entry.trigger = {L"C:\\p.exe", L"\"\\a.ikw\" /alarm", {2099, 3, 4, 15, 20, 30, 5, 0}, {}};
    entry.notification = {true, false, L"title", L"text \u20AC"};
    entry.device = L"D:\\Device";
    entry.screen = L"240x320";
    return entry;
}

TEST(NotificationEntry, KeepsWhatItWasSetUnder) {
    NotificationEntry read;
    const std::vector<uint8_t> whole = EncodeEntry(Sample());
    ASSERT_TRUE(DecodeEntry(whole, read));
    EXPECT_EQ(EncodeEntry(read), whole);
    EXPECT_EQ(read.device + read.screen + read.notification.dialogText, L"D:\\Device240x320text \u20AC");
    EXPECT_EQ(read.trigger.start.second, 5);
    for (size_t length = 0; length <= whole.size(); ++length) {
        std::vector<uint8_t> part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        if (length == whole.size()) part.push_back(0);
        EXPECT_FALSE(DecodeEntry(part, read)) << length;
        // What earlier releases wrote ends before the screen.
        if (!part.empty()) part[0] = 1;
        EXPECT_EQ(DecodeEntry(part, read), length == whole.size() - 4 - 2 * 7) << length;
    }
    for (size_t at = 0; at < whole.size(); ++at) {
        for (const int value : {0x00, 0x7F, 0xFF}) {
            std::vector<uint8_t> damaged = whole;
            damaged[at] = static_cast<uint8_t>(value);
            DecodeEntry(damaged, read);  // whatever it says: no crash, no endless text
        }
    }
}

TEST(NoticePlace, NoticesStackAndThenStandBeside) {
    const Rect work{0, 0, 700, 500};
    std::vector<Rect> shown;
    const auto put = [&](int height) {
        const Point place = PlaceNotice(work, 300, height, shown);
        shown.push_back({place.x, place.y, place.x + 300, place.y + height});
        return place;
    };
    EXPECT_EQ(put(200), (Point{386, 286}));
    EXPECT_EQ(put(200), (Point{386, 72}));
    EXPECT_EQ(put(400), (Point{72, 86}));
    EXPECT_EQ(put(40), (Point{386, 18}));
    EXPECT_EQ(put(40), (Point{72, 32})) << "the highest free place of the next column";
    const Point full = put(400);
    EXPECT_NE(full, put(400)) << "one never hides another whole";
    EXPECT_GE(PlaceNotice(work, 300, 900, {}).y, 0);
}

}  // namespace

}  // namespace platform::windows
