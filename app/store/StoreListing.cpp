#include "app/store/StoreListing.h"

#include <algorithm>
#include <unordered_set>

#include "app/store/StorePaths.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"

namespace store {

namespace {

constexpr wchar_t kMemoExtension[] = L".txt";

std::wstring WithoutExtension(const std::wstring& fileName) {
    return fileName.substr(0, fileName.size() - 4);
}

bool IsNoteFile(const platform::FolderEntry& entry) {
    return !entry.isFolder && EndsWithNoCase(entry.name, kNoteExtension);
}

std::vector<platform::FolderEntry> EntriesOf(const std::wstring& folder) {
    std::vector<platform::FolderEntry> entries;
    platform::ListFolder(WithoutTrailingBackslashes(folder), L"*.*", entries);
    return entries;
}

}  // namespace

// Memos are found in the same listing: asking the disk once more for every note would cost more than all
// else.
StoreListing ListStoreFolder(const std::wstring& folder) {
    const std::vector<platform::FolderEntry> entries = EntriesOf(folder);
    std::unordered_set<std::wstring> memos;
    for (const platform::FolderEntry& entry : entries) {
        if (EndsWithNoCase(entry.name, kMemoExtension))
            memos.insert(platform::LowerCase(WithoutExtension(entry.name)));
    }
    StoreListing listing;
    for (const platform::FolderEntry& entry : entries) {
        if (entry.isFolder) listing.folders.push_back(entry.name);
        if (!IsNoteFile(entry)) continue;
        const std::wstring name = WithoutExtension(entry.name);
        listing.notes.push_back({name, !memos.empty() && memos.count(platform::LowerCase(name)) != 0});
    }
    std::sort(listing.folders.begin(), listing.folders.end(),
              [](const auto& a, const auto& b) { return platform::CompareNames(a, b) < 0; });
    std::sort(listing.notes.begin(), listing.notes.end(),
              [](const ListedNote& a, const ListedNote& b) { return a.name < b.name; });
    return listing;
}

std::vector<std::wstring> ListUserFolders(const std::wstring& root) {
    std::vector<std::wstring> folders = ListStoreFolder(root).folders;
    folders.erase(std::remove_if(folders.begin(), folders.end(), IsReservedName), folders.end());
    return folders;
}

ListedDays ListDays(const std::wstring& reminders) {
    ListedDays days;
    for (const std::wstring& name : ListStoreFolder(reminders).folders) {
        const std::optional<DayFolder> day = DayFolder::Named(name);
        if (day) (HoldsNotes(WithBackslash(reminders) + name) ? days.holding : days.empty).push_back(*day);
    }
    return days;
}

bool HoldsNotes(const std::wstring& folder) {
    std::vector<platform::FolderEntry> notes;
    return platform::ListFolder(WithoutTrailingBackslashes(folder), L"*.ikw", notes) && !notes.empty();
}

}  // namespace store
