// What brings files and folders to other places.
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <climits>
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
constexpr char kBeside[] = "/.inkwright-";

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
    return qt::SetPermissions(to, found.st_mode & 0777) && futimens(to, times) == 0 && fsync(to) == 0;
}

// A copy where it is to lie later, without a name until then as far as the file system can do that: nothing
// of it is left when this program is ended.
class CopyBeside {
  public:
    CopyBeside(int from, const std::string& place) : folder_(qt::FolderOf(place)) {
        file_ = qt::OwnedFd(open(folder_.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
        if (!file_ && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) {
            name_ = folder_ + kBeside + "XXXXXX";
            file_ = qt::OwnedFd(mkostemp(name_.data(), O_CLOEXEC));
            if (!file_) name_.clear();
        }
        isWhole_ = file_ && qt::TakeHold(file_.Get(), qt::Hold::Alone) && CopyContent(from, file_.Get());
        error_ = errno;
    }
    CopyBeside(const CopyBeside&) = delete;
    CopyBeside& operator=(const CopyBeside&) = delete;
    ~CopyBeside() {
        if (!name_.empty()) unlink(name_.c_str());
    }

    // Over a file there only if told.
    bool PutAt(const std::string& place, bool overFile) {
        errno = error_;
        if (!isWhole_ || !MayTake(place)) return false;
        bool isPut = name_.empty() && Name(place);
        if (!isPut && overFile && errno == EEXIST && name_.empty()) NameBeside();
        if (!isPut && !name_.empty()) {
            isPut =
                overFile ? qt::RenameInPlace(file_.Get(), name_, place) : qt::RenameToFreeName(name_, place);
            if (isPut) name_.clear();
        }
        return isPut && qt::FlushFolder(folder_);
    }

  private:
    static bool MayTake(const std::string& place) {
        return access(place.c_str(), F_OK) == 0 || qt::MayBeMade(place);
    }
    bool Name(const std::string& path) {
        const std::string link = "/proc/self/fd/" + std::to_string(file_.Get());
        return linkat(AT_FDCWD, link.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
    }
    void NameBeside() {
        struct stat found {};
        if (fstat(file_.Get(), &found) != 0) return;
        const std::string beside = folder_ + kBeside + std::to_string(found.st_ino);
        if (Name(beside)) name_ = beside;
    }

    std::string folder_;
    std::string name_;
    qt::OwnedFd file_;
    bool isWhole_ = false;
    int error_ = 0;
};

// Where a link to a file leads; the place itself where there is none, or one that leads nowhere is dropped.
std::string LinkedFile(const std::string& place) {
    struct stat found {};
    if (lstat(place.c_str(), &found) != 0 || !S_ISLNK(found.st_mode)) return place;
    char target[PATH_MAX];
    if (realpath(place.c_str(), target) != nullptr) return target;
    unlink(place.c_str());
    return place;
}

// What somebody keeps elsewhere and has linked here is replaced there.
bool PutHeldInPlace(int openFrom, const std::string& from, const std::string& to) {
    const std::string place = LinkedFile(to);
    if (place == to) return qt::RenameInPlace(openFrom, from, to) && qt::FlushFolder(qt::FolderOf(to));
    CopyBeside copy(openFrom, place);
    return copy.PutAt(place, true) && unlink(from.c_str()) == 0;
}

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
    const std::string place = LinkedFile(hostTo);
    CopyBeside copy(source.Get(), place);
    return qt::TryThroughHolds([&] { return copy.PutAt(place, true); });
}

bool PutInPlace(const std::wstring& from, const std::wstring& to) {
    const std::string hostFrom = ToHostPath(from);
    const std::string hostTo = ToHostPath(to);
    if (hostFrom.empty() || hostTo.empty()) return false;
    return qt::TryThroughHolds([&] {
        const qt::OwnedFd file = qt::OpenHeld(hostFrom, O_RDONLY, qt::Hold::Alone);
        return file && fsync(file.Get()) == 0 && PutHeldInPlace(file.Get(), hostFrom, hostTo);
    });
}

}  // namespace platform
