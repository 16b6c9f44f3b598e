#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>
#include <memory>

#include "platform/FileSystem.h"
#include "platform/PathParts.h"
#include "platform/StoragePaths.h"
#include "platform/TextEncoding.h"
#include "platform/qt/system/DiskText.h"
#include "platform/qt/system/HandheldPath.h"
#include "platform/qt/system/HeldFile.h"
#include "platform/qt/system/LocalTime.h"
#include "platform/qt/system/UserFolders.h"

namespace platform {

namespace {

using qt::ToHostPath;

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

bool Ask(const std::wstring& path, struct stat& found) {
    const std::string host = ToHostPath(path);
    return !host.empty() && stat(host.c_str(), &found) == 0;
}

// A link that leads nowhere is an entry, too: a file that can't be opened.
bool AskEntry(int folder, const char* name, struct stat& found) {
    return fstatat(folder, name, &found, 0) == 0 || fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW) == 0;
}

bool ListHostFolder(const std::string& host, const std::wstring& pattern, std::vector<FolderEntry>& entries) {
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(host.c_str()));
    if (!folder) return false;
    errno = 0;
    while (const dirent* const entry = readdir(folder.get())) {
        const std::string name = entry->d_name;
        const std::wstring shown = qt::NameFromDisk(name);
        struct stat found {};
        if (name == "." || name == ".." || !MatchesPattern(shown, pattern)) continue;
        if (AskEntry(dirfd(folder.get()), entry->d_name, found))
            entries.push_back({shown, S_ISDIR(found.st_mode), qt::LocalTime(found.st_mtim)});
        errno = 0;
    }
    return errno == 0;
}

// What lies in the handheld's root without lying in the folder behind it.
void AddRootNames(const std::wstring& pattern, std::vector<FolderEntry>& entries) {
    std::vector<std::wstring> names{kDocumentsName};
    const std::vector<std::wstring> cards = qt::ReadableCards();
    names.insert(names.end(), cards.begin(), cards.end());
    for (const std::wstring& name : names) {
        if (MatchesPattern(name, pattern)) entries.push_back({name, true, {}});
    }
}

// Of a place elsewhere, which may be a storage that is away, its folder says more than the whole system.
std::wstring WitnessOf(const std::wstring& path) {
    return qt::IsElsewhere(path) ? path.substr(0, path.rfind(L'\\')) : MemoryOf(path);
}

}  // namespace

EntryKind FindEntry(const std::wstring& path) {
    struct stat found {};
    if (path.empty() || path.back() == L'\\' || !Ask(path, found)) return EntryKind::Missing;
    return S_ISDIR(found.st_mode) ? EntryKind::Folder : EntryKind::File;
}

bool ListFolder(const std::wstring& folder, const std::wstring& pattern, std::vector<FolderEntry>& entries) {
    entries.clear();
    const std::string host = ToHostPath(folder);
    if (host.empty() || !ListHostFolder(host, pattern, entries)) return false;
    if (IsRoot(folder) && qt::DeviceFolder().empty()) AddRootNames(pattern, entries);
    return true;
}

bool LastWriteTime(const std::wstring& path, DateTime& moment) {
    struct stat found {};
    if (!Ask(path, found)) return false;
    moment = qt::LocalTime(found.st_mtim);
    return true;
}

bool FileSize(const std::wstring& path, uint64_t& bytes) {
    struct stat found {};
    if (!Ask(path, found) || S_ISDIR(found.st_mode)) return false;
    bytes = static_cast<uint64_t>(found.st_size);
    return true;
}

bool Exists(const std::wstring& path) {
    struct stat found {};
    return Ask(path, found);
}

bool CanWriteTo(const std::wstring& path, uint64_t& bytes) {
    const std::string host = ToHostPath(path);
    struct stat found {};
    if (host.empty() || qt::IsReadOnly(host)) return false;
    const qt::OwnedFd file = qt::OpenHeldPatiently(host, O_WRONLY, qt::Hold::Alone);
    if (!file || fstat(file.Get(), &found) != 0) return false;
    bytes = static_cast<uint64_t>(found.st_size);
    return true;
}

bool IsGone(const std::wstring& path) {
    struct stat found {};
    const std::string host = ToHostPath(path);
    if (host.empty()) return errno == EINVAL;
    if (stat(host.c_str(), &found) == 0 || (errno != ENOENT && errno != ENOTDIR)) return false;
    return Exists(WitnessOf(path));
}

bool MakeFolder(const std::wstring& path) {
    const std::string host = ToHostPath(path);
    return !host.empty() && qt::MayBeMade(host) && mkdir(host.c_str(), 0777) == 0;
}

bool DropFolder(const std::wstring& path) {
    const std::string host = ToHostPath(path);
    return !host.empty() && rmdir(host.c_str()) == 0;
}

bool EraseFile(const std::wstring& path) {
    const std::string host = ToHostPath(path);
    if (host.empty() || qt::IsReadOnly(host)) return false;
    struct stat found {};
    // What can't be opened, as a link that leads nowhere, nobody holds.
    const bool canBeHeld = stat(host.c_str(), &found) == 0 && S_ISREG(found.st_mode);
    const qt::OwnedFd held =
        canBeHeld ? qt::OpenHeldPatiently(host, O_RDONLY, qt::Hold::Alone) : qt::OwnedFd();
    if (canBeHeld && !held && errno != EACCES) return false;
    return unlink(host.c_str()) == 0;
}

bool FreeBytes(const std::wstring& folder, uint64_t& bytes) {
    struct statvfs found {};
    const std::string host = ToHostPath(folder);
    if (host.empty() || statvfs(host.c_str(), &found) != 0) return false;
    bytes = uint64_t{found.f_bavail} * found.f_frsize;
    return true;
}

std::wstring DocumentsFolder() {
    std::wstring folder = L"\\" + std::wstring(kDocumentsName);
    MakeFolder(folder);  // fails when it is there already
    return folder;
}

std::vector<std::wstring> StorageCards() {
    return qt::DeviceFolder().empty() ? qt::ReadableCards() : CardFoldersOfDevice();
}

std::wstring FromHostPath(const std::wstring& path) {
    std::string host;
    const bool isHost = !path.empty() && path[0] == L'/' && qt::ToDisk(path, host);
    return isHost ? qt::ToHandheldPath(host) : path;
}

}  // namespace platform
