#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/OutputFile.h"
#include "platform/output/LinuxHandle.h"

namespace platform {

namespace {

std::string LastError() { return std::strerror(errno); }

// New files have no name until they are whole, where the file system can do that; elsewhere a hidden one.
class LinuxOutput : public OutputFile {
  public:
    LinuxOutput(std::string path, bool replaces) : path_(std::move(path)), replaces_(replaces), handle_(-1) {}
    ~LinuxOutput() override {
        if (!hiddenName_.empty()) ::unlink(hiddenName_.c_str());
    }

    bool Open(OutputFault& fault) {
        struct stat status {};
        const bool isThere = ::stat(path_.c_str(), &status) == 0;
        if (isThere && S_ISDIR(status.st_mode)) {
            fault.text = "it is a folder";
            return false;
        }
        if (isThere && S_ISREG(status.st_mode) && !replaces_) {
            fault = {true, "it is there already"};
            return false;
        }
        isInPlace_ = isThere && !S_ISREG(status.st_mode);
        if (isInPlace_) {
            handle_.Take(::open(path_.c_str(), O_WRONLY | O_CLOEXEC));
        } else {
            if (isThere) FollowLinks();
            OpenBeside();
            if (isThere && handle_.IsOpen()) ::fchmod(handle_.Number(), status.st_mode & 0777);
        }
        if (!handle_.IsOpen()) fault.text = LastError();
        return handle_.IsOpen();
    }

    bool Write(const void* data, size_t size) override {
        const char* bytes = static_cast<const char*>(data);
        while (size != 0 && failure_ == 0) {
            const ssize_t part = ::write(handle_.Number(), bytes, size);
            if (part < 0 && errno != EINTR) failure_ = errno;
            if (part <= 0) continue;
            bytes += part;
            size -= static_cast<size_t>(part);
        }
        return failure_ == 0;
    }

    bool Flush() override {
        if (failure_ == 0 && !isInPlace_ && ::fsync(handle_.Number()) != 0) failure_ = errno;
        return failure_ == 0;
    }

    bool PutInPlace(OutputFault& fault) override {
        errno = failure_;
        if (failure_ == 0 && (isInPlace_ ? handle_.Close() : GiveName())) return true;
        fault =
            errno == EEXIST ? OutputFault{true, "it has come meanwhile"} : OutputFault{false, LastError()};
        return false;
    }

  private:
    void FollowLinks() {
        char* target = ::realpath(path_.c_str(), nullptr);
        if (target != nullptr) path_ = target;
        std::free(target);
    }
    std::string Folder() const {
        const size_t slash = path_.rfind('/');
        return slash == std::string::npos ? "./" : path_.substr(0, slash + 1);
    }
    void OpenBeside() {
        handle_.Take(::open(Folder().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666));
        if (handle_.IsOpen() || (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)) return;
        std::string name = FreshName();
        handle_.Take(::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (handle_.IsOpen()) hiddenName_ = std::move(name);
    }
    std::string FreshName() const { return Folder() + ".inkwright-" + std::to_string(::getpid()); }

    // A name of its own, and by that the place of what is to be replaced.
    bool GiveName() {
        if (hiddenName_.empty()) {
            const std::string nameless = "/proc/self/fd/" + std::to_string(handle_.Number());
            const std::string name = replaces_ ? FreshName() : path_;
            if (replaces_) ::unlink(name.c_str());  // of a program with this number that was killed just here
            if (::linkat(AT_FDCWD, nameless.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0)
                return false;
            if (!replaces_) return handle_.Close();
            hiddenName_ = name;
        }
        if (!handle_.Close()) return false;
        const unsigned flags = replaces_ ? 0 : RENAME_NOREPLACE;
        const bool isMoved =
            ::renameat2(AT_FDCWD, hiddenName_.c_str(), AT_FDCWD, path_.c_str(), flags) == 0 ||
            // File systems that can't do without replacing; the name was free a moment ago.
            (errno == EINVAL && ::rename(hiddenName_.c_str(), path_.c_str()) == 0);
        if (isMoved) hiddenName_.clear();
        return isMoved;
    }

    std::string path_;
    const bool replaces_;
    Handle handle_;
    std::string hiddenName_;
    bool isInPlace_ = false;
    int failure_ = 0;
};

}  // namespace

std::unique_ptr<OutputFile> OutputFile::Create(const std::string& hostPath, bool replaces,
                                               OutputFault& fault) {
    auto file = std::make_unique<LinuxOutput>(hostPath, replaces);
    if (!file->Open(fault)) return nullptr;
    return file;
}

}  // namespace platform
