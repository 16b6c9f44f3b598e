#include "alarms/NoteAlarm.h"

#include "app/StorePaths.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Notifications.h"
#include "platform/Shell.h"

namespace alarms {

namespace {

constexpr wchar_t kNoticeTitle[] = L"Inkwright \u00BB Alarm";
constexpr wchar_t kProductPrefix[] = L"Inkwright \u00BB ";
constexpr int kNoticeDelaySeconds = 10;

// "Reminders (date)" for a note in a day's folder, the folder's name directly under the store root,
// nothing anywhere else.
std::wstring FolderLabel(const std::wstring& notePath) {
    const std::wstring folder = app::WithoutTrailingBackslashes(app::FolderOf(notePath));
    const std::wstring parent = app::WithoutTrailingBackslashes(app::FolderOf(folder));
    const std::wstring name = app::NameOf(folder);
    if (app::EndsWithNoCase(parent, L"\\Inkwright\\Reminders")) {
        std::wstring label = app::kRemindersFolder;
        platform::DateTime day;
        if (app::ParseDateFolderName(name, day)) label += L" (" + platform::LongDate(day) + L")";
        return label;
    }
    return app::EndsWithNoCase(parent, L"\\Inkwright") ? name : std::wstring();
}

}  // namespace

std::wstring AlarmArguments(const std::wstring& notePath) { return L"\"" + notePath + L"\" /alarm"; }

bool SetNoteAlarm(const std::wstring& notePath, const platform::DateTime& moment) {
    platform::NotificationTrigger trigger;
    trigger.application = platform::ProgramPath();
    trigger.arguments = AlarmArguments(notePath);
    trigger.start = moment;
    trigger.end = moment;
    return platform::SetNotification(0, trigger, {}) != 0;
}

std::wstring AlarmNoticeText(const std::wstring& notePath) {
    const std::wstring name = app::NameOf(notePath);
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
