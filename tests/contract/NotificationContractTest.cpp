#include <gtest/gtest.h>

#include <algorithm>

#include "platform/Notifications.h"
#include "tests/contract/Driver.h"

namespace platform {

namespace {

bool IsListed(NotificationHandle handle) {
    std::vector<NotificationHandle> handles;
    EXPECT_TRUE(ListNotifications(handles));
    return std::find(handles.begin(), handles.end(), handle) != handles.end();
}

NotificationTrigger InTheYear(int year, const std::wstring& arguments) {
    NotificationTrigger trigger;
    trigger.application = L"C:\\Somewhere\\program.exe";
    trigger.arguments = arguments;
    trigger.start = {year, 3, 4, 15, 20, 30, 5, 0};
    trigger.end = trigger.start;
    return trigger;
}

class NotificationContract : public testing::Test {
  protected:
    contract::Driver driver_;
};

TEST_F(NotificationContract, EntriesAreKeptReplacedAndCleared) {
    UserNotification notice;
    notice.showDialog = true;
    notice.dialogTitle = L"Inkwright \u00BB Alarm";
    notice.dialogText = L"one\n\ntwo \u20AC";
    const NotificationHandle handle = SetNotification(0, InTheYear(2099, L"\"\\a b.ikw\" /alarm"), notice);
    const NotificationHandle other = SetNotification(0, InTheYear(2098, L""), {});
    ASSERT_NE(handle, 0u);
    ASSERT_NE(other, 0u);
    ASSERT_NE(handle, other);
    EXPECT_TRUE(IsListed(handle) && IsListed(other));

    NotificationTrigger trigger;
    UserNotification read;
    ASSERT_TRUE(ReadNotification(handle, trigger, read));
    EXPECT_EQ(trigger.application, L"C:\\Somewhere\\program.exe");
    EXPECT_EQ(trigger.arguments, L"\"\\a b.ikw\" /alarm");
    EXPECT_EQ(trigger.start.year, 2099);
    EXPECT_EQ(trigger.start.dayOfWeek, 4) << "kept as it was set, right or wrong";
    EXPECT_EQ(trigger.end.second, 5);
    EXPECT_TRUE(read.showDialog);
    EXPECT_FALSE(read.flashLed);
    EXPECT_EQ(read.dialogTitle, notice.dialogTitle);
    EXPECT_EQ(read.dialogText, notice.dialogText);

    EXPECT_EQ(SetNotification(handle, InTheYear(2097, L"new"), {}), handle);
    ASSERT_TRUE(ReadNotification(handle, trigger, read));
    EXPECT_EQ(trigger.arguments, L"new");
    EXPECT_EQ(trigger.start.year, 2097);
    EXPECT_FALSE(read.showDialog);

    EXPECT_TRUE(ClearNotification(handle));
    EXPECT_FALSE(ClearNotification(handle));
    EXPECT_FALSE(IsListed(handle));
    EXPECT_FALSE(ReadNotification(handle, trigger, read));
    EXPECT_TRUE(IsListed(other));
    EXPECT_TRUE(ClearNotification(other));
}

TEST_F(NotificationContract, NoMomentOfTheCalendarNoEntry) {
    const DateTime good = InTheYear(2099, L"").start;
    int DateTime::*const parts[] = {&DateTime::year, &DateTime::month,  &DateTime::day,
                                    &DateTime::hour, &DateTime::minute, &DateTime::second};
    for (int DateTime::*const part : parts) {
        for (const int value : {-1, 61, 70000}) {
            NotificationTrigger trigger = InTheYear(2099, L"");
            trigger.start.*part = value;
            EXPECT_EQ(SetNotification(0, trigger, {}), 0u) << value;
        }
    }
    NotificationTrigger trigger = InTheYear(2099, L"");
    trigger.start.month = 2;
    trigger.start.day = 30;
    EXPECT_EQ(SetNotification(0, trigger, {}), 0u);
    trigger.start = good;
    trigger.start.hour = 24;
    EXPECT_EQ(SetNotification(0, trigger, {}), 0u);
}

TEST_F(NotificationContract, WhatIsGoneIsNotReplaced) {
    const NotificationHandle handle = SetNotification(0, InTheYear(2099, L"old"), {});
    ASSERT_TRUE(ClearNotification(handle));
    EXPECT_EQ(SetNotification(handle, InTheYear(2099, L"new"), {}), 0u);
    EXPECT_FALSE(IsListed(handle));
}

TEST_F(NotificationContract, EachDeviceHasItsOwn) {
    const NotificationHandle handle = SetNotification(0, InTheYear(2099, L""), {});
    EXPECT_TRUE(IsListed(handle));
    driver_.UseDevice(L"\\");
    EXPECT_TRUE(IsListed(handle));
    driver_.UseDevice(L"2");
    EXPECT_FALSE(IsListed(handle));
    const NotificationHandle other = SetNotification(0, InTheYear(2099, L""), {});
    EXPECT_TRUE(IsListed(other));
    EXPECT_TRUE(ClearNotification(handle) && ClearNotification(other));
}

}  // namespace

}  // namespace platform
