#include "alarms/AlarmStamp.h"
#include "alarms/NoteAlarm.h"
#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace {

using testing::IsEmpty;
using testing::SizeIs;
using testing_support::kNewNotes;
using testing_support::Words;

class Alarm : public testing_support::DeskTest {
  protected:
    platform::Dialog& Dialog() { return dynamic_cast<platform::Dialog&>(*Desk().Top()); }
    void ThenWriteAndAskForAlarm() {
        Then([this] {
            Desk().Stroke({{30, 100}, {40, 110}});
            Desk().chooseFromMenu = [](const auto&) { return IDM_SET_ALARM; };
            Desk().Command(IDM_TOOLS);
        });
    }
};

TEST_F(Alarm, StampsKeepEveryFieldAndCountSundayAsOne) {
    const platform::DateTime moment{2007, 3, 4, 15, 20, 30, 5, 0};
    EXPECT_EQ(alarms::MakeAlarmStamp(moment), L"200703515203005");
    platform::DateTime read;
    ASSERT_TRUE(alarms::ReadAlarmStamp(L"200703515203005", read));
    EXPECT_EQ(read.dayOfWeek, 5) << "the digit as it stands";
    EXPECT_EQ(read.day, 15);
    EXPECT_EQ(read.second, 5);
    EXPECT_FALSE(alarms::ReadAlarmStamp(L"20070351520300", read));
    EXPECT_FALSE(alarms::ReadAlarmStamp(L"2007035152030055", read));
}

TEST_F(Alarm, SetAlarmAndExitNamesTheNoteClosesAndSchedules) {
    device.SetSetting(L"AlarmTimeOffset", 90);
    device.now = {2007, 3, 1, 5, 23, 10, 45, 0};
    ThenWriteAndAskForAlarm();
    Then([this] {
        EXPECT_EQ(Dialog().PickedDate(IDC_ALARM_DATE).day, 6);
        EXPECT_EQ(Dialog().PickedTime(IDC_ALARM_TIME).hour, 0);
        EXPECT_EQ(Dialog().PickedTime(IDC_ALARM_TIME).minute, 40);
        EXPECT_EQ(Dialog().PickedTime(IDC_ALARM_TIME).second, 0);
        Desk().Command(platform::kIdOk);
    });
    Then(Close());
    Run(kNewNotes);
    ASSERT_THAT(device.notifications, SizeIs(1));
    const platform::NotificationTrigger& trigger = device.notifications.begin()->second.trigger;
    EXPECT_EQ(trigger.application, L"C:\\Program Files\\Inkwright\\inkwright.exe");
    EXPECT_EQ(trigger.arguments, L"\"" + std::wstring(kNewNotes) + L"New Notes 2007-03-05.ikw\" /alarm");
    EXPECT_EQ(trigger.start.day, 6);
    EXPECT_EQ(trigger.start.minute, 40);
    EXPECT_EQ(trigger.start.dayOfWeek, 3) << "Tuesday's stamp digit goes in unchanged";
    EXPECT_EQ(trigger.end.minute, 40);
    ASSERT_THAT(Desk().messages, SizeIs(1));
    EXPECT_EQ(Desk().messages[0].text, L"Alarm is successfully set!");
    EXPECT_EQ(Desk().messages[0].caption, L" 3/6/2007 12:40:00 AM");
    EXPECT_EQ(Desk().messages[0].icon, platform::MessageIcon::Information);
}

TEST_F(Alarm, AnAlarmThatNothingWillFireIsReported) {
    struct Case {
        bool databaseFails, keeperCantStart;
        const wchar_t* stamp;
        const wchar_t* caption;
    };
    device.SetSetting(L"RootDirPath", L"\\Ink");
    for (const Case& c :
         {Case{true, false, L"200703515203000", L" 3/15/2007 8:30:00 PM"},
          Case{false, true, L"200703515203000", L" 3/15/2007 8:30:00 PM"},
          Case{false, false, L"200703515253000", L" "}, Case{false, false, L"200702530203000", L" "},
          Case{false, false, L"2007xx515203000", L" "}}) {
        device.notificationsFail = c.databaseFails;
        device.keeperCantStart = c.keeperCantStart;
        Desk().messages.clear();
        Then([this] {
            Desk().Stroke({{30, 100}});
            Desk().Command(platform::kIdOk);
        });
        Then(Close());
        Run(L"/newalarm " + std::wstring(c.stamp));
        ASSERT_THAT(Desk().messages, SizeIs(1));
        EXPECT_EQ(Desk().messages[0].text, L"Setting alarm failed!");
        EXPECT_EQ(Desk().messages[0].caption, c.caption);
        EXPECT_EQ(Desk().messages[0].icon, platform::MessageIcon::Error);
        EXPECT_THAT(device.notifications, IsEmpty());
    }
}

TEST_F(Alarm, NoAlarmWithoutANoteOrAfterDiscarding) {
    device.SetSetting(L"RootDirPath", L"\\Ink");
    Then(Close());  // nothing was written
    Run(L"/newalarm 200703515203000");
    Desk().answers = {platform::MessageAnswer::Yes};
    Then([this] {
        Desk().Stroke({{30, 100}});
        Desk().Command(platform::kIdOk);
    });
    Then([this] { Desk().Command(platform::kIdCancel); });
    Run(L"/newalarm 200703515203000");
    EXPECT_THAT(device.notifications, IsEmpty());
    EXPECT_THAT(Desk().messages, SizeIs(1)) << "only the question about the changes";
}

TEST_F(Alarm, ANoteOpenedByItsAlarmPostsANotice) {
    device.files.Put(L"\\My Documents\\Inkwright\\Reminders\\2007-03-05\\Call.ikw", Words({5, 0, 0, 268}));
    device.now = {2007, 3, 1, 5, 23, 59, 55, 0};
    Then(Close());
    Run(L"\"\\My Documents\\Inkwright\\Reminders\\2007-03-05\\Call.ikw\" /alarm");
    ASSERT_THAT(device.notifications, SizeIs(1));
    const platform::host::StoredNotification& stored = device.notifications.begin()->second;
    EXPECT_EQ(stored.trigger.application, L"");
    EXPECT_EQ(stored.trigger.start.day, 6);
    EXPECT_EQ(stored.trigger.start.second, 5);
    EXPECT_TRUE(stored.notification.showDialog && stored.notification.flashLed);
    EXPECT_EQ(stored.notification.dialogTitle, L"Inkwright \u00BB Alarm");
    EXPECT_EQ(stored.notification.dialogText, L"Inkwright \u00BB Reminders (Monday, March 5, 2007)\n\nCall");
}

TEST_F(Alarm, NoticeTextsByPlace) {
    struct Case {
        const wchar_t* path;
        const wchar_t* text;
    };
    for (const Case& c :
         {Case{L"\\D\\INKWRIGHT\\Work\\a.b.ikw", L"Inkwright \u00BB Work\n\na.b"},
          Case{L"\\D\\Inkwright\\a.ikw", L"Inkwright \u00BB Alarm\n\na"},
          Case{L"\\D\\Inkwright\\Work\\Deep\\a.ikw", L"Inkwright \u00BB Alarm\n\na"},
          Case{L"\\D\\Inkwright\\reminders\\someday\\a.ikw", L"Inkwright \u00BB Reminders\n\na"}}) {
        EXPECT_EQ(alarms::AlarmNoticeText(c.path), c.text);
    }
}

}  // namespace
