// What brings files and folders to other places.
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/PathParts.h"
#include "platform/TextEncoding.h"
#include "platform/qt/system/DiskText.h"
#include "platform/qt/system/HandheldPath.h"
#include "platform/qt/system/HeldFile.h"
#include "platform/qt/system/UserFolders.h"

namespace platform {

namespace {

using qt::ToHostPath;

constexpr size_t kPortion = 256 * 1024;
constexpr char kBeside[] = "/.inkwright-XXXXXX";

bool IsHostFolder(const std::string& host) {
    struct stat found {};
    return stat(host.c_str(), &found) == 0 && S_ISDIR(found.st_mode);
}

bool CopyBytes(int from, int to) {
    std::vector<char> portion(kPortion);
    for (;;) {
        const ssize_t got = read(from, portion.data(), portion.size());
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return got == 0;
        if (!qt::WriteAll(to, portion.data(), static_cast<size_t>(got))) return false;
    }
}

// Bytes, permissions and the moment of the last writing.
bool CopyContent(int from, int to) {
    struct stat found {};
    if (fstat(from, &found) != 0 || !CopyBytes(from, to)) return false;
    const timespec times[] = {{0, UTIME_OMIT}, found.st_mtim};
    return fchmod(to, found.st_mode & 0777) == 0 && futimens(to, times) == 0 && fsync(to) == 0;
}

// A copy beside its later place, of a name that nobody looks for; erased with its owner.
class CopyBeside {
  public:
    CopyBeside(int from, const std::string& place) : path_(qt::FolderOf(place) + kBeside) {
        file_ = qt::OwnedFd(mkostemp(path_.data(), O_CLOEXEC));
        isWhole_ = file_ && qt::TakeHold(file_.Get(), qt::Hold::Alone) && CopyContent(from, file_.Get());
        error_ = errno;
    }
    CopyBeside(const CopyBeside&) = delete;
    CopyBeside& operator=(const CopyBeside&) = delete;
    ~CopyBeside() {
        if (file_ && !isPut_) unlink(path_.c_str());
    }

    bool PutAt(const std::string& place, bool overFile) {
        errno = error_;
        if (!isWhole_) return false;
        isPut_ = overFile ? qt::RenameInPlace(file_.Get(), path_, place) : qt::RenameToFreeName(path_, place);
        return isPut_ && qt::FlushFolder(qt::FolderOf(place));
    }

  private:
    std::string path_;
    qt::OwnedFd file_;
    bool isWhole_ = false;
    bool isPut_ = false;
    int error_ = 0;
};

// From one file system to another a file is copied and erased; folders stay where they are.
bool MoveFileAcross(int openFrom, const std::string& from, const std::string& to) {
    CopyBeside copy(openFrom, to);
    return copy.PutAt(to, false) && unlink(from.c_str()) == 0;
}

bool Move(const std::string& from, const std::string& to) {
    return qt::TryThroughHolds([&] {
        qt::OwnedFd held;
        if (!IsHostFolder(from)) {
            held = qt::OpenHeld(from, O_RDONLY, qt::Hold::Alone);
            if (!held) return false;
        }
        if (qt::RenameToFreeName(from, to)) return true;
        return errno == EXDEV && held && MoveFileAcross(held.Get(), from, to);
    });
}

bool AreOneEntry(const std::string& a, const std::string& b) {
    struct stat first {};
    struct stat second {};
    return lstat(a.c_str(), &first) == 0 && lstat(b.c_str(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

// Of a file system that ignores letter case the new name is taken already, by the entry itself.
bool ChangeLetterCase(const std::string& from, const std::string& to) {
    const std::string between = to + ".renamed";
    if (Move(from, to)) return true;
    return errno == EEXIST && AreOneEntry(from, to) && Move(from, between) && Move(between, to);
}

// An entry is found under its own name in whatever letters: changes that to those of the path. False for a
// place that has another name on this system.
bool FindOtherLetters(const std::wstring& path, std::string& host) {
    const std::vector<std::wstring> parts = PartsOf(path);
    std::string typed;
    if (parts.empty() || !EqualNoCase(qt::NameFromDisk(qt::NameOf(host)), parts.back())) return false;
    if (!qt::ToDisk(parts.back(), typed)) return false;
    host = qt::FolderOf(host) + "/" + typed;
    return true;
}

}  // namespace

bool MoveEntry(const std::wstring& from, const std::wstring& to) {
    const std::string hostFrom = ToHostPath(from);
    std::string hostTo = ToHostPath(to);
    if (hostFrom.empty() || hostTo.empty()) return false;
    const bool isOneEntry = hostFrom == hostTo;
    if (isOneEntry && !FindOtherLetters(to, hostTo)) return false;
    const bool isMoved =
        isOneEntry ? hostTo == hostFrom || ChangeLetterCase(hostFrom, hostTo) : Move(hostFrom, hostTo);
    if (isMoved) qt::FlushFolder(qt::FolderOf(hostTo));
    return isMoved;
}

bool CopyFileTo(const std::wstring& from, const std::wstring& to) {
    const std::string hostFrom = ToHostPath(from);
    const std::string hostTo = ToHostPath(to);
    if (hostFrom.empty() || hostTo.empty() || hostFrom == hostTo) return false;
    const qt::OwnedFd source = qt::OpenHeldPatiently(hostFrom, O_RDONLY, qt::Hold::Shared);
    if (!source) return false;
    CopyBeside copy(source.Get(), hostTo);
    return qt::TryThroughHolds([&] { return copy.PutAt(hostTo, true); });
}

bool PutInPlace(const std::wstring& from, const std::wstring& to) {
    const std::string hostFrom = ToHostPath(from);
    const std::string hostTo = ToHostPath(to);
    if (hostFrom.empty() || hostTo.empty()) return false;
    return qt::TryThroughHolds([&] {
        const qt::OwnedFd file = qt::OpenHeld(hostFrom, O_RDONLY, qt::Hold::Alone);
        return file && fsync(file.Get()) == 0 && qt::RenameInPlace(file.Get(), hostFrom, hostTo) &&
               qt::FlushFolder(qt::FolderOf(hostTo));
    });
}

}  // namespace platform
