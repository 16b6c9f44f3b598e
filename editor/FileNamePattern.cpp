#include "editor/FileNamePattern.h"

#include <algorithm>
#include <cwchar>

#include "app/store/StorePaths.h"
#include "platform/TextEncoding.h"

namespace editor {

namespace {

struct NameContext {
    NoteKind kind;
    const std::wstring& folder;
    const platform::DateTime& moment;
};

std::wstring Digits(int number, size_t width) {
    const std::wstring digits = std::to_wstring(number);
    return std::wstring(width - std::min(width, digits.size()), L'0') + digits;
}

std::wstring TrimBlanks(const std::wstring& text) {
    const size_t first = text.find_first_not_of(L' ');
    return first == std::wstring::npos ? std::wstring()
                                       : text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

std::wstring FolderName(const NameContext& name) {
    return TrimBlanks(store::NameOf(store::WithoutTrailingBackslashes(name.folder)));
}

std::wstring FolderPathNames(const NameContext& name) {
    const std::wstring root = store::ConfiguredRoot();
    const std::wstring prefix = root + L"\\";
    if (name.kind == NoteKind::Reminder || root.empty()) return FolderName(name);
    if (!platform::EqualNoCase(name.folder.substr(0, prefix.size()), prefix)) return FolderName(name);
    std::wstring names = name.folder.substr(prefix.size());
    std::replace(names.begin(), names.end(), L'\\', L' ');
    return TrimBlanks(names);
}

std::wstring LastTwo(const std::wstring& text) {
    return text.substr(text.size() - std::min<size_t>(2, text.size()));
}

// Midnight is hour 0 here too: names made by earlier releases sort among new ones.
int TwelveHour(const platform::DateTime& moment) { return moment.hour > 12 ? moment.hour - 12 : moment.hour; }

struct FormatCode {
    wchar_t letter;
    std::wstring (*expand)(const NameContext& name);
};

const FormatCode kCodes[] = {
    {L'f', FolderName},
    {L'F', FolderPathNames},
    {L'y', [](const NameContext& n) { return LastTwo(Digits(n.moment.year, 1)); }},
    {L'Y', [](const NameContext& n) { return Digits(n.moment.year, 1); }},
    {L'm', [](const NameContext& n) { return Digits(n.moment.month, 2); }},
    {L'M', [](const NameContext& n) { return Digits(n.moment.month, 1); }},
    {L'd', [](const NameContext& n) { return Digits(n.moment.day, 2); }},
    {L'D', [](const NameContext& n) { return Digits(n.moment.day, 1); }},
    {L'g', [](const NameContext& n) { return Digits(TwelveHour(n.moment), 1); }},
    {L'h', [](const NameContext& n) { return Digits(TwelveHour(n.moment), 2); }},
    {L'G', [](const NameContext& n) { return Digits(n.moment.hour, 1); }},
    {L'H', [](const NameContext& n) { return Digits(n.moment.hour, 2); }},
    {L'i', [](const NameContext& n) { return Digits(n.moment.minute, 2); }},
    {L's', [](const NameContext& n) { return Digits(n.moment.second, 2); }},
    {L'a', [](const NameContext& n) -> std::wstring { return n.moment.hour < 12 ? L"am" : L"pm"; }},
    {L'A', [](const NameContext& n) -> std::wstring { return n.moment.hour < 12 ? L"AM" : L"PM"; }},
    {L'%', [](const NameContext&) -> std::wstring { return L"%"; }},
};

std::wstring ExpandCode(wchar_t letter, const NameContext& name) {
    for (const FormatCode& code : kCodes) {
        if (code.letter == letter) return code.expand(name);
    }
    return {L'%', letter};
}

}  // namespace

std::wstring ExpandFileNamePattern(const std::wstring& pattern, NoteKind kind,
                                   const std::wstring& targetFolder, const platform::DateTime& moment) {
    const NameContext name{kind, targetFolder, moment};
    std::wstring text;
    for (size_t i = 0; i < pattern.size(); ++i) {
        const bool isCode = pattern[i] == L'%' && i + 1 < pattern.size();
        text += isCode ? ExpandCode(pattern[i + 1], name) : std::wstring(1, pattern[i]);
        if (isCode) ++i;
    }
    return text;
}

}  // namespace editor
