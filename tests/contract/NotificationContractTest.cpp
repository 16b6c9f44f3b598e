#include <algorithm>

#include "platform/Notifications.h"
#include "tests/contract/Recording.h"

namespace contract {

namespace {

using platform::ClearNotification;
using platform::DateTime;
using platform::NotificationHandle;
using platform::NotificationTrigger;
using platform::SetNotification;
using platform::UserNotification;

bool IsListed(NotificationHandle handle) {
    std::vector<NotificationHandle> handles;
    EXPECT_TRUE(platform::ListNotifications(handles));
    return std::find(handles.begin(), handles.end(), handle) != handles.end();
}

NotificationTrigger InTheYear(int year, const std::wstring& arguments) {
    const DateTime start{year, 3, 4, 15, 20, 30, 5, 0};
    return {L"C:\\Somewhere\\program.exe", arguments, start, start};
}

class NotificationContract : public Contract {};

TEST_F(NotificationContract, EntriesAreKeptReplacedAndCleared) {
    UserNotification notice;
    notice.showDialog = true;
    notice.dialogTitle = L"Inkwright \u00BB Alarm";
    notice.dialogText = L"one\n\ntwo \u20AC";
    const NotificationHandle other = SetNotification(0, InTheYear(2098, L""), {});
    const NotificationHandle handle = SetNotification(0, InTheYear(2099, L"\"\\a b.ikw\" /alarm"), notice);
    ASSERT_TRUE(handle != 0 && other != 0 && handle != other);

    NotificationTrigger trigger;
    UserNotification read;
    ASSERT_TRUE(platform::ReadNotification(handle, trigger, read));
    EXPECT_EQ(trigger.application, L"C:\\Somewhere\\program.exe");
    EXPECT_EQ(trigger.arguments, L"\"\\a b.ikw\" /alarm");
    EXPECT_EQ(trigger.start.year * 100 + trigger.start.dayOfWeek, 209904)
        << "kept as it was set, right or wrong";
    EXPECT_EQ(trigger.end.second, 5);
    EXPECT_TRUE(read.showDialog && !read.flashLed);
    EXPECT_EQ(read.dialogTitle + read.dialogText, notice.dialogTitle + notice.dialogText);

    EXPECT_EQ(SetNotification(handle, InTheYear(2097, L"new"), {}), handle);
    ASSERT_TRUE(platform::ReadNotification(handle, trigger, read));
    EXPECT_EQ(trigger.arguments, L"new");
    EXPECT_FALSE(read.showDialog);

    EXPECT_TRUE(ClearNotification(handle));
    EXPECT_FALSE(ClearNotification(handle) || IsListed(handle) ||
                 platform::ReadNotification(handle, trigger, read));
    EXPECT_EQ(SetNotification(handle, InTheYear(2099, L"new"), {}), 0u) << "what is gone is not replaced";
    EXPECT_TRUE(IsListed(other) && ClearNotification(other));
}

TEST_F(NotificationContract, NoMomentOfTheCalendarNoEntry) {
    int DateTime::*const parts[] = {&DateTime::year, &DateTime::month,  &DateTime::day,
                                    &DateTime::hour, &DateTime::minute, &DateTime::second};
    for (int DateTime::*const part : parts) {
        for (const int value : {-1, 61, 70000}) {
            NotificationTrigger trigger = InTheYear(2099, L"");
            trigger.start.*part = value;
            EXPECT_EQ(SetNotification(0, trigger, {}), 0u) << value;
        }
    }
}

TEST_F(NotificationContract, EachDeviceHasItsOwn) {
    const NotificationHandle handle = SetNotification(0, InTheYear(2099, L""), {});
    for (const auto& [device, isOwn] : {std::pair{L"\\", true}, {L"2", false}}) {
        device_.BecomeDevice(device);
        EXPECT_EQ(IsListed(handle), isOwn);
    }
    const NotificationHandle other = SetNotification(0, InTheYear(2099, L""), {});
    EXPECT_TRUE(IsListed(other) && ClearNotification(handle) && ClearNotification(other));
}

}  // namespace

}  // namespace contract
