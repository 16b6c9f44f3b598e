#include "app/store/StorePaths.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>

#include "app/store/Settings.h"
#include "platform/FileSystem.h"
#include "platform/Product.h"
#include "platform/StoragePaths.h"
#include "platform/TextEncoding.h"

namespace store {

const wchar_t* const kNoteExtension = L".ikw";
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

std::wstring StoreOn(const std::wstring& storage) { return storage + L"\\" + platform::kProductName; }

std::wstring DefaultRoot() { return StoreOn(platform::DocumentsFolder()); }

std::wstring StoreRoot() {
    const std::wstring configured = ConfiguredRoot();
    return configured.empty() ? DefaultRoot() : configured;
}

std::wstring RootPrefix() { return StoreRoot() + L"\\"; }

std::wstring MemoPath(const std::wstring& notePath) {
    const size_t dot = notePath.rfind(L'.');
    return dot == std::wstring::npos ? std::wstring() : notePath.substr(0, dot) + L".txt";
}

// Compared as the file system stores names: without trailing dots and blanks.
bool IsReservedName(const std::wstring& folderName) {
    const std::wstring name = folderName.substr(0, folderName.find_last_not_of(L". ") + 1);
    return platform::EqualNoCase(name, kRemindersFolder) || platform::EqualNoCase(name, L"temp");
}

std::wstring TemporaryFolder() { return DefaultRoot() + L"\\Temp\\"; }

}  // namespace store
