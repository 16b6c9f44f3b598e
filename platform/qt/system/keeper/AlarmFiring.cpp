#include "platform/qt/system/keeper/AlarmFiring.h"

#include "platform/Clock.h"
#include "platform/qt/system/CommandText.h"
#include "platform/qt/system/DiskText.h"
#include "platform/qt/system/KeeperControl.h"
#include "platform/qt/system/LocalTime.h"
#include "platform/qt/system/NotificationStore.h"
#include "platform/qt/system/Processes.h"
#include "platform/qt/system/UserFolders.h"
#include "platform/qt/system/keeper/Notice.h"

namespace platform::qt {

namespace {

bool StartApplication(const NotificationEntry& entry) {
    std::string program;
    std::string device;
    std::string screen;
    if (!ToDisk(entry.trigger.application, program) || !ToDisk(entry.device, device) ||
        !ToDisk(entry.screen, screen))
        return false;
    return StartProcess({program,
                         SplitCommandText(entry.trigger.arguments),
                         FolderOf(program),
                         {{"INKWRIGHT_DEVICE", device}, {"INKWRIGHT_SCREEN", screen}}});
}

bool Act(const NotificationEntry& entry) {
    if (!entry.trigger.application.empty() && !StartApplication(entry)) return false;
    return !entry.notification.showDialog ||
           ShowNotice(entry.notification.dialogTitle, entry.notification.dialogText);
}

// The entry's bytes when it is there and due, else nothing.
ValueBytes ReadDue(NotificationHandle handle, NotificationEntry& entry) {
    ValueBytes bytes = NotificationStore().Bytes(handle);
    const bool isDue = DecodeEntry(bytes, entry) && IsValidMoment(entry.trigger.start) &&
                       LocalTicks(entry.trigger.start) <= LocalTicks(LocalNow());
    return isDue ? bytes : ValueBytes();
}

}  // namespace

void FireEntry(NotificationHandle handle) {
    {
        const FiringClaim claim(handle);
        NotificationEntry entry;
        const ValueBytes bytes = claim.IsHeld() ? ReadDue(handle, entry) : ValueBytes();
        if (bytes.empty() || !Act(entry)) return;
        NotificationStore().EraseUnchanged(handle, bytes);
    }
    AnnounceDatabaseChange();  // an entry that was rewritten meanwhile may be due by now
}

}  // namespace platform::qt
