#include "alarms/NoteAlarm.h"
#include "platform/Locale.h"
#include "tests/editor/EditorRig.h"

namespace {

using namespace testing_support;

class Alarm : public EditorTest {};

// The dialog proposes the set number of minutes from now, and begins with the alarm that a note is to get.
TEST_F(Alarm, SetAlarmAndExitNamesTheNoteClosesAndSchedules) {
    device.SetSetting(L"RootDirPath", L"\\Ink");
    device.SetSetting(L"AlarmTimeOffset", 90);
    device.now = {2007, 3, 1, 5, 23, 10, 45, 0};
    const auto expectPicked = [this](const std::wstring& moment) {
        return [=] {
            for (const int item : {IDC_ALARM_DATE, IDC_ALARM_TIME})
                EXPECT_EQ(platform::DateAndTime(Dialog().PickedDate(item)), moment);
        };
    };
    const Step pick = [this] {
        EXPECT_NEAR(Dialog().WindowRect().left + Dialog().WindowRect().right, 240, 1) << "in the middle";
        Dialog().SetPicked(IDC_ALARM_DATE, {2007, 4, 0, 9, 1, 2, 3, 0});
        Dialog().SetPicked(IDC_ALARM_TIME, {2006, 5, 0, 8, 7, 40, 30, 99});
    };
    Run(kNewNotes,
        {Write({{30, 100}}), Picked({L"Set Alarm and Exit"}), Press(IDM_TOOLS),
         expectPicked(L"3/6/2007 12:40:00 AM"), pick, Press(platform::kIdCancel), Press(IDM_SET_ALARM),
         expectPicked(L"3/6/2007 12:40:00 AM"), pick, Ok(), ExpectTitle(L" Inkwright - Save As"),
         ExpectBox(L"Alarm is successfully set!", L" 4/9/2007 7:40:30 AM"), Ok()});
    ASSERT_EQ(device.notifications.size(), 1u);
    const platform::NotificationTrigger& trigger = device.notifications.begin()->second.trigger;
    EXPECT_EQ(trigger.application, L"C:\\Program Files\\Inkwright\\inkwright.exe");
    EXPECT_EQ(trigger.arguments, L"\"" + std::wstring(kNewNotes) + L"New Notes 2007-03-05.ikw\" /alarm");
    for (const platform::DateTime& at : {trigger.start, trigger.end}) {
        EXPECT_EQ(platform::DateAndTime(at), L"4/9/2007 7:40:30 AM");
        EXPECT_TRUE(at.dayOfWeek == 2 && at.milliseconds == 0) << "Monday's stamp digit as it stands";
    }
    Run(L"/newalarm 200703515203000", {Press(IDM_SET_ALARM), expectPicked(L"3/15/2007 8:30:00 PM"), Ok()});
    Run(L"/newalarm 200702530203000", {Press(IDM_SET_ALARM), expectPicked(L"3/6/2007 12:40:00 AM"), Ok()});
}

// Nor is one set for a note without a file: nothing was written, or it was given up.
TEST_F(Alarm, AnAlarmThatNothingWillFireIsReported) {
    device.SetSetting(L"RootDirPath", L"\\Ink");
    const std::pair<std::wstring, std::wstring> kCases[] = {{L"200703515203000", L" 3/15/2007 8:30:00 PM"},
                                                            {L"200702530203000", L" "}};
    for (const auto& [stamp, caption] : kCases) {
        device.keeperCantStart = caption != L" ";
        Run(L"/newalarm " + stamp,
            {Write({{30, 100}}), Ok(), ExpectBox(L"Setting alarm failed!", caption), Ok()});
    }
    device.keeperCantStart = false;
    Run(L"/newalarm 200703515203000", {Ok()});
    Run(L"/newalarm 200703515203000",
        {Write({{30, 100}}), Ok(),
         ExpectDiscard(L"\\Ink\\New Notes\\New Notes 2007-03-05 (2).ikw", platform::MessageAnswer::Yes),
         Press(platform::kIdCancel)});
    EXPECT_TRUE(device.notifications.empty());
}

TEST_F(Alarm, ANoteOpenedByItsAlarmPostsANotice) {
    const std::wstring path = L"\\My Documents\\Inkwright\\Reminders\\2007-03-05\\Call.ikw";
    device.files.Put(path, Words({5, 0, 0, kViewHeight}));
    device.now = {2007, 3, 1, 5, 23, 59, 55, 0};
    Run(L"\"" + path + L"\" /alarm", {Ok()});
    ASSERT_EQ(device.notifications.size(), 1u);
    const auto& [trigger, notice, folder] = device.notifications.begin()->second;
    EXPECT_TRUE(trigger.application.empty() && notice.showDialog && notice.flashLed);
    for (const platform::DateTime& at : {trigger.start, trigger.end})
        EXPECT_EQ(platform::DateAndTime(at), L"3/6/2007 12:00:05 AM") << "in ten seconds";
    EXPECT_EQ(notice.dialogTitle, L"Inkwright \u00BB Alarm");
    EXPECT_EQ(notice.dialogText, L"Inkwright \u00BB Reminders (Monday, March 5, 2007)\n\nCall");
    for (const auto& [at, text] : {std::pair{L"\\D\\INKWRIGHT\\Work\\a.b.ikw", L"Work\n\na.b"},
                                   {L"\\D\\Inkwright\\Work\\Deep\\a.ikw", L"Alarm\n\na"},
                                   {L"\\D\\Inkwright\\reminders\\2007-02-31\\a.ikw", L"Reminders\n\na"},
                                   {L"\\D\\Inkwright\\reminders\\someday\\a.ikw", L"Reminders\n\na"}})
        EXPECT_EQ(alarms::AlarmNoticeText(at), std::wstring(L"Inkwright \u00BB ") + text);
}

}  // namespace
