// Short texts and entries: what the user, the system and other releases put there.
#include <algorithm>
#include <atomic>
#include <cstring>

#include "app/CommandLine.h"
#include "app/store/DayFolder.h"
#include "app/store/MemoFile.h"
#include "app/store/NoteAlarms.h"
#include "editor/FileNamePattern.h"
#include "fuzz/Target.h"
#include "platform/Locale.h"
#include "platform/host/HostDevice.h"
#include "platform/windows/NotificationEntry.h"
#include "search/MemoSearch.h"

namespace fuzz {

namespace {

std::string Small(std::string text) {
    for (char& c : text) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    return text;
}

bool Has(const std::wstring& text, const wchar_t* part) { return text.find(part) != std::wstring::npos; }

}  // namespace

void TryNotificationEntry(const Bytes& bytes, Care) {
    platform::windows::NotificationEntry entry, again;
    if (!platform::windows::DecodeEntry(bytes, entry)) return;
    const Bytes encoded = platform::windows::EncodeEntry(entry);
    Require(bytes[0] == 1 || encoded == bytes, "an entry is one that was encoded");
    Require(platform::windows::DecodeEntry(encoded, again), "an entry of an earlier release");
    Require(platform::windows::EncodeEntry(again) == encoded, "an entry stays the same");
    platform::DateAndTime(entry.trigger.start);
}

void TryCommandLine(const Bytes& bytes, Care) {
    const std::wstring line(bytes.begin(), bytes.end());
    platform::host::HostDevice device;
    for (const wchar_t* root : {L"", L"\\Root"}) {
        device.SetSetting(L"RootDirPath", root);
        const app::StartRequest start = app::ParseCommandLine(line);
        const bool isFolder = !start.target.empty() && start.target.back() == L'\\';
        Require(start.caption.empty() || isFolder, "a day's title needs its folder");
        Require(start.alarmTimeCode.empty() || (start.alarmTimeCode.size() == 15 && isFolder), "an alarm's time");
        Require(!start.alarmMode || store::EndAsAlarmArguments(line), "an alarm only where one is meant");
        Require(Has(line, L"/") || !(start.manageMode || start.alarmMode), "no switch, no mode");
        Require(*root != 0 || start.manageMode || device.files.Nodes().size() == 2, "no store, no folders");
    }
    if (line.find_first_of(L"\"/") != std::wstring::npos) return;
    const app::StartRequest alarm = app::ParseCommandLine(store::AlarmArguments(L"\\" + line + L".ikw"));
    Require(alarm.alarmMode && alarm.target == L"\\" + line + L".ikw", "an alarm opens its note");
}

// A few bytes are the moment, and what is left is the folder and, after the first zero, the pattern.
void TryNamePattern(const Bytes& bytes, Care) {
    int32_t parts[5] = {};
    const size_t head = std::min(bytes.size(), sizeof parts);
    if (head != 0) std::memcpy(parts, bytes.data(), head);
    const std::wstring rest(bytes.begin() + static_cast<std::ptrdiff_t>(head), bytes.end());
    const std::wstring folder = rest.substr(0, rest.find(L'\0'));
    const std::wstring pattern = rest.substr(std::min(rest.size(), folder.size() + 1));
    platform::host::HostDevice device;
    device.SetSetting(L"RootDirPath", L"\\Root");
    for (const editor::NoteKind kind : {editor::NoteKind::Ordinary, editor::NoteKind::Reminder}) {
        const auto expand = [&](const std::wstring& text) {
            return editor::ExpandFileNamePattern(text, kind, folder,
                                                 {parts[0], parts[1], 0, parts[2], parts[3], parts[4], 7, 0});
        };
        std::wstring doubled;
        for (const wchar_t unit : folder) doubled.append(unit == L'%' ? 2 : 1, unit);
        const std::wstring name = expand(pattern);
        Require(expand(doubled + pattern) == folder + name, "text stands for itself, wherever the codes are");
        Require(name.size() <= pattern.size() * (folder.size() + 11), "no code is longer than a number or the folder");
        Require(Has(pattern, L"%") || name == pattern, "no codes, no change");
    }
}

// The first byte is the length of what is looked for, which is followed by the memo.
void TryMemo(const Bytes& bytes, Care) {
    if (bytes.empty()) return;
    const std::string all(bytes.begin() + 1, bytes.end());
    const std::string text = Small(all.substr(0, bytes[0])), memo = all.substr(text.size());
    platform::host::HostDevice device;
    device.files.Put(L"\\m.txt", memo);
    store::MemoFile file(L"\\m.txt");
    const std::wstring shown = file.Read(nullptr);
    Require(shown.size() == std::min(memo.find('\0'), memo.size()), "a memo is shown up to a zero");
    Require(file.WriteQuietly(shown) && device.files.Get(L"\\m.txt") == memo, "unchanged, a memo stays the same");
    const std::atomic<bool> cancelled{false};
    const bool isFound = search::MemoSearch(text).LookIn(L"\\m.txt", cancelled) == search::MemoResult::Found;
    const std::string small = Small(memo);
    Require(!isFound || small.find(text) != std::string::npos, "what is found is there");
    for (size_t at = small.find(text); !text.empty() && !isFound && at != std::string::npos;
         at = small.find(text, at + 1))
        Require(memo[at] != text[0] && memo.find(text[0], at) != std::string::npos, "what is there is found");
}

void TryDayName(const Bytes& bytes, Care) {
    const std::wstring name(bytes.begin(), bytes.end());
    const std::optional<store::DayFolder> day = store::DayFolder::Named(name);
    if (!day) return;
    Require(day->Name() == name && !day->LongText().empty() && !day->TitleText().empty(), "a day can be shown");
    const store::DayFolder again(day->Date());
    Require(!day->IsOfCalendar() || again.Name() == name, "a day of the calendar has one name");
    Require(again.IsOfCalendar() == platform::IsValidDate(day->Year(), day->Month(), day->Day()), "the calendar's");
}

}  // namespace fuzz
