#include <algorithm>

#include "platform/Notifications.h"
#include "platform/RegistryKey.h"
#include "tests/contract/OnDevice.h"

using namespace contract;
using namespace platform;

namespace {

bool IsListed(NotificationHandle handle) {
    std::vector<NotificationHandle> handles;
    EXPECT_TRUE(ListNotifications(handles));
    return std::find(handles.begin(), handles.end(), handle) != handles.end();
}

NotificationTrigger InTheYear(int year, const std::wstring& arguments = L"") {
    const DateTime start{year, 3, 4, 15, 20, 30, 5, 0};
    return {L"C:\\Somewhere\\program.exe", arguments, start, start};
}

using NotificationContract = DeviceContract;

TEST_F(NotificationContract, EntriesAreKeptReplacedAndCleared) {
    const NotificationHandle other = SetNotification(0, InTheYear(2098), {});
    const NotificationHandle handle = SetNotification(0, InTheYear(2099, L"\"\\a b.ikw\""),
                                                      {false, true, L"Inkwright \u00BB", L"\n\n\u20AC"});
    ASSERT_TRUE(handle != 0 && other != 0 && handle != other);
    NotificationTrigger trigger;
    UserNotification read;
    ASSERT_TRUE(ReadNotification(handle, trigger, read));
    EXPECT_EQ(trigger.application + trigger.arguments, L"C:\\Somewhere\\program.exe\"\\a b.ikw\"");
    EXPECT_EQ(trigger.start.year * 100 + trigger.start.dayOfWeek, 209904) << "kept as set, right or wrong";
    EXPECT_TRUE(trigger.end.second == 5 && read.showDialog && !read.flashLed);
    EXPECT_EQ(read.dialogTitle + read.dialogText, L"Inkwright \u00BB\n\n\u20AC");

    EXPECT_EQ(SetNotification(handle, InTheYear(2097, L"new"), {}), handle);
    ASSERT_TRUE(ReadNotification(handle, trigger, read));
    EXPECT_TRUE(trigger.arguments == L"new" && !read.showDialog);

    EXPECT_TRUE(ClearNotification(handle));
    EXPECT_FALSE(ClearNotification(handle) || IsListed(handle) || ReadNotification(handle, trigger, read));
    EXPECT_EQ(SetNotification(handle, InTheYear(2099), {}), 0u) << "what is gone is not replaced";
    EXPECT_TRUE(IsListed(other) && ClearNotification(other));
    for (int DateTime::*const part : {&DateTime::month, &DateTime::day, &DateTime::hour, &DateTime::second}) {
        trigger.start.*part += 61;
        EXPECT_EQ(SetNotification(0, trigger, {}), 0u) << "no moment of the calendar";
        trigger.start.*part -= 61;
    }
}

using RegistryContract = DeviceContract;

TEST_F(RegistryContract, ValuesReadAsNumbersAndTexts) {
    const struct {
        std::optional<std::wstring> text;  // else the number
        uint32_t number;
        bool isNumber;
        std::wstring readText;
    } kCases[] = {{{}, 0x00420041, true, L"AB"},  // no terminator in the data
                  {L"A", 0x41, true, L"A"},
                  {L"", 0, true, L""},  // two bytes leave the others zero
                  {L"%FN \u00FC", 0, false, L"%FN \u00FC"}};
    RegistryKey key = RegistryKey::OpenUser(kTestKey);
    for (const RegistryType type : {RegistryType::Number, RegistryType::Binary, RegistryType::Text}) {
        for (const auto& [stored, expected, isNumber, expectedText] : kCases) {
            if (!stored && type == RegistryType::Text) continue;  // a system may add a terminator
            ASSERT_TRUE(stored ? key.SetText(L"Value", type, *stored)
                               : key.SetNumber(L"Value", type, expected));
            const RegistryKey again = RegistryKey::OpenUser(kTestKey);
            uint32_t number = 0;
            std::wstring text;
            EXPECT_EQ(again.QueryNumber(L"Value", number), isNumber);
            EXPECT_EQ(number, expected);
            EXPECT_TRUE(again.QueryText(L"Value", expectedText.size() + 1, text));
            EXPECT_EQ(text, expectedText);
            EXPECT_TRUE(!stored || text.empty() || !again.QueryText(L"Value", text.size(), text));
        }
    }
    uint32_t number = 77;
    std::wstring text;
    EXPECT_TRUE(key.Remove(L"Value"));
    EXPECT_FALSE(key.Remove(L"Value") || key.QueryNumber(L"Value", number) ||
                 key.QueryText(L"Value", 9, text));
    EXPECT_EQ(number, 77u) << "a failed query leaves the value alone";
    EXPECT_FALSE(RegistryKey::OpenMachine(kTestKey).IsOpen()) << "machine keys are not made";
}

}  // namespace
