#include "app/CommandLine.h"

#include <cwctype>

#include "alarms/AlarmStamp.h"
#include "app/store/DayFolder.h"
#include "app/store/NoteAlarms.h"
#include "app/store/StorePaths.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"

namespace app {

namespace {

std::wstring TrimmedAndUnquoted(const std::wstring& text) {
    size_t begin = 0;
    size_t end = text.size();
    while (begin < end && std::iswspace(static_cast<wint_t>(text[begin]))) ++begin;
    while (end > begin && std::iswspace(static_cast<wint_t>(text[end - 1]))) --end;
    while (begin < end && text[begin] == L'"') ++begin;
    while (end > begin && text[end - 1] == L'"') --end;
    return text.substr(begin, end - begin);
}

std::wstring PathArgument(const std::wstring& text) {
    return platform::FromHostPath(TrimmedAndUnquoted(text));
}

bool HasPrefix(const std::wstring& text, const std::wstring& prefix) {
    return platform::EqualNoCase(text.substr(0, prefix.size()), prefix);
}

// The text after the first blank that follows the switch.
std::wstring ArgumentOf(const std::wstring& switchText) {
    const size_t blank = switchText.find(L' ');
    return blank == std::wstring::npos ? std::wstring() : TrimmedAndUnquoted(switchText.substr(blank));
}

// `folder` ("New Notes" when empty) below the root unless it is a path of its own; made when missing.
std::wstring FolderTarget(const std::wstring& root, const std::wstring& folder) {
    std::wstring path = platform::FromHostPath(folder.empty() ? store::kNewNotesFolder : folder);
    if (path.front() != L'\\') path = root + L"\\" + path;
    path = store::WithBackslash(path);
    store::EnsureFolders(path);
    return path;
}

void ReadAlarm(const std::wstring& line, size_t slash, StartRequest& request) {
    request.target = PathArgument(line.substr(0, slash));
    request.alarmMode = store::EndAsAlarmArguments(line);
}

void ReadManage(const std::wstring& argument, StartRequest& request) {
    request.manageMode = true;
    const std::wstring root = store::ConfiguredRoot();
    if (!root.empty() || argument.empty()) {
        request.target = FolderTarget(root.empty() ? store::StoreRoot() : root, argument);
    }
}

void ReadNewNotes(const std::wstring& argument, StartRequest& request) {
    const std::wstring root = store::ConfiguredRoot();
    if (!root.empty()) request.target = FolderTarget(root, argument);
}

void ReadNewReminder(const std::wstring& argument, StartRequest& request) {
    const std::wstring root = store::ConfiguredRoot();
    const std::optional<store::DayFolder> day = store::DayFolder::Named(argument);
    if (root.empty() || !day || !day->IsOfCalendar()) return;
    request.target = FolderTarget(root, std::wstring(store::kRemindersFolder) + L"\\" + day->Name());
    request.caption = day->TitleText();
}

void ReadNewAlarm(const std::wstring& argument, StartRequest& request) {
    const size_t blank = argument.find(L' ');
    const std::wstring code = argument.substr(0, blank);
    const std::wstring folder =
        blank == std::wstring::npos ? L"" : TrimmedAndUnquoted(argument.substr(blank));
    const std::wstring root = store::ConfiguredRoot();
    if (root.empty() || code.size() != alarms::kAlarmStampLength || code.find(L'.') != std::wstring::npos)
        return;
    request.alarmTimeCode = code;
    request.target = FolderTarget(root, folder);
}

struct Switch {
    const wchar_t* name;
    void (*read)(const std::wstring& argument, StartRequest& request);
};

constexpr Switch kSwitches[] = {
    {L"/manage", ReadManage},
    {L"/newnotes", ReadNewNotes},
    {L"/newreminder", ReadNewReminder},
    {L"/newalarm", ReadNewAlarm},
};

}  // namespace

StartRequest ParseCommandLine(const std::wstring& commandLine) {
    StartRequest request;
    const size_t slash = commandLine.rfind(L'/');
    if (slash == std::wstring::npos) {
        request.target = PathArgument(commandLine);
        return request;
    }
    const std::wstring rest = commandLine.substr(slash);
    if (platform::EqualNoCase(rest, L"/alarm")) ReadAlarm(commandLine, slash, request);
    for (const Switch& candidate : kSwitches) {
        if (HasPrefix(rest, candidate.name)) candidate.read(ArgumentOf(rest), request);
    }
    return request;
}

}  // namespace app
