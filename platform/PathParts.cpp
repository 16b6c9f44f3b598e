#include "platform/PathParts.h"

#include <algorithm>
#include <cwchar>

#include "platform/StoragePaths.h"
#include "platform/TextEncoding.h"

namespace platform {

namespace {

std::wstring WithoutTrailingDots(const std::wstring& part) {
    const size_t last = part.find_last_not_of(L". ");
    return last == std::wstring::npos ? std::wstring() : part.substr(0, last + 1);
}

}  // namespace

std::vector<std::wstring> PartsOf(const std::wstring& path) {
    std::vector<std::wstring> parts;
    for (size_t begin = 0; begin < path.size();) {
        const size_t end = std::min(path.find(L'\\', begin), path.size());
        const std::wstring part = WithoutTrailingDots(path.substr(begin, end - begin));
        if (!part.empty()) parts.push_back(part);
        begin = end + 1;
    }
    return parts;
}

bool IsName(const std::wstring& part) {
    for (const wchar_t c : part) {
        if (c < L' ' || std::wcschr(L"/:*?\"<>|", c)) return false;
    }
    return true;
}

bool IsRoot(const std::wstring& path) { return path.find_first_not_of(L'\\') == std::wstring::npos; }

bool MatchesPattern(const std::wstring& name, const std::wstring& pattern) {
    if (pattern == L"*.*" || pattern == L"*") return true;
    if (pattern.empty() || pattern[0] != L'*') return EqualNoCase(name, pattern);
    const size_t length = pattern.size() - 1;
    return name.size() >= length && EqualNoCase(name.substr(name.size() - length), pattern.substr(1));
}

std::wstring MemoryOf(const std::wstring& path) {
    const std::wstring rooted = path.empty() || path[0] != L'\\' ? L"\\" + path : path;
    std::wstring storage = StorageOf(rooted);
    if (!storage.empty()) return storage;
    const std::wstring documents = L"\\" + std::wstring(kDocumentsName);
    return EqualNoCase(rooted.substr(0, documents.size() + 1), documents + L"\\") ? documents : L"\\";
}

}  // namespace platform
