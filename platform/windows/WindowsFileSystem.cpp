#include <algorithm>
#include <cwchar>

#include "platform/FileSystem.h"
#include "platform/PathParts.h"
#include "platform/StoragePaths.h"
#include "platform/TextEncoding.h"
#include "platform/windows/FileAttributes.h"
#include "platform/windows/FileHolds.h"
#include "platform/windows/Guards.h"
#include "platform/windows/HandheldPath.h"
#include "platform/windows/SystemTimes.h"

namespace platform {

namespace {

using windows::ToHostPath;

// With the daylight saving of that day, not of today.
DateTime LocalTime(const FILETIME& written) {
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    if (!FileTimeToSystemTime(&written, &universal)) return {};
    if (!SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local)) return {};
    return windows::DateTimeOf(local);
}

bool IsFolder(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

bool IsSelfOrParent(const wchar_t* name) {
    return std::wcscmp(name, L".") == 0 || std::wcscmp(name, L"..") == 0;
}

bool ListHostFolder(const std::wstring& hostFolder, const std::wstring& pattern,
                    std::vector<FolderEntry>& entries) {
    const std::wstring everything = hostFolder + (hostFolder.back() == L'\\' ? L"*" : L"\\*");
    WIN32_FIND_DATAW found{};
    const windows::OwnedSearch search = windows::OwnSearch(FindFirstFileW(everything.c_str(), &found));
    // The root of an empty drive holds not even "." and "..".
    if (!search) return GetLastError() == ERROR_FILE_NOT_FOUND;
    do {
        if (IsSelfOrParent(found.cFileName) || !MatchesPattern(found.cFileName, pattern)) continue;
        entries.push_back(
            {found.cFileName, IsFolder(found.dwFileAttributes), LocalTime(found.ftLastWriteTime)});
    } while (FindNextFileW(search.get(), &found));
    return GetLastError() == ERROR_NO_MORE_FILES;
}

// What lies in the handheld's root without lying in the folder behind it.
void AddRootNames(const std::wstring& pattern, std::vector<FolderEntry>& entries) {
    std::vector<std::wstring> names{kDocumentsName};
    const std::vector<std::wstring> cards = windows::ReadableCards();
    names.insert(names.end(), cards.begin(), cards.end());
    for (const std::wstring& name : names) {
        if (MatchesPattern(name, pattern)) entries.push_back({name, true, {}});
    }
}

bool FindAttributes(const std::wstring& path, WIN32_FILE_ATTRIBUTE_DATA& found) {
    const std::wstring host = ToHostPath(path);
    return !host.empty() && GetFileAttributesExW(host.c_str(), GetFileExInfoStandard, &found);
}

// A read-only copy can't be opened for that.
void FlushAsFarAsAllowed(const std::wstring& hostPath) {
    const windows::OwnedHandle file = windows::OwnFile(
        CreateFileW(hostPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    if (file) FlushFileBuffers(file.get());
}

}  // namespace

EntryKind FindEntry(const std::wstring& path) {
    const std::wstring host = ToHostPath(path);
    if (host.empty() || path.empty() || path.back() == L'\\') return EntryKind::Missing;
    if (windows::IsStorageRoot(host)) {
        return GetFileAttributesW(host.c_str()) == INVALID_FILE_ATTRIBUTES ? EntryKind::Missing
                                                                           : EntryKind::Folder;
    }
    WIN32_FIND_DATAW found{};
    const windows::OwnedSearch search = windows::OwnSearch(FindFirstFileW(host.c_str(), &found));
    if (!search) return EntryKind::Missing;
    return IsFolder(found.dwFileAttributes) ? EntryKind::Folder : EntryKind::File;
}

bool ListFolder(const std::wstring& folder, const std::wstring& pattern, std::vector<FolderEntry>& entries) {
    entries.clear();
    const std::wstring host = ToHostPath(folder);
    if (host.empty() || !ListHostFolder(host, pattern, entries)) return false;
    if (IsRoot(folder) && windows::DeviceFolder().empty()) AddRootNames(pattern, entries);
    return true;
}

bool LastWriteTime(const std::wstring& path, DateTime& moment) {
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (!FindAttributes(path, found)) return false;
    moment = LocalTime(found.ftLastWriteTime);
    return true;
}

bool FileSize(const std::wstring& path, uint64_t& bytes) {
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (!FindAttributes(path, found) || IsFolder(found.dwFileAttributes)) return false;
    bytes = static_cast<uint64_t>(found.nFileSizeHigh) << 32 | found.nFileSizeLow;
    return true;
}

bool Exists(const std::wstring& path) {
    const std::wstring host = ToHostPath(path);
    return !host.empty() && GetFileAttributesW(host.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool CanWriteTo(const std::wstring& path, uint64_t& bytes) {
    const std::wstring host = ToHostPath(path);
    windows::OwnedHandle file;
    const bool isOpen = !host.empty() && windows::TryThroughHolds(host, [&] {
        file = windows::OwnFile(CreateFileW(host.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                            FILE_ATTRIBUTE_NORMAL, nullptr));
        return file != nullptr;
    });
    LARGE_INTEGER size{};
    if (!isOpen || !GetFileSizeEx(file.get(), &size)) return false;
    bytes = static_cast<uint64_t>(size.QuadPart);
    return true;
}

bool IsGone(const std::wstring& path) {
    const std::wstring host = ToHostPath(path);
    if (host.empty()) return GetLastError() == ERROR_INVALID_NAME;
    if (GetFileAttributesW(host.c_str()) != INVALID_FILE_ATTRIBUTES) return false;
    const DWORD error = GetLastError();
    if (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) return false;
    return Exists(MemoryOf(path));
}

bool MakeFolder(const std::wstring& path) {
    const std::wstring host = ToHostPath(path);
    return !host.empty() && CreateDirectoryW(host.c_str(), nullptr);
}

bool DropFolder(const std::wstring& path) {
    const std::wstring host = ToHostPath(path);
    return !host.empty() &&
           windows::TryThroughHolds(host, [&] { return RemoveDirectoryW(host.c_str()) != FALSE; });
}

bool EraseFile(const std::wstring& path) {
    const std::wstring host = ToHostPath(path);
    return !host.empty() &&
           windows::TryThroughHolds(host, [&] { return DeleteFileW(host.c_str()) != FALSE; });
}

namespace {

std::wstring NameOf(const std::wstring& path) { return path.substr(path.rfind(L'\\') + 1); }

bool IsHostFolder(const std::wstring& host) {
    const DWORD attributes = GetFileAttributesW(host.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && IsFolder(attributes);
}

bool Move(const std::wstring& hostFrom, const std::wstring& hostTo) {
    return windows::TryThroughHolds(hostTo, [&] {
        // From one drive to another a file is copied and erased; folders stay where they are.
        if (MoveFileExW(hostFrom.c_str(), hostTo.c_str(), MOVEFILE_COPY_ALLOWED)) return true;
        // What the system says of a folder in which a file is held.
        const DWORD error = GetLastError();
        const bool isHold = error == ERROR_ACCESS_DENIED && IsHostFolder(hostFrom);
        SetLastError(isHold ? ERROR_SHARING_VIOLATION : error);
        return false;
    });
}

// A file system that keeps letter case, below a system that ignores it, takes the new name for the old one.
bool ChangeLetterCase(const std::wstring& hostFrom, const std::wstring& hostTo) {
    WIN32_FIND_DATAW found{};
    const std::wstring between = hostTo + L".renamed";
    if (!Move(hostFrom, hostTo)) return false;
    const windows::OwnedSearch search = windows::OwnSearch(FindFirstFileW(hostTo.c_str(), &found));
    if (search && NameOf(hostTo) == found.cFileName) return true;
    return Move(hostFrom, between) && Move(between, hostTo);
}

}  // namespace

bool MoveEntry(const std::wstring& from, const std::wstring& to) {
    const std::wstring hostFrom = ToHostPath(from);
    const std::wstring hostTo = ToHostPath(to);
    if (hostFrom.empty() || hostTo.empty()) return false;
    return EqualNoCase(hostFrom, hostTo) ? ChangeLetterCase(hostFrom, hostTo) : Move(hostFrom, hostTo);
}

bool CopyFileTo(const std::wstring& from, const std::wstring& to) {
    const std::wstring hostFrom = ToHostPath(from);
    const std::wstring hostTo = ToHostPath(to);
    if (hostFrom.empty() || hostTo.empty()) return false;
    const bool isCopied = windows::TryThroughHolds(
        hostTo, [&] { return CopyFileW(hostFrom.c_str(), hostTo.c_str(), FALSE) != FALSE; });
    if (isCopied) FlushAsFarAsAllowed(hostTo);
    return isCopied;
}

namespace {

windows::OwnedHandle OpenShared(const std::wstring& host, DWORD access) {
    return windows::OwnFile(CreateFileW(host.c_str(), access,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// False also when somebody holds the old file: of that the move would only say that access is denied.
bool TakeOverAttributes(const std::wstring& hostFrom, const std::wstring& hostOld) {
    const windows::OwnedHandle old = OpenShared(hostOld, DELETE | FILE_READ_ATTRIBUTES);
    FILE_BASIC_INFO info{};
    if (!old || !GetFileInformationByHandleEx(old.get(), FileBasicInfo, &info, sizeof info)) return false;
    if (windows::IsOrdinaryFile(info.FileAttributes)) return true;
    const windows::OwnedHandle from = OpenShared(hostFrom, FILE_WRITE_ATTRIBUTES);
    info.LastAccessTime.QuadPart = info.LastWriteTime.QuadPart = info.ChangeTime.QuadPart = 0;
    return from && SetFileInformationByHandle(from.get(), FileBasicInfo, &info, sizeof info);
}

}  // namespace

// Not by ReplaceFileW: that moves the old file out of the way first, and whoever is ended in between leaves
// none. It serves where others have the old file open and would let it go.
bool PutInPlace(const std::wstring& from, const std::wstring& to) {
    const std::wstring hostFrom = ToHostPath(from);
    const std::wstring hostTo = ToHostPath(to);
    if (hostFrom.empty() || hostTo.empty()) return false;
    return windows::TryThroughHolds(hostTo, [&] {
        const DWORD attributes = GetFileAttributesW(hostTo.c_str());
        const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
        if (isThere && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
            SetLastError(ERROR_ACCESS_DENIED);
            return false;
        }
        if (isThere && !TakeOverAttributes(hostFrom, hostTo)) return false;
        const DWORD how = MOVEFILE_WRITE_THROUGH | (isThere ? DWORD{MOVEFILE_REPLACE_EXISTING} : 0u);
        if (MoveFileExW(hostFrom.c_str(), hostTo.c_str(), how)) return true;
        return isThere && GetLastError() == ERROR_ACCESS_DENIED &&
               ReplaceFileW(hostTo.c_str(), hostFrom.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
                            nullptr, nullptr) != FALSE;
    });
}

bool FreeBytes(const std::wstring& folder, uint64_t& bytes) {
    std::wstring host = ToHostPath(folder);
    if (host.empty()) return false;
    if (host.back() != L'\\') host += L'\\';  // shares want it
    ULARGE_INTEGER available{};
    if (!GetDiskFreeSpaceExW(host.c_str(), &available, nullptr, nullptr)) return false;
    bytes = available.QuadPart;
    return true;
}

std::wstring DocumentsFolder() {
    std::wstring folder = L"\\" + std::wstring(kDocumentsName);
    MakeFolder(folder);  // fails when it is there already
    return folder;
}

std::vector<std::wstring> StorageCards() {
    return windows::DeviceFolder().empty() ? windows::ReadableCards() : CardFoldersOfDevice();
}

std::wstring FromHostPath(const std::wstring& path) { return windows::ToHandheldPath(path); }

}  // namespace platform
