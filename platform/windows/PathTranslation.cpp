#include "platform/windows/PathTranslation.h"

#include <algorithm>
#include <cwchar>

#include "platform/PathParts.h"
#include "platform/StoragePaths.h"
#include "platform/TextEncoding.h"

namespace platform::windows {

namespace {

constexpr wchar_t kLongPrefix[] = L"\\\\?\\";
constexpr wchar_t kLongSharePrefix[] = L"\\\\?\\UNC\\";

bool StartsWith(const std::wstring& text, const wchar_t* prefix) {
    return text.compare(0, std::wcslen(prefix), prefix) == 0;
}

bool IsDrive(const std::wstring& text) { return text.size() == 2 && BeginsWithDrive(text); }

// The host folder that the first `used` parts of a path stand for.
struct Beginning {
    std::wstring folder;
    size_t used = 0;
};

Beginning BeginningOf(const std::wstring& path, const std::vector<std::wstring>& parts,
                      const HostPlaces& places) {
    // One folder that is the whole handheld has no network.
    if (IsSharePath(path) && parts.size() > 1)
        return {places.isDevice ? std::wstring() : L"\\\\" + parts[0] + L"\\" + parts[1], 2};
    if (IsSharePath(path)) return {};
    if (!parts.empty() && IsStorageCardName(parts[0])) return {places.card(parts[0]), 1};
    if (places.isDevice || parts.empty()) return {places.root, 0};
    if (IsDrive(parts[0])) return {parts[0], 1};
    return EqualNoCase(parts[0], kDocumentsName) ? Beginning{places.documents, 1} : Beginning{places.root, 0};
}

bool NamesStorage(const std::wstring& host) {
    return IsDrive(host) || (IsSharePath(host) && StorageOf(host) == host);
}

std::wstring WithLongPrefix(const std::wstring& path) {
    return IsSharePath(path) ? kLongSharePrefix + path.substr(2) : kLongPrefix + path;
}

// The rest of `path` below `folder`, or false. Case does not count.
bool IsBelow(const std::wstring& path, const std::wstring& folder, std::wstring& rest) {
    if (folder.empty() || path.size() < folder.size()) return false;
    if (!EqualNoCase(path.substr(0, folder.size()), folder)) return false;
    rest = path.substr(folder.size());
    return rest.empty() || rest[0] == L'\\';
}

}  // namespace

bool BeginsWithDrive(const std::wstring& path) {
    if (path.size() < 2 || path[1] != L':') return false;
    return (path[0] >= L'A' && path[0] <= L'Z') || (path[0] >= L'a' && path[0] <= L'z');
}

bool IsAbsolute(const std::wstring& path) {
    return IsSharePath(path) || (BeginsWithDrive(path) && path.size() > 2 && path[2] == L'\\');
}

std::wstring Unquoted(const std::wstring& path) {
    std::wstring text = path;
    text.erase(std::remove(text.begin(), text.end(), L'"'), text.end());
    return text;
}

std::vector<std::wstring> AbsoluteFolders(const std::wstring& searchPath) {
    std::vector<std::wstring> folders;
    for (size_t begin = 0; begin < searchPath.size();) {
        const size_t end = std::min(searchPath.find(L';', begin), searchPath.size());
        std::wstring folder = Unquoted(searchPath.substr(begin, end - begin));
        begin = end + 1;
        if (!IsAbsolute(folder)) continue;
        while (folder.back() == L'\\') folder.pop_back();
        folders.push_back(folder);
    }
    return folders;
}

std::wstring TranslateToHost(const std::wstring& handheldPath, const HostPlaces& places, PathFault& fault) {
    const std::vector<std::wstring> parts = PartsOf(handheldPath);
    const Beginning beginning = BeginningOf(handheldPath, parts, places);
    fault = PathFault::NoStorage;
    if (beginning.folder.empty()) return {};
    fault = PathFault::BadName;
    std::wstring host = beginning.folder;
    for (size_t i = beginning.used; i < parts.size(); ++i) {
        if (!IsName(parts[i])) return {};
        host += L'\\' + parts[i];
    }
    if (IsSharePath(host) && !IsName(StorageOf(host).substr(2))) return {};
    fault = PathFault::None;
    if (NamesStorage(host)) host += L'\\';
    return WithLongPrefix(host);
}

std::wstring TranslateToHandheld(const std::wstring& fullPath, const HostPlaces& places) {
    std::wstring rest;
    if (!places.isDevice && IsBelow(fullPath, places.documents, rest))
        return L"\\" + std::wstring(kDocumentsName) + rest;
    if (IsBelow(fullPath, places.root, rest)) return rest.empty() ? L"\\" : rest;
    if (IsSharePath(fullPath)) return fullPath;
    return L"\\" + fullPath;
}

std::wstring WithoutLongPrefix(const std::wstring& hostPath) {
    if (StartsWith(hostPath, kLongSharePrefix))
        return L"\\\\" + hostPath.substr(std::wcslen(kLongSharePrefix));
    return StartsWith(hostPath, kLongPrefix) ? hostPath.substr(std::wcslen(kLongPrefix)) : hostPath;
}

}  // namespace platform::windows
