#include "platform/windows/HandheldPath.h"

#include <algorithm>
#include <cwchar>
#include <memory>
#include <vector>

#include "platform/TextEncoding.h"
#include "platform/windows/Guards.h"

namespace platform::windows {

namespace {

constexpr wchar_t kLongPrefix[] = L"\\\\?\\";
constexpr wchar_t kLongSharePrefix[] = L"\\\\?\\UNC\\";
constexpr wchar_t kCardName[] = L"Storage Card";

bool StartsWith(const std::wstring& text, const wchar_t* prefix) {
    return text.compare(0, std::wcslen(prefix), prefix) == 0;
}

bool IsLetter(wchar_t c) { return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z'); }

// "X:" at `at`, as a whole part.
bool IsDrive(const std::wstring& text) { return text.size() == 2 && IsLetter(text[0]) && text[1] == L':'; }

bool IsName(const std::wstring& part) {
    for (const wchar_t c : part) {
        if (c < L' ' || std::wcschr(L"/:*?\"<>|", c)) return false;
    }
    return true;
}

// The system drops trailing dots and blanks of names, except behind the prefix that we use. This leaves
// nothing of "." and "..".
std::wstring WithoutTrailingDots(const std::wstring& part) {
    const size_t last = part.find_last_not_of(L". ");
    return last == std::wstring::npos ? std::wstring() : part.substr(0, last + 1);
}

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

std::wstring EnvironmentText(const wchar_t* name) {
    std::vector<wchar_t> text(GetEnvironmentVariableW(name, nullptr, 0));
    if (text.empty()) return {};
    const DWORD length = GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size()));
    return length < text.size() ? std::wstring(text.data(), length) : std::wstring();
}

std::wstring FullPath(const std::wstring& path) {
    std::vector<wchar_t> text(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr));
    if (text.empty()) return {};
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(text.size()), text.data(), nullptr);
    std::wstring full(text.data(), length < text.size() ? length : 0);
    while (full.size() > 3 && full.back() == L'\\') full.pop_back();
    return full;
}

std::wstring KnownFolder(REFKNOWNFOLDERID which) {
    PWSTR text = nullptr;
    const HRESULT got = SHGetKnownFolderPath(which, KF_FLAG_CREATE, nullptr, &text);
    const std::unique_ptr<wchar_t, FreeTaskMemory> memory(text);
    return SUCCEEDED(got) ? std::wstring(text) : std::wstring();
}

// Makes a folder of the host and every level above it that is missing.
void MakeLevels(const std::wstring& folder) {
    if (GetFileAttributesW(folder.c_str()) != INVALID_FILE_ATTRIBUTES) return;
    const size_t above = folder.rfind(L'\\');
    if (above == std::wstring::npos || above < 3) return;
    MakeLevels(folder.substr(0, above));
    CreateDirectoryW(folder.c_str(), nullptr);
}

// What the handheld's "\" is: the device folder, or the program's own folder for the rest.
std::wstring RootFolder() {
    std::wstring folder = EnvironmentText(L"INKWRIGHT_DEVICE");
    folder = folder.empty() ? KnownFolder(FOLDERID_LocalAppData) + L"\\Inkwright\\Device" : FullPath(folder);
    MakeLevels(folder);
    return folder;
}

std::wstring DocumentsHostFolder() { return KnownFolder(FOLDERID_Documents); }

std::vector<std::wstring> RemovableDrives() {
    std::vector<std::wstring> drives;
    const DWORD present = GetLogicalDrives();
    for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
        const std::wstring drive{letter, L':'};
        const bool exists = (present >> (letter - L'A') & 1) != 0;
        if (exists && GetDriveTypeW((drive + L"\\").c_str()) == DRIVE_REMOVABLE) drives.push_back(drive);
    }
    return drives;
}

// -1 for a name that is no card's.
int StorageCardIndex(const std::wstring& name, int count) {
    for (int i = 0; i < count; ++i) {
        if (EqualNoCase(name, StorageCardName(i))) return i;
    }
    return -1;
}

// The host folder behind the first part of a path, when that part is one of the special names.
std::wstring SpecialFolder(const std::wstring& name) {
    if (EqualNoCase(name, kDocumentsName)) return DocumentsHostFolder();
    if (IsDrive(name)) return name;
    if (name.size() < std::wcslen(kCardName)) return {};
    if (!EqualNoCase(name.substr(0, std::wcslen(kCardName)), kCardName)) return {};
    const std::vector<std::wstring> drives = RemovableDrives();
    const int card = StorageCardIndex(name, static_cast<int>(drives.size()));
    return card < 0 ? std::wstring() : drives[static_cast<size_t>(card)];
}

std::wstring WithLongPrefix(const std::wstring& path) {
    return StartsWith(path, L"\\\\") ? kLongSharePrefix + path.substr(2) : kLongPrefix + path;
}

bool IsShare(const std::wstring& path) {
    return StartsWith(path, L"\\\\") && path.size() > 2 && path[2] != L'\\';
}

// The rest of `path` below `folder`, or false. Case does not count.
bool IsBelow(const std::wstring& path, const std::wstring& folder, std::wstring& rest) {
    if (folder.empty() || path.size() < folder.size()) return false;
    if (!EqualNoCase(path.substr(0, folder.size()), folder)) return false;
    rest = path.substr(folder.size());
    return rest.empty() || rest[0] == L'\\';
}

}  // namespace

std::wstring StorageCardName(int index) {
    return index == 0 ? kCardName : kCardName + std::to_wstring(index + 1);
}

int StorageCardCount() { return static_cast<int>(RemovableDrives().size()); }

bool HasDeviceFolder() { return !EnvironmentText(L"INKWRIGHT_DEVICE").empty(); }

bool IsDriveRoot(const std::wstring& hostPath) {
    const size_t prefix = StartsWith(hostPath, kLongPrefix) ? std::wcslen(kLongPrefix) : 0;
    return hostPath.size() == prefix + 3 && hostPath[prefix + 1] == L':';
}

std::wstring ToHostPath(const std::wstring& handheldPath) {
    std::vector<std::wstring> parts = PartsOf(handheldPath);
    std::wstring host;
    size_t first = 0;
    if (!HasDeviceFolder() && IsShare(handheldPath)) {
        host = L"\\";
    } else {
        if (!HasDeviceFolder() && !parts.empty()) host = SpecialFolder(parts[0]);
        first = host.empty() ? 0 : 1;
        if (host.empty()) host = RootFolder();
    }
    for (size_t i = first; i < parts.size(); ++i) {
        if (!IsName(parts[i])) return {};
        host += L'\\' + parts[i];
    }
    if (IsDrive(host)) host += L'\\';
    return WithLongPrefix(host);
}

std::wstring ToShellPath(const std::wstring& handheldPath) {
    const std::wstring host = ToHostPath(handheldPath);
    if (StartsWith(host, kLongSharePrefix)) return L"\\\\" + host.substr(std::wcslen(kLongSharePrefix));
    return StartsWith(host, kLongPrefix) ? host.substr(std::wcslen(kLongPrefix)) : host;
}

std::wstring ToHandheldPath(const std::wstring& hostPath) {
    std::wstring path = hostPath;
    if (StartsWith(path, kLongSharePrefix)) return L"\\\\" + path.substr(std::wcslen(kLongSharePrefix));
    if (StartsWith(path, kLongPrefix)) path.erase(0, std::wcslen(kLongPrefix));
    if (path.size() < 2 || !IsDrive(path.substr(0, 2))) return hostPath;
    const bool isFolder = path.back() == L'\\' || path.back() == L'/';
    path = FullPath(path);
    std::wstring rest;
    std::wstring handheld = L"\\" + path;
    if (!HasDeviceFolder() && IsBelow(path, DocumentsHostFolder(), rest)) {
        handheld = L"\\" + std::wstring(kDocumentsName) + rest;
    } else if (IsBelow(path, RootFolder(), rest)) {
        handheld = rest.empty() ? L"\\" : rest;
    }
    if (isFolder && handheld.back() != L'\\') handheld += L'\\';
    return handheld;
}

}  // namespace platform::windows
