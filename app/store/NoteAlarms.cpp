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

bool Rewrite(const NoteAlarm& alarm, const std::wstring& arguments) {
    platform::NotificationTrigger trigger;
    trigger.application = platform::ProgramPath();
    trigger.arguments = arguments;
    trigger.start = MomentOnly(alarm.start);
    trigger.end = trigger.start;
    return platform::SetNotification(alarm.handle, trigger, {}) != 0;
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

std::vector<NoteAlarm> ScanAlarms(bool* areAll) {
    const platform::WaitCursor wait;
    std::vector<NoteAlarm> found;
    std::vector<platform::NotificationHandle> handles;
    bool areRead = platform::ListNotifications(handles);
    if (!areRead) handles.clear();
    const std::wstring program = platform::ProgramPath();
    for (const platform::NotificationHandle handle : handles) {
        platform::NotificationTrigger trigger;
        platform::UserNotification notification;
        const bool isRead = platform::ReadNotification(handle, trigger, notification);
        areRead = areRead && isRead;
        if (!isRead || !platform::EqualNoCase(trigger.application, program)) continue;
        found.push_back({handle, trigger.start, trigger.arguments});
    }
    if (areAll != nullptr) *areAll = areRead;
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

bool MoveNoteAlarms(const std::wstring& oldPath, const std::wstring& newPath) {
    return MoveNoteAlarms(std::vector<std::wstring>{oldPath}, std::vector<std::wstring>{newPath});
}

bool ClearNoteAlarms(const std::wstring& notePath) {
    const std::wstring arguments = AlarmArguments(notePath);
    bool isDone = false;
    for (const NoteAlarm& alarm : ScanAlarms(&isDone)) {
        const bool isMeant = platform::EqualNoCase(alarm.arguments, arguments);
        if (isMeant && !platform::ClearNotification(alarm.handle)) isDone = false;
    }
    return isDone;
}

bool MoveNoteAlarms(const std::vector<std::wstring>& oldPaths, const std::vector<std::wstring>& newPaths) {
    std::unordered_map<std::wstring, size_t> places;
    for (size_t i = 0; i < oldPaths.size(); ++i) places[platform::LowerCase(AlarmArguments(oldPaths[i]))] = i;
    bool isDone = false;
    for (const NoteAlarm& alarm : ScanAlarms(&isDone)) {
        const auto found = places.find(platform::LowerCase(alarm.arguments));
        const bool isMeant = found != places.end();
        if (isMeant && !Rewrite(alarm, AlarmArguments(newPaths[found->second]))) isDone = false;
    }
    return isDone;
}

bool RemoveOrphanAlarms() {
    bool isDone = false;
    for (const NoteAlarm& alarm : ScanAlarms(&isDone)) {
        const std::wstring path = PathIn(alarm.arguments);
        const bool isOrphan = !path.empty() && platform::IsGone(path);
        if (isOrphan && !platform::ClearNotification(alarm.handle)) isDone = false;
    }
    return isDone;
}

}  // namespace store
