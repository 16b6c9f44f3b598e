#include "app/store/NoteAlarms.h"

#include <unordered_map>

#include "app/store/StorePaths.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/Shell.h"
#include "platform/StoragePaths.h"
#include "platform/TextEncoding.h"

namespace store {

namespace {

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

std::wstring AlarmArguments(const std::wstring& notePath) { return L"\"" + notePath + kSwitchSuffix; }

bool EndAsAlarmArguments(const std::wstring& arguments) {
    const size_t dot = arguments.rfind(L'.');
    return dot != std::wstring::npos &&
           platform::EqualNoCase(arguments.substr(dot), std::wstring(kNoteExtension) + kSwitchSuffix);
}

bool AlarmTitle(const std::wstring& arguments, std::wstring& title) {
    if (!EndAsAlarmArguments(arguments)) return false;
    title = NameOf(arguments.substr(0, arguments.rfind(L'.')));
    return !title.empty();
}

void MoveNoteAlarms(const std::wstring& oldPath, const std::wstring& newPath) {
    MoveNoteAlarms(std::vector<std::wstring>{oldPath}, std::vector<std::wstring>{newPath});
}

void ClearNoteAlarms(const std::wstring& notePath) {
    const std::wstring arguments = AlarmArguments(notePath);
    for (const NoteAlarm& alarm : ScanAlarms()) {
        if (platform::EqualNoCase(alarm.arguments, arguments)) platform::ClearNotification(alarm.handle);
    }
}

void MoveNoteAlarms(const std::vector<std::wstring>& oldPaths, const std::vector<std::wstring>& newPaths) {
    std::unordered_map<std::wstring, size_t> places;
    for (size_t i = 0; i < oldPaths.size(); ++i) places[platform::LowerCase(AlarmArguments(oldPaths[i]))] = i;
    for (const NoteAlarm& alarm : ScanAlarms()) {
        const auto found = places.find(platform::LowerCase(alarm.arguments));
        if (found != places.end()) Rewrite(alarm, AlarmArguments(newPaths[found->second]));
    }
}

void RemoveOrphanAlarms() {
    for (const NoteAlarm& alarm : ScanAlarms()) {
        const std::wstring path = PathIn(alarm.arguments);
        if (!path.empty() && platform::IsGone(path)) platform::ClearNotification(alarm.handle);
    }
}

}  // namespace store
