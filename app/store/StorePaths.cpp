#include "app/store/StorePaths.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <unordered_set>
#include <vector>

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

namespace {

constexpr size_t kLongestName = 255;  // of file systems

// Beyond so many names that are taken the folder is listed, instead of the disk being asked for each.
constexpr int kFewNames = 8;

std::unordered_set<std::wstring> NotesIn(const std::wstring& folder) {
    std::unordered_set<std::wstring> names;
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(WithoutTrailingBackslashes(folder), std::wstring(L"*") + kNoteExtension, entries);
    for (const platform::FolderEntry& entry : entries) names.insert(platform::LowerCase(entry.name));
    return names;
}

}  // namespace

std::wstring NotePathWith(const std::wstring& notePath, const std::wstring& suffix) {
    const std::wstring ending = suffix + kNoteExtension;
    const std::wstring name = NameOf(notePath);
    std::wstring stem = name.substr(0, name.rfind(L'.'));
    if (stem.size() + ending.size() > kLongestName) stem.resize(kLongestName - ending.size());
    if (!stem.empty() && (stem.back() & 0xFC00) == 0xD800) stem.pop_back();  // half a character
    return FolderOf(notePath) + stem + ending;
}

std::wstring NumberedNotePath(const std::wstring& notePath, int n) {
    return NotePathWith(notePath, L" (" + std::to_wstring(n) + L")");
}

std::wstring FreeNotePath(const std::wstring& notePath) {
    std::unordered_set<std::wstring> taken;
    std::wstring candidate = notePath;
    for (int n = 1; taken.count(platform::LowerCase(NameOf(candidate))) != 0 || platform::Exists(candidate);
         ++n) {
        if (n == kFewNames) taken = NotesIn(FolderOf(notePath));
        candidate = NumberedNotePath(notePath, n);
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
