#include "platform/StoragePaths.h"

#include <algorithm>
#include <iterator>

#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"

namespace platform {

namespace {

constexpr wchar_t kCardName[] = L"Storage Card";
constexpr size_t kCardNameLength = std::size(kCardName) - 1;

bool IsDrive(const std::wstring& name) { return name.size() == 2 && name[1] == L':'; }

}  // namespace

bool IsSharePath(const std::wstring& path) {
    return path.compare(0, 2, L"\\\\") == 0 && path.size() > 2 && path[2] != L'\\';
}

std::wstring StorageCardName(int index) {
    return index == 0 ? kCardName : kCardName + std::to_wstring(index + 1);
}

bool BeginsAsStorageCard(const std::wstring& name) {
    return EqualNoCase(name.substr(0, kCardNameLength), kCardName);
}

std::vector<std::wstring> CardFoldersOfDevice() {
    std::vector<std::wstring> cards;
    std::vector<FolderEntry> entries;
    ListFolder(L"\\", L"*.*", entries);
    for (const FolderEntry& entry : entries) {
        if (entry.isFolder && BeginsAsStorageCard(entry.name)) cards.push_back(entry.name);
    }
    std::sort(cards.begin(), cards.end(),
              [](const std::wstring& a, const std::wstring& b) { return LowerCase(a) < LowerCase(b); });
    return cards;
}

bool IsStorageCardName(const std::wstring& name) {
    return BeginsAsStorageCard(name) &&
           name.find_first_not_of(L"0123456789", kCardNameLength) == std::wstring::npos;
}

std::wstring StorageOf(const std::wstring& path) {
    if (IsSharePath(path)) {
        const size_t server = path.find(L'\\', 2);
        return server == std::wstring::npos ? path : path.substr(0, path.find(L'\\', server + 1));
    }
    if (path.empty() || path[0] != L'\\') return {};
    const std::wstring first = path.substr(0, path.find(L'\\', 1));
    const std::wstring name = first.substr(1);
    return IsDrive(name) || IsStorageCardName(name) ? first : std::wstring();
}

}  // namespace platform
