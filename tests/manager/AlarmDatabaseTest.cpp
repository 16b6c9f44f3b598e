#include "alarms/NoteAlarm.h"
#include "app/store/NoteAlarms.h"
#include "platform/Shell.h"
#include "tests/manager/ManagerRig.h"

namespace {

using testing::ElementsAre;
using namespace testing_support;

class AlarmDatabase : public ManagerTest {
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
    Texts Arguments() {
        Texts all;
        for (const auto& entry : device.notifications) all.push_back(entry.second.trigger.arguments);
        return all;
    }
    const std::wstring other_ = L"C:\\Other\\program.exe";
};

TEST_F(AlarmDatabase, AllAlarmsOfANoteFollowItWhateverTheirCase) {
    const auto handle = Put(L"\"\\Ink\\A.ikw\" /alarm");
    Put(L"\"\\ink\\a.IKW\" /ALARM", 30);
    Put(L"\"\\Ink\\other.ikw\" /alarm");
    Put(L"\"\\Ink\\A.ikw\" /alarm", 0, other_);
    store::MoveNoteAlarms(L"\\Ink\\a.ikw", L"\\Ink\\New.ikw");
    EXPECT_THAT(Arguments(), ElementsAre(L"\"\\Ink\\New.ikw\" /alarm", L"\"\\Ink\\New.ikw\" /alarm",
                                         L"\"\\Ink\\other.ikw\" /alarm", L"\"\\Ink\\A.ikw\" /alarm"));
    const platform::DateTime& start = device.notifications[handle].trigger.start;
    EXPECT_TRUE(start.hour == 20 && start.dayOfWeek == 0 && start.milliseconds == 0);
    store::ClearNoteAlarms(L"\\ink\\NEW.ikw");
    EXPECT_EQ(device.notifications.size(), 2u);
}

// Orphans are alarms of just the form that we write, and only where their storage answers.
TEST_F(AlarmDatabase, OrphansAreRemoved) {
    const std::wstring share = L"\\\\server\\share";
    device.files.Put(share + L"\\here.ikw", "x");
    device.files.Put(L"\\Ink\\here.ikw", "x");
    const Texts kept{L"\"\\\\server\\share\\here.ikw\" /alarm", L"\"\\Ink\\here.ikw\" /alarm",
                     L"\"\\Ink\\gone.ikw\" /ALARM", L"", L"\"\"\""};
    for (const std::wstring& arguments : kept) Put(arguments);
    for (const wchar_t* away : {L"\\\\server\\share\\gone.ikw", L"\\Storage Card\\gone.ikw"})
        Put(store::AlarmArguments(away));
    const size_t all = device.notifications.size();
    for (const wchar_t* gone : {L"\\Ink\\gone.ikw", L"\\Ink\\gone.txt"}) Put(store::AlarmArguments(gone));
    device.files.unreachable = share;
    store::RemoveOrphanAlarms();
    EXPECT_EQ(device.notifications.size(), all);
    device.files.unreachable.clear();
    device.files.PutFolder(L"\\Storage Card");
    store::RemoveOrphanAlarms();
    EXPECT_EQ(Arguments(), kept);
}

TEST_F(AlarmDatabase, TheBranchListsTitlesByTime) {
    Put(L"\"\\Ink\\Call Ann.IKW\" /Alarm", 45, L"c:\\PROGRAM FILES\\inkwright\\INKWRIGHT.EXE");
    Put(L"\"\\Ink\\Bake.ikw\" /alarm", 5);
    for (const wchar_t* path : {L"\\Ink\\memo.txt", L"\\Ink\\.ikw"}) Put(store::AlarmArguments(path));
    Put(L"\"\\Ink\\Bake.ikw\" /alarm", 5, other_);
    device.unreadableNotifications.insert(Put(L"\"\\Ink\\c.ikw\" /alarm"));
    const std::wstring bake = L"3/15/2007 8:05:00 PM, Bake";
    const std::wstring call = L"3/15/2007 8:45:00 PM, Call Ann";
    const Texts closed{L"Notes", L"Reminders", L"Alarms"};
    const Texts two{L"Notes", L"Reminders", L"Alarms  (2 found) "};
    const Texts one{L"Notes", L"Reminders", L"Alarms  (1 found) "};
    RunManager(L"", {Tap(L"Alarms"), ExpectSelected(two[2]), ExpectTree(L"Alarms", {bake, call}),
                     Tap(L"Alarms\\" + bake), ExpectSelected(bake), Press(IDM_DELETE),
                     ExpectTree(L"Alarms", {call}), ExpectTree(L"", two), Hold(L"Alarms", {L"Refresh"}),
                     ExpectTree(L"", one), Hold(L"Alarms\\" + call, {L"Delete"}), ExpectMenu({L"Delete"}),
                     ExpectTree(L"Alarms", {}), Tap(L"Notes"), ExpectTree(L"", closed)});
    EXPECT_EQ(device.notifications.size(), 4u);
}

TEST_F(AlarmDatabase, AnAlarmIsSetFromTheManager) {
    const Step hold = [this] {
        hand.ChooseEntries({L"Set Alarm..."});
        Tree().Hold({L"Notes", L"Work  (1 found) ", L"a"}, {-5, 400});
    };
    const Step pick = [this] {
        EXPECT_TRUE(Dialog().WindowRect().left == 0 && Dialog().WindowRect().bottom == 320);
        Dialog().SetPicked(IDC_ALARM_DATE, {2007, 3, 0, 9, 0, 0, 0, 0});
        Dialog().SetPicked(IDC_ALARM_TIME, {2007, 1, 0, 1, 16, 45, 0, 99});
    };
    // The caption of the failure shows the day alone.
    RunManager(L"Work\\a.ikw",
               {hold, pick, ExpectBox(L"Alarm is successfully set!", L" 3/9/2007 4:45:00 PM"), Ok(),
                Fail({FileCall::Alarm}), hold, pick, ExpectBox(L"Setting alarm failed!", L" 3/9/2007"), Ok(),
                hold, Press(platform::kIdCancel)});
    ASSERT_EQ(Arguments(), Texts{L"\"" + kRoot + L"Work\\a.ikw\" /alarm"});
    const platform::DateTime& start = device.notifications.begin()->second.trigger.start;
    EXPECT_TRUE(start.dayOfWeek == 5 && start.milliseconds == 0);
}

}  // namespace
