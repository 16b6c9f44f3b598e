#include "alarms/NoteAlarm.h"
#include "tests/editor/EditorRig.h"

namespace {

using testing::IsEmpty;
using namespace testing_support;

class Alarm : public EditorTest {
  protected:
    Alarm() { device.SetSetting(L"RootDirPath", L"\\Ink"); }
};

// The dialog proposes the set number of minutes from now, and begins with the alarm that a note is to get.
TEST_F(Alarm, SetAlarmAndExitNamesTheNoteClosesAndSchedules) {
    device.SetSetting(L"AlarmTimeOffset", 90);
    device.now = {2007, 3, 1, 5, 23, 10, 45, 0};
    const auto expectPicked = [this](int day, int hour, int minute) {
        return [=] {
            const platform::DateTime time = Dialog().PickedTime(IDC_ALARM_TIME);
            const int seen[] = {Dialog().PickedDate(IDC_ALARM_DATE).day, time.hour, time.minute, time.second};
            EXPECT_THAT(seen, testing::ElementsAre(day, hour, minute, 0));
        };
    };
    const Step pick = [this] {
        Dialog().SetPicked(IDC_ALARM_DATE, {2007, 4, 0, 9, 1, 2, 3, 0});
        Dialog().SetPicked(IDC_ALARM_TIME, {2006, 5, 0, 8, 7, 40, 30, 99});
    };
    Run(kNewNotes, {Write({{30, 100}}), Picked({L"Set Alarm and Exit"}), Press(IDM_TOOLS),
                    expectPicked(6, 0, 40), pick, Press(platform::kIdCancel), Press(IDM_SET_ALARM),
                    expectPicked(6, 0, 40), pick, Ok(), ExpectTitle(L" Inkwright - Save As"),
                    ExpectBox(L"Alarm is successfully set!", L" 4/9/2007 7:40:30 AM"), Ok()});
    ASSERT_EQ(device.notifications.size(), 1u);
    const platform::NotificationTrigger& trigger = device.notifications.begin()->second.trigger;
    EXPECT_EQ(trigger.application, L"C:\\Program Files\\Inkwright\\inkwright.exe");
    EXPECT_EQ(trigger.arguments, L"\"" + std::wstring(kNewNotes) + L"New Notes 2007-03-05.ikw\" /alarm");
    for (const platform::DateTime& at : {trigger.start, trigger.end}) {
        const int seen[] = {at.month, at.dayOfWeek, at.day, at.hour, at.minute, at.second, at.milliseconds};
        EXPECT_THAT(seen, testing::ElementsAre(4, 2, 9, 7, 40, 30, 0)) << "Monday's stamp digit as it stands";
    }
    Run(L"/newalarm 200703515203000", {Press(IDM_SET_ALARM), expectPicked(15, 20, 30), Ok()});
}

TEST_F(Alarm, AnAlarmThatNothingWillFireIsReported) {
    const struct {
        bool databaseFails, keeperCantStart;
        const wchar_t* stamp;
        const wchar_t* caption;
    } kCases[] = {{true, false, L"200703515203000", L" 3/15/2007 8:30:00 PM"},
                  {false, true, L"200703515203000", L" 3/15/2007 8:30:00 PM"},
                  {false, false, L"200703515253000", L" "},
                  {false, false, L"200702530203000", L" "},
                  {false, false, L"2007xx515203000", L" "}};
    for (const auto& c : kCases) {
        device.notificationsFail = c.databaseFails;
        device.keeperCantStart = c.keeperCantStart;
        Run(L"/newalarm " + std::wstring(c.stamp),
            {Write({{30, 100}}), Ok(), ExpectBox(L"Setting alarm failed!", c.caption), Ok()});
    }
    // None is set for a note without a file: nothing was written, or it was given up.
    device.notificationsFail = device.keeperCantStart = false;
    Run(L"/newalarm 200703515203000", {Ok()});
    Run(L"/newalarm 200703515203000",
        {Write({{30, 100}}), Ok(),
         ExpectDiscard(L"\\Ink\\New Notes\\New Notes 2007-03-05 (5).ikw", platform::MessageAnswer::Yes),
         Press(platform::kIdCancel)});
    EXPECT_THAT(device.notifications, IsEmpty());
}

TEST_F(Alarm, ANoteOpenedByItsAlarmPostsANotice) {
    const std::wstring path = L"\\My Documents\\Inkwright\\Reminders\\2007-03-05\\Call.ikw";
    device.files.Put(path, Words({5, 0, 0, kViewHeight}));
    device.now = {2007, 3, 1, 5, 23, 59, 55, 0};
    Run(L"\"" + path + L"\" /alarm", {Ok()});
    ASSERT_EQ(device.notifications.size(), 1u);
    const platform::host::StoredNotification& stored = device.notifications.begin()->second;
    EXPECT_TRUE(stored.trigger.application.empty() && stored.notification.showDialog &&
                stored.notification.flashLed);
    EXPECT_TRUE(stored.trigger.start.day == 6 && stored.trigger.start.second == 5) << "in ten seconds";
    EXPECT_EQ(stored.notification.dialogTitle, L"Inkwright \u00BB Alarm");
    for (const auto& [at, text] : {std::pair{path.c_str(), L"Reminders (Monday, March 5, 2007)\n\nCall"},
                                   {L"\\D\\INKWRIGHT\\Work\\a.b.ikw", L"Work\n\na.b"},
                                   {L"\\D\\Inkwright\\a.ikw", L"Alarm\n\na"},
                                   {L"\\D\\Inkwright\\Work\\Deep\\a.ikw", L"Alarm\n\na"},
                                   {L"\\D\\Inkwright\\reminders\\someday\\a.ikw", L"Reminders\n\na"}}) {
        EXPECT_EQ(alarms::AlarmNoticeText(at), std::wstring(L"Inkwright \u00BB ") + text);
    }
    EXPECT_EQ(stored.notification.dialogText, alarms::AlarmNoticeText(path));
}

}  // namespace
