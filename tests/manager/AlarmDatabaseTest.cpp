#include "alarms/NoteAlarm.h"
#include "app/store/NoteAlarms.h"
#include "platform/Shell.h"
#include "tests/manager/ManagerRig.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::kRoot;

class AlarmDatabase : public testing_support::ManagerTest {
  protected:
    AlarmDatabase() { device.notifications.clear(); }
    platform::NotificationHandle Put(const std::wstring& arguments, int minute = 0,
                                     const std::wstring& application = platform::ProgramPath()) {
        platform::NotificationTrigger trigger;
        trigger.application = application;
        trigger.arguments = arguments;
        trigger.start = {2007, 3, 4, 15, 20, minute, 0, 7};
        return platform::SetNotification(0, trigger, {});
    }
    std::vector<std::wstring> Arguments() {
        std::vector<std::wstring> all;
        for (const auto& entry : device.notifications) all.push_back(entry.second.trigger.arguments);
        return all;
    }
};

TEST_F(AlarmDatabase, OnlyOurReadableEntriesAreScanned) {
    Put(L"\"\\a.ikw\" /alarm");
    for (int i = 0; i < 300; ++i) Put(L"\"\\a.ikw\" /alarm", 0, L"C:\\Other\\program.exe");
    Put(L"\"\\b.ikw\" /alarm", 0, L"c:\\PROGRAM FILES\\inkwright\\INKWRIGHT.EXE");
    device.unreadableNotifications.insert(Put(L"\"\\c.ikw\" /alarm"));
    const auto alarms = store::ScanAlarms();
    ASSERT_EQ(alarms.size(), 2u);
    EXPECT_EQ(alarms[1].arguments, L"\"\\b.ikw\" /alarm");
    device.notificationsFail = true;
    EXPECT_THAT(store::ScanAlarms(), IsEmpty());
}

TEST_F(AlarmDatabase, AllAlarmsOfANoteFollowItWhateverTheirCase) {
    const auto handle = Put(L"\"\\Ink\\A.ikw\" /alarm");
    Put(L"\"\\ink\\a.IKW\" /ALARM", 30);
    Put(L"\"\\Ink\\other.ikw\" /alarm");
    Put(L"\"\\Ink\\A.ikw\" /alarm", 0, L"C:\\Other\\program.exe");
    store::MoveNoteAlarms(L"\\Ink\\a.ikw", L"\\Ink\\New.ikw");
    EXPECT_THAT(Arguments(), ElementsAre(L"\"\\Ink\\New.ikw\" /alarm", L"\"\\Ink\\New.ikw\" /alarm",
                                         L"\"\\Ink\\other.ikw\" /alarm", L"\"\\Ink\\A.ikw\" /alarm"));
    const platform::DateTime& start = device.notifications[handle].trigger.start;
    EXPECT_EQ(start.hour, 20);
    EXPECT_EQ(start.dayOfWeek, 0) << "day of week and milliseconds are not carried over";
    EXPECT_EQ(start.milliseconds, 0);
    store::ClearNoteAlarms(L"\\ink\\NEW.ikw");
    EXPECT_EQ(device.notifications.size(), 2u);
}

TEST_F(AlarmDatabase, OrphansAreRemovedOnlyInTheExactForm) {
    device.files.Put(L"\\Ink\\here.ikw", "x");
    Put(L"\"\\Ink\\here.ikw\" /alarm");
    Put(L"\"\\Ink\\gone.ikw\" /alarm");
    Put(L"\"\\Ink\\gone.txt\" /alarm");
    Put(L"\"\\Ink\\gone.ikw\" /ALARM");
    Put(L"");
    Put(L"\"\"\"");
    Put(L"\"\\gone.ikw\" /alarm", 0, L"C:\\Other\\program.exe");
    store::RemoveOrphanAlarms();
    EXPECT_THAT(Arguments(), ElementsAre(L"\"\\Ink\\here.ikw\" /alarm", L"\"\\Ink\\gone.ikw\" /ALARM", L"",
                                         L"\"\"\"", L"\"\\gone.ikw\" /alarm"));
}

TEST_F(AlarmDatabase, OrphansOfAStorageThatIsAwayAreKept) {
    const std::wstring share = L"\\\\server\\share";
    device.files.Put(share + L"\\here.ikw", "x");
    for (const wchar_t* path : {L"\\\\server\\share\\here.ikw", L"\\\\server\\share\\gone.ikw",
                                L"\\Storage Card\\gone.ikw", L"\\My Documents\\gone.ikw"}) {
        Put(store::AlarmArguments(path));
    }
    device.files.unreachable = share;
    device.files.Nodes().erase(L"\\MY DOCUMENTS");
    store::RemoveOrphanAlarms();
    EXPECT_EQ(device.notifications.size(), 4u);
    device.files.unreachable.clear();
    device.files.PutFolder(L"\\Storage Card");
    device.files.PutFolder(L"\\My Documents");
    store::RemoveOrphanAlarms();
    EXPECT_THAT(Arguments(), ElementsAre(L"\"\\\\server\\share\\here.ikw\" /alarm"));
}

TEST_F(AlarmDatabase, TheAlarmsBranchListsTitlesByTime) {
    Put(L"\"\\Ink\\Call Ann.IKW\" /Alarm", 45);
    Put(L"\"\\Ink\\Bake.ikw\" /alarm", 5);
    Put(L"\"\\Ink\\memo.txt\" /alarm");
    Put(L"\"\\Ink\\.ikw\" /alarm");
    const std::wstring bake = L"3/15/2007 8:05:00 PM, Bake";
    const std::wstring call = L"3/15/2007 8:45:00 PM, Call Ann";
    RunManager(
        L"", {Tap(L"Alarms"), ExpectSelected(L"Alarms  (2 found) "), ExpectTree(L"Alarms", {bake, call}),
              Tap(L"Alarms\\" + bake), ExpectSelected(bake), Press(IDM_DELETE), ExpectTree(L"Alarms", {call}),
              [this] { EXPECT_EQ(device.notifications.size(), 3u); },
              ExpectTree(L"", {L"Notes", L"Reminders", L"Alarms  (2 found) "}), Hold(L"Alarms", {L"Refresh"}),
              ExpectTree(L"", {L"Notes", L"Reminders", L"Alarms  (1 found) "}),
              Hold(L"Alarms\\" + call, {L"Delete"}), ExpectMenu({L"Delete"}), ExpectTree(L"Alarms", {}),
              Tap(L"Notes"), ExpectTree(L"", {L"Notes", L"Reminders", L"Alarms"})});
}

TEST_F(AlarmDatabase, AnAlarmIsSetFromTheManager) {
    for (const bool fails : {false, true}) {
        RunManager(L"Work\\a.ikw",
                   {[=] { device.notificationsFail = fails; }, Hold(L"Notes\\Work\\a", {L"nothing"}),
                    [this] {
                        hand.ChooseEntries({L"Set Alarm..."});
                        Tree().Hold({L"Notes", L"Work  (1 found) ", L"a"}, {-5, 400});
                    },
                    [this] {
                        auto& dialog = dynamic_cast<platform::Dialog&>(*Desk().Top());
                        EXPECT_EQ(dialog.WindowRect().left, 0);
                        EXPECT_EQ(dialog.WindowRect().bottom, 320);
                        dialog.SetPicked(IDC_ALARM_DATE, {2007, 3, 0, 9, 0, 0, 0, 0});
                        dialog.SetPicked(IDC_ALARM_TIME, {2007, 1, 0, 1, 16, 45, 0, 0});
                    },
                    // The caption of the failure shows the day alone.
                    fails ? ExpectBox(L"Setting alarm failed!", L" 3/9/2007")
                          : ExpectBox(L"Alarm is successfully set!", L" 3/9/2007 4:45:00 PM"),
                    Press(platform::kIdOk)});
    }
    ASSERT_EQ(Arguments(), Texts{L"\"" + kRoot + L"Work\\a.ikw\" /alarm"});
    EXPECT_EQ(device.notifications.begin()->second.trigger.start.dayOfWeek, 5);
}

}  // namespace
