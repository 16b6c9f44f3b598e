#include "alarms/NoteAlarm.h"

#include "app/store/DayFolder.h"
#include "app/store/NoteAlarms.h"
#include "app/store/StorePaths.h"
#include "platform/Clock.h"
#include "platform/Notifications.h"
#include "platform/Product.h"
#include "platform/Shell.h"

namespace alarms {

namespace {

const std::wstring kProduct = platform::kProductName;
constexpr wchar_t kNoticeTitle[] = L"Inkwright \u00BB Alarm";
constexpr wchar_t kProductPrefix[] = L"Inkwright \u00BB ";
constexpr int kNoticeDelaySeconds = 10;

// "Reminders (date)" for a note in a day's folder, the folder's name directly under the store root,
// nothing anywhere else.
std::wstring FolderLabel(const std::wstring& notePath) {
    const std::wstring folder = store::WithoutTrailingBackslashes(store::FolderOf(notePath));
    const std::wstring parent = store::WithoutTrailingBackslashes(store::FolderOf(folder));
    const std::wstring name = store::NameOf(folder);
    if (store::EndsWithNoCase(parent, L"\\" + kProduct + L"\\" + store::kRemindersFolder)) {
        std::wstring label = store::kRemindersFolder;
        const std::optional<store::DayFolder> day = store::DayFolder::Named(name);
        if (day && day->IsOfCalendar()) label += L" (" + day->LongText() + L")";
        return label;
    }
    return store::EndsWithNoCase(parent, L"\\" + kProduct) ? name : std::wstring();
}

}  // namespace

bool SetNoteAlarm(const std::wstring& notePath, const platform::DateTime& moment) {
    platform::NotificationTrigger trigger;
    trigger.application = platform::ProgramPath();
    trigger.arguments = store::AlarmArguments(notePath);
    trigger.start = moment;
    trigger.end = moment;
    return platform::SetNotification(0, trigger, {}) != 0;
}

std::wstring AlarmNoticeText(const std::wstring& notePath) {
    const std::wstring name = store::NameOf(notePath);
    const std::wstring baseName = name.substr(0, name.rfind(L'.'));
    const std::wstring label = FolderLabel(notePath);
    return (label.empty() ? std::wstring(kNoticeTitle) : kProductPrefix + label) + L"\n\n" + baseName;
}

void PostAlarmNotice(const std::wstring& notePath) {
    platform::NotificationTrigger trigger;
    trigger.start = platform::AddSeconds(platform::LocalNow(), kNoticeDelaySeconds);
    trigger.end = trigger.start;
    platform::UserNotification notice;
    notice.flashLed = true;
    notice.showDialog = true;
    notice.dialogTitle = kNoticeTitle;
    notice.dialogText = AlarmNoticeText(notePath);
    platform::SetNotification(0, trigger, notice);
}

}  // namespace alarms
