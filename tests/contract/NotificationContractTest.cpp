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

NotificationTrigger InTheYear(int year, const std::wstring& arguments = L"") {
    const DateTime start{year, 3, 4, 15, 20, 30, 5, 0};
    return {L"C:\\Somewhere\\program.exe", arguments, start, start};
}

class NotificationContract : public Contract {};

TEST_F(NotificationContract, EntriesAreKeptReplacedAndCleared) {
    const NotificationHandle other = SetNotification(0, InTheYear(2098), {});
    const NotificationHandle handle = SetNotification(0, InTheYear(2099, L"\"\\a b.ikw\""),
                                                      {false, true, L"Inkwright \u00BB", L"\n\n\u20AC"});
    ASSERT_TRUE(handle != 0 && other != 0 && handle != other);

    NotificationTrigger trigger;
    UserNotification read;
    ASSERT_TRUE(platform::ReadNotification(handle, trigger, read));
    EXPECT_EQ(trigger.application + trigger.arguments, L"C:\\Somewhere\\program.exe\"\\a b.ikw\"");
    EXPECT_EQ(trigger.start.year * 100 + trigger.start.dayOfWeek, 209904) << "kept as set, right or wrong";
    EXPECT_EQ(trigger.end.second, 5);
    EXPECT_TRUE(read.showDialog && !read.flashLed);
    EXPECT_EQ(read.dialogTitle + read.dialogText, L"Inkwright \u00BB\n\n\u20AC");

    EXPECT_EQ(SetNotification(handle, InTheYear(2097, L"new"), {}), handle);
    ASSERT_TRUE(platform::ReadNotification(handle, trigger, read));
    EXPECT_TRUE(trigger.arguments == L"new" && !read.showDialog);

    EXPECT_TRUE(ClearNotification(handle));
    EXPECT_FALSE(ClearNotification(handle) || IsListed(handle) ||
                 platform::ReadNotification(handle, trigger, read));
    EXPECT_EQ(SetNotification(handle, InTheYear(2099), {}), 0u) << "what is gone is not replaced";
    EXPECT_TRUE(IsListed(other) && ClearNotification(other));
}

TEST_F(NotificationContract, NoMomentOfTheCalendarNoEntry) {
    for (int DateTime::*const part : {&DateTime::year, &DateTime::month, &DateTime::day, &DateTime::hour,
                                      &DateTime::minute, &DateTime::second}) {
        for (const int value : {-1, 61, 70000}) {
            NotificationTrigger trigger = InTheYear(2099);
            trigger.start.*part = value;
            EXPECT_EQ(SetNotification(0, trigger, {}), 0u) << value;
        }
    }
}

TEST_F(NotificationContract, EachDeviceHasItsOwn) {
    const NotificationHandle handle = SetNotification(0, InTheYear(2099), {});
    for (const auto& [device, isOwn] : {std::pair{L"\\", true}, {L"2", false}}) {
        device_.BecomeDevice(device);
        EXPECT_EQ(IsListed(handle), isOwn);
    }
    EXPECT_TRUE(ClearNotification(handle));
}

}  // namespace

}  // namespace contract
