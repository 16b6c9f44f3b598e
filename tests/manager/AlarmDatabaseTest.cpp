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
    Then([this] {
        Tree().Tap({L"Alarms"});
        EXPECT_EQ(Selected(), L"Alarms  (2 found) ");
        EXPECT_THAT(Tree().Texts({L"Alarms  (2 found) "}),
                    ElementsAre(L"3/15/2007 8:05:00 PM, Bake", L"3/15/2007 8:45:00 PM, Call Ann"));
        Tree().Tap({L"Alarms  (2 found) ", L"3/15/2007 8:05:00 PM, Bake"});
        Desk().Command(IDM_DELETE);
        EXPECT_EQ(device.notifications.size(), 3u);
        EXPECT_THAT(Tree().Texts({L"Alarms  (2 found) "}), ElementsAre(L"3/15/2007 8:45:00 PM, Call Ann"));
        hand.ChooseEntries({L"Refresh"});
        Tree().Hold({L"Alarms  (2 found) "});
    });
    Then([this] {
        EXPECT_EQ(Window().Tree().Text(Window().Tree().Parent(
                      Tree().Find({L"Alarms  (1 found) ", L"3/15/2007 8:45:00 PM, Call Ann"}))),
                  L"Alarms  (1 found) ");
        Tree().Tap({L"Notes"});
        EXPECT_THAT(Tree().Texts(), ElementsAre(L"Notes", L"Reminders", L"Alarms"));
    });
    RunManager();
    EXPECT_THAT(Desk().messages, IsEmpty()) << "an alarm is deleted without a question";
}

TEST_F(AlarmDatabase, AnAlarmIsSetFromTheManager) {
    PutNote(L"Work\\a.ikw");
    hand.ChooseEntries({L"Set Alarm..."});
    for (const bool fails : {false, true}) {
        Then([this, fails] {
            device.notificationsFail = fails;
            Tree().Hold({L"Notes", L"Work  (1 found) ", L"a"}, {-5, 400});
        });
        Then([this] {
            const auto& dialog = dynamic_cast<platform::Dialog&>(*Desk().Top());
            EXPECT_EQ(dialog.WindowRect().left, 0);
            EXPECT_EQ(dialog.WindowRect().bottom, 320);
            Desk().Command(platform::kIdOk);
        });
    }
    RunManager(std::wstring(kRoot) + L"Work\\a.ikw");
    ASSERT_EQ(device.notifications.size(), 1u);
    EXPECT_EQ(device.notifications.begin()->second.trigger.arguments,
              L"\"" + std::wstring(kRoot) + L"Work\\a.ikw\" /alarm");
    EXPECT_EQ(device.notifications.begin()->second.trigger.start.dayOfWeek, 1);
    ASSERT_EQ(Desk().messages.size(), 2u);
    EXPECT_EQ(Desk().messages[0].caption, L" 3/5/2007 2:30:00 PM");
    EXPECT_EQ(Desk().messages[1].text, L"Setting alarm failed!");
    EXPECT_EQ(Desk().messages[1].caption, L" 3/5/2007") << "the day alone";
}

}  // namespace
