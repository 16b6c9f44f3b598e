// Short texts and entries: what the user, the system and other releases put there.
#include <algorithm>
#include <cstring>

#include "app/CommandLine.h"
#include "app/store/DayFolder.h"
#include "app/store/MemoFile.h"
#include "app/store/NoteAlarms.h"
#include "app/store/StorePaths.h"
#include "editor/FileNamePattern.h"
#include "fuzz/Target.h"
#include "platform/Locale.h"
#include "platform/NotificationEntry.h"
#include "platform/host/HostDevice.h"
#include "search/MemoSearch.h"

namespace fuzz {

using platform::host::HostDevice;

void TryNotificationEntry(const Bytes& bytes, Care) {
    platform::NotificationEntry entry, again;
    if (!DecodeEntry(bytes, entry)) return;
    const Bytes encoded = EncodeEntry(entry);
    Require(bytes[0] == 1 || encoded == bytes, "an entry is what was encoded, but for an earlier release's");
    Require(DecodeEntry(encoded, again) && EncodeEntry(again) == encoded, "an entry stays the same");
    platform::DateAndTime(entry.trigger.start);
}

void TryCommandLine(const Bytes& bytes, Care) {
    const std::wstring line(bytes.begin(), bytes.end()), path = L"\\" + line + L".ikw";
    HostDevice device;
    for (const wchar_t* root : {L"", L"\\Root"}) {
        device.SetSetting(L"RootDirPath", root);
        const app::StartRequest start = app::ParseCommandLine(line);
        const bool isFolder = store::EndsInBackslash(start.target);
        Require(start.caption.empty() || isFolder, "a day's title needs its folder");
        const size_t code = start.alarmTimeCode.size();
        Require(code == 0 || (code == 15 && isFolder), "an alarm's time is whole and needs its folder");
        Require(!start.alarmMode || store::EndAsAlarmArguments(line), "an alarm only where one is meant");
        const bool mayMake = *root != 0 || start.manageMode;
        Require(mayMake || device.files.Nodes().size() == 2, "no store, no folders");
    }
    if (line.find_first_of(L"\"/") != std::wstring::npos) return;
    const app::StartRequest alarm = app::ParseCommandLine(store::AlarmArguments(path));
    Require(alarm.alarmMode && alarm.target == path, "an alarm opens its note");
}

// Bytes of the moment, then the folder and, after the first zero, the pattern.
void TryNamePattern(const Bytes& bytes, Care) {
    int32_t parts[5] = {};
    if (bytes.size() < sizeof parts) return;
    std::memcpy(parts, bytes.data(), sizeof parts);
    const std::wstring rest(bytes.begin() + sizeof parts, bytes.end());
    const std::wstring folder = rest.substr(0, rest.find(L'\0'));
    const std::wstring pattern = rest.substr(std::min(rest.size(), folder.size() + 1));
    const platform::DateTime moment{parts[0], parts[1], 0, parts[2], parts[3], parts[4], 7, 0};
    HostDevice device;
    device.SetSetting(L"RootDirPath", L"\\Root");
    std::wstring doubled;
    for (const wchar_t unit : folder) doubled.append(unit == L'%' ? 2 : 1, unit);
    for (const auto kind : {editor::NoteKind::Ordinary, editor::NoteKind::Reminder}) {
        const std::wstring name = ExpandFileNamePattern(pattern, kind, folder, moment);
        const std::wstring both = ExpandFileNamePattern(doubled + pattern, kind, folder, moment);
        Require(both == folder + name, "text stands for itself, wherever the codes are");
        Require(name.size() <= pattern.size() * (folder.size() + 11), "a code is a number or the folder");
    }
}

// The first byte is the length of what is looked for, which is followed by the memo.
void TryMemo(const Bytes& bytes, Care) {
    if (bytes.empty()) return;
    const auto fold = [](std::string text) {
        for (char& c : text) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
        return text;
    };
    const std::string all(bytes.begin() + 1, bytes.end()), text = fold(all.substr(0, bytes[0]));
    const std::string memo = all.substr(text.size()), small = fold(memo);
    HostDevice device;
    device.files.Put(L"\\m.txt", memo);
    store::MemoFile file(L"\\m.txt");
    const std::wstring shown = file.Read(nullptr);
    Require(shown.size() == std::min(memo.find('\0'), memo.size()), "a memo is shown up to a zero");
    Require(file.WriteQuietly(shown) && device.files.Get(L"\\m.txt") == memo, "unchanged, it stays the same");
    const bool isFound = search::MemoSearch(text).LookIn(L"\\m.txt", false) == search::MemoResult::Found;
    size_t at = text.empty() ? std::string::npos : small.find(text);
    Require(!isFound || at != std::string::npos, "what is found is there");
    for (; !isFound && at != std::string::npos; at = small.find(text, at + 1))
        Require(memo[at] != text[0] && memo.find(text[0], at) != std::string::npos, "what is there is found");
}

void TryDayName(const Bytes& bytes, Care) {
    const std::wstring name(bytes.begin(), bytes.end());
    const auto day = store::DayFolder::Named(name);
    if (!day) return;
    const store::DayFolder again(day->Date());
    Require(day->Name() == name && !day->LongText().empty() && !day->TitleText().empty(), "it can be shown");
    Require(!day->IsOfCalendar() || again.Name() == name, "a day of the calendar has one name");
    Require(again.IsOfCalendar() == platform::IsValidDate(day->Year(), day->Month(), day->Day()), "that one");
}

}  // namespace fuzz
