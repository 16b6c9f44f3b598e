#include "alarms/AlarmDatabase.h"

#include "alarms/NoteAlarm.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/Shell.h"
#include "platform/StoragePaths.h"
#include "platform/TextEncoding.h"

namespace alarms {

namespace {

constexpr wchar_t kNoteSuffix[] = L".ikw\" /alarm";
constexpr wchar_t kSwitchSuffix[] = L"\" /alarm";

// The day of the week and the milliseconds are not carried over.
platform::DateTime MomentOnly(const platform::DateTime& start) {
    platform::DateTime moment = start;
    moment.dayOfWeek = 0;
    moment.milliseconds = 0;
    return moment;
}

void Rewrite(const NoteAlarm& alarm, const std::wstring& arguments) {
    platform::NotificationTrigger trigger;
    trigger.application = platform::ProgramPath();
    trigger.arguments = arguments;
    trigger.start = MomentOnly(alarm.start);
    trigger.end = trigger.start;
    platform::SetNotification(alarm.handle, trigger, {});
}

// The note's path; empty when the arguments are not of this form. The first character is its root backslash,
// which may be left away, but for the path of a share.
std::wstring PathIn(const std::wstring& arguments) {
    const size_t quotes = arguments.find_first_not_of(L'"');
    if (quotes == std::wstring::npos) return {};
    const bool isShare = platform::IsSharePath(arguments.substr(quotes));
    const std::wstring rest = arguments.substr(isShare ? quotes : quotes + 1);
    const size_t end = rest.find(L'"');
    if (end == std::wstring::npos || end == 0 || rest.substr(end) != kSwitchSuffix) return {};
    return rest.substr(0, end);
}

}  // namespace

std::vector<NoteAlarm> ScanAlarms() {
    const platform::WaitCursor wait;
    std::vector<NoteAlarm> found;
    std::vector<platform::NotificationHandle> handles;
    if (!platform::ListNotifications(handles)) return found;
    const std::wstring program = platform::ProgramPath();
    for (const platform::NotificationHandle handle : handles) {
        platform::NotificationTrigger trigger;
        platform::UserNotification notification;
        if (!platform::ReadNotification(handle, trigger, notification)) continue;
        if (!platform::EqualNoCase(trigger.application, program)) continue;
        found.push_back({handle, trigger.start, trigger.arguments});
    }
    return found;
}

bool AlarmTitle(const std::wstring& arguments, std::wstring& title) {
    const size_t dot = arguments.rfind(L'.');
    if (dot == std::wstring::npos || !platform::EqualNoCase(arguments.substr(dot), kNoteSuffix)) return false;
    const std::wstring path = arguments.substr(0, dot);
    title = path.substr(path.rfind(L'\\') + 1);
    return !title.empty();
}

void MoveNoteAlarms(const std::wstring& oldPath, const std::wstring& newPath) {
    MoveAlarms({platform::LowerCase(AlarmArguments(oldPath))}, {AlarmArguments(newPath)});
}

void ClearNoteAlarms(const std::wstring& notePath) {
    const std::wstring arguments = AlarmArguments(notePath);
    for (const NoteAlarm& alarm : ScanAlarms()) {
        if (platform::EqualNoCase(alarm.arguments, arguments)) platform::ClearNotification(alarm.handle);
    }
}

void MoveAlarms(const std::vector<std::wstring>& oldArguments,
                const std::vector<std::wstring>& newArguments) {
    for (const NoteAlarm& alarm : ScanAlarms()) {
        const std::wstring arguments = platform::LowerCase(alarm.arguments);
        for (size_t i = oldArguments.size(); i-- > 0;) {
            if (oldArguments[i] != arguments) continue;
            Rewrite(alarm, newArguments[i]);
            break;
        }
    }
}

void RemoveOrphanAlarms() {
    for (const NoteAlarm& alarm : ScanAlarms()) {
        const std::wstring path = PathIn(alarm.arguments);
        if (!path.empty() && platform::IsGone(path)) platform::ClearNotification(alarm.handle);
    }
}

}  // namespace alarms
