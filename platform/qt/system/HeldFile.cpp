#include "platform/qt/system/HeldFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "platform/qt/system/HandheldPath.h"

namespace platform::qt {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPatience{300};
constexpr milliseconds kPause{15};
constexpr int kTries = 5;  // to open what is being replaced just now
constexpr mode_t kPermissions = 07777;
constexpr off_t kSlowToFree = 256 * 1024;  // bytes, from which on a thread costs less

bool IsPlainFile(int fd) {
    struct stat found {};
    if (fstat(fd, &found) != 0) return false;
    errno = S_ISDIR(found.st_mode) ? EISDIR : EACCES;
    return S_ISREG(found.st_mode);
}

// Which user a file is of only the administrator may change, and an attribute may be of no concern to the new
// file's system: what can't be taken over is left.
void TakeOverExtras(int from, int to) {
    std::vector<char> names(static_cast<size_t>(std::max<ssize_t>(0, flistxattr(to, nullptr, 0))));
    const ssize_t length = flistxattr(to, names.data(), names.size());
    for (ssize_t at = 0; at < length;) {
        const char* const name = &names[static_cast<size_t>(at)];
        char value[4096];
        const ssize_t size = fgetxattr(to, name, value, sizeof value);
        if (size >= 0) fsetxattr(from, name, value, static_cast<size_t>(size), 0);
        at += static_cast<ssize_t>(std::strlen(name)) + 1;
    }
}

bool TakeOverAttributes(int from, int old) {
    struct stat is {};
    struct stat was {};
    if (fstat(from, &is) != 0 || fstat(old, &was) != 0) return false;
    if (is.st_gid != was.st_gid && fchown(from, static_cast<uid_t>(-1), was.st_gid) != 0) errno = 0;
    TakeOverExtras(from, old);
    return ((is.st_mode ^ was.st_mode) & kPermissions) == 0 ||
           SetPermissions(from, was.st_mode & kPermissions);
}

// Who closes a file last that has no name any more frees its blocks. Nobody need wait for that.
void CloseApart(OwnedFd file) {
    try {
        std::thread([held = std::move(file)] {}).detach();
    } catch (const std::system_error&) {
        return;  // no thread: it is closed already
    }
}

// For file systems that can't rename that way.
bool RenameAfterLooking(const std::string& from, const std::string& to) {
    struct stat found {};
    if (lstat(to.c_str(), &found) == 0) {
        errno = EEXIST;
        return false;
    }
    return std::rename(from.c_str(), to.c_str()) == 0;
}

}  // namespace

bool TryThroughHolds(const std::function<bool()>& attempt) {
    const auto start = std::chrono::steady_clock::now();
    while (!attempt()) {
        if (errno != EWOULDBLOCK) return false;
        if (std::chrono::steady_clock::now() - start >= kPatience) {
            errno = EWOULDBLOCK;
            return false;
        }
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

bool TakeHold(int fd, Hold hold) {
    if (flock(fd, (hold == Hold::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB) == 0) return true;
    return errno != EWOULDBLOCK;
}

bool IsSameFile(int fd, const std::string& path) {
    struct stat open {};
    struct stat named {};
    return fstat(fd, &open) == 0 && stat(path.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

OwnedFd OpenHeld(const std::string& path, int flags, Hold hold) {
    for (int i = 0; i < kTries; ++i) {
        // Opening a pipe would wait for its other end.
        OwnedFd file(open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666));
        if (!file || !IsPlainFile(file.Get()) || !TakeHold(file.Get(), hold)) return OwnedFd();
        if (IsSameFile(file.Get(), path)) return file;
    }
    errno = EWOULDBLOCK;
    return OwnedFd();
}

OwnedFd OpenHeldPatiently(const std::string& path, int flags, Hold hold) {
    OwnedFd file;
    TryThroughHolds([&] {
        file = OpenHeld(path, flags, hold);
        return static_cast<bool>(file);
    });
    return file;
}

bool IsReadOnly(const std::string& path) {
    struct stat found {};
    const bool isThere = stat(path.c_str(), &found) == 0;
    errno = EACCES;
    return isThere && S_ISREG(found.st_mode) && (found.st_mode & 0222) == 0;
}

bool RenameToFreeName(const std::string& from, const std::string& to) {
    if (!MayBeMade(to)) return false;
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    return (errno == EINVAL || errno == ENOSYS) && RenameAfterLooking(from, to);
}

bool RenameInPlace(int openFrom, const std::string& from, const std::string& to) {
    struct stat found {};
    if (lstat(to.c_str(), &found) != 0) return errno == ENOENT && RenameToFreeName(from, to);
    if (S_ISLNK(found.st_mode)) {
        errno = ELOOP;
        return false;
    }
    if (IsReadOnly(to)) return false;
    OwnedFd old = OpenHeld(to, O_RDONLY, Hold::Alone);
    if (!old || !TakeOverAttributes(openFrom, old.Get())) return false;
    if (std::rename(from.c_str(), to.c_str()) != 0) return false;
    if (found.st_size >= kSlowToFree) CloseApart(std::move(old));
    return true;
}

bool SetPermissions(int fd, mode_t permissions) {
    return fchmod(fd, permissions) == 0 || errno == EPERM || errno == EOPNOTSUPP;
}

bool FlushFolder(const std::string& folder) {
    const OwnedFd open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return open && fsync(open.Get()) == 0;
}

bool WriteAll(int fd, const void* bytes, size_t size) {
    const auto* at = static_cast<const char*>(bytes);
    while (size > 0) {
        const ssize_t written = write(fd, at, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        at += written;
        size -= static_cast<size_t>(written);
    }
    return true;
}

}  // namespace platform::qt
