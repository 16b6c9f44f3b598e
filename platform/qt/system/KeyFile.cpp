#include "platform/qt/system/KeyFile.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "platform/qt/system/HeldFile.h"
#include "platform/qt/system/UserFolders.h"

namespace platform::qt {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPatience{10000};
constexpr milliseconds kPause{2};

// The file itself is replaced by every change, so the lock is a file of its own.
OwnedFd Lock(const std::string& path) {
    OwnedFd lock(open((path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    const auto start = std::chrono::steady_clock::now();
    while (lock && !TakeHold(lock.Get(), Hold::Alone)) {
        if (std::chrono::steady_clock::now() - start >= kPatience) return OwnedFd();
        std::this_thread::sleep_for(kPause);
    }
    return lock;
}

bool ReadWhole(int fd, std::string& text) {
    char piece[4096];
    for (ssize_t got = 0; (got = read(fd, piece, sizeof piece)) != 0;) {
        if (got < 0 && errno != EINTR) return false;
        if (got > 0) text.append(piece, static_cast<size_t>(got));
    }
    return true;
}

}  // namespace

// Nothing but the content tells for certain that nobody changed it: it is short.
bool KeyFile::Refresh() {
    const OwnedFd file(open(path_.c_str(), O_RDONLY | O_CLOEXEC));
    std::string text;
    if (file ? !ReadWhole(file.Get(), text) : errno != ENOENT && errno != ENOTDIR) return false;
    if (text != text_) table_ = KeyTable::Parse(text);
    text_ = std::move(text);
    return true;
}

const KeyTable* KeyFile::Current() { return Refresh() ? &table_ : nullptr; }

bool KeyFile::Replace(const std::string& text) {
    const std::string beside = path_ + "~";  // ours alone: the lock is held
    {
        const OwnedFd file(open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
        if (!file || !WriteAll(file.Get(), text.data(), text.size()) || fdatasync(file.Get()) != 0)
            return false;
    }
    return std::rename(beside.c_str(), path_.c_str()) == 0;
}

bool KeyFile::Change(const std::function<bool(KeyTable& table)>& change) {
    MakeLevels(FolderOf(path_));
    const OwnedFd lock = Lock(path_);
    if (!lock || !Refresh()) return false;
    KeyTable changed = table_;
    return !change(changed) || Replace(changed.Text());
}

}  // namespace platform::qt
