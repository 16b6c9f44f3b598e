#include "app/StorePaths.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>

#include "app/Settings.h"
#include "platform/FileSystem.h"
#include "platform/StoragePaths.h"
#include "platform/TextEncoding.h"

namespace app {

const wchar_t* const kNoteExtension = L".ikw";
const wchar_t* const kProductFolder = L"Inkwright";
const wchar_t* const kNewNotesFolder = L"New Notes";
const wchar_t* const kRemindersFolder = L"Reminders";

std::wstring WithBackslash(const std::wstring& path) {
    return path.size() <= 1 || EndsInBackslash(path) ? path : path + L"\\";
}

std::wstring WithoutTrailingBackslashes(const std::wstring& path) {
    const size_t last = path.find_last_not_of(L'\\');
    return last == std::wstring::npos ? std::wstring() : path.substr(0, last + 1);
}

bool EndsInBackslash(const std::wstring& path) { return !path.empty() && path.back() == L'\\'; }

std::wstring FolderOf(const std::wstring& path) {
    return path.substr(0, path.rfind(L'\\') + 1);  // npos + 1 is 0: no folder
}

std::wstring NameOf(const std::wstring& path) { return path.substr(path.rfind(L'\\') + 1); }

std::wstring NoteName(const std::wstring& notePath) {
    const std::wstring name = NameOf(notePath);
    return name.substr(0, name.size() - std::min<size_t>(name.size(), 4));
}

bool EndsWithNoCase(const std::wstring& path, const std::wstring& ending) {
    return path.size() >= ending.size() &&
           platform::EqualNoCase(path.substr(path.size() - ending.size()), ending);
}

std::wstring FreeNotePath(const std::wstring& notePath) {
    const std::wstring base = notePath.substr(0, notePath.rfind(L'.'));
    std::wstring candidate = notePath;
    for (int n = 1; platform::Exists(candidate); ++n) {
        candidate = base + L" (" + std::to_wstring(n) + L")" + kNoteExtension;
    }
    return candidate;
}

bool NamesFile(const std::wstring& notePath) { return !notePath.empty() && !EndsInBackslash(notePath); }

void EnsureFolders(const std::wstring& path) {
    const std::wstring whole = WithoutTrailingBackslashes(path);
    if (whole.empty() || platform::FindEntry(whole) != platform::EntryKind::Missing) return;
    const std::wstring rooted =
        platform::IsSharePath(whole) ? whole : L"\\" + whole.substr(whole.find_first_not_of(L'\\'));
    size_t end = platform::StorageOf(rooted).size();
    while (end < rooted.size()) {
        end = std::min(rooted.find(L'\\', end + 1), rooted.size());
        platform::MakeFolder(rooted.substr(0, end));
    }
}

bool IsFile(const std::wstring& path) { return platform::FindEntry(path) == platform::EntryKind::File; }

bool IsFolder(const std::wstring& path) { return platform::FindEntry(path) == platform::EntryKind::Folder; }

std::wstring ConfiguredRoot() { return WithoutTrailingBackslashes(Settings::Text(SettingId::RootDirPath)); }

std::wstring StoreRoot() {
    const std::wstring configured = ConfiguredRoot();
    return configured.empty() ? platform::DocumentsFolder() + L"\\" + kProductFolder : configured;
}

std::wstring RootPrefix() { return StoreRoot() + L"\\"; }

std::wstring DateFolderName(const platform::DateTime& date) {
    wchar_t name[32];
    std::swprintf(name, std::size(name), L"%04d-%02d-%02d", date.year, date.month, date.day);
    return name;
}

bool ParseDateFolderName(const std::wstring& name, platform::DateTime& date) {
    constexpr wchar_t kForm[] = L"dddd-dd-dd";
    if (name.size() != std::size(kForm) - 1) return false;
    for (size_t i = 0; i < name.size(); ++i) {
        if (kForm[i] == L'-' ? name[i] != L'-' : name[i] < L'0' || name[i] > L'9') return false;
    }
    const int year = std::stoi(name.substr(0, 4));
    const int month = std::stoi(name.substr(5, 2));
    const int day = std::stoi(name.substr(8, 2));
    if (!platform::IsValidDate(year, month, day)) return false;
    date = {};
    date.year = year;
    date.month = month;
    date.day = day;
    date.dayOfWeek = platform::DayOfWeek(year, month, day);
    return true;
}

std::wstring MemoPath(const std::wstring& notePath) {
    const size_t dot = notePath.rfind(L'.');
    return dot == std::wstring::npos ? std::wstring() : notePath.substr(0, dot) + L".txt";
}

// Compared as the file system stores names: without trailing dots and blanks.
bool IsReservedName(const std::wstring& folderName) {
    const std::wstring name = folderName.substr(0, folderName.find_last_not_of(L". ") + 1);
    return platform::EqualNoCase(name, kRemindersFolder) || platform::EqualNoCase(name, L"temp");
}

bool HoldsNotes(const std::wstring& folder) {
    std::vector<platform::FolderEntry> notes;
    return platform::ListFolder(WithoutTrailingBackslashes(folder), L"*.ikw", notes) && !notes.empty();
}

std::wstring TemporaryFolder() { return platform::DocumentsFolder() + L"\\" + kProductFolder + L"\\Temp\\"; }

}  // namespace app
