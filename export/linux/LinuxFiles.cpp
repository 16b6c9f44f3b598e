#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "export/HostFiles.h"
#include "platform/output/LinuxHandle.h"

namespace inkexport {

namespace {

std::string LastError() { return std::strerror(errno); }

class HostNote : public ink::ByteSource {
  public:
    explicit HostNote(const std::string& path) : handle_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}

    bool IsOpen() const { return handle_.IsOpen(); }
    bool IsFolder() const {
        struct stat status {};
        return ::fstat(handle_.Number(), &status) == 0 && S_ISDIR(status.st_mode);
    }
    bool Read(void* buffer, size_t size, size_t& got) override {
        for (got = 0; got < size;) {
            const ssize_t part = ::read(handle_.Number(), static_cast<char*>(buffer) + got, size - got);
            if (part == 0) return true;
            if (part < 0 && errno != EINTR) return false;
            if (part > 0) got += static_cast<size_t>(part);
        }
        return true;
    }

  private:
    platform::Handle handle_;
};

}  // namespace

std::unique_ptr<ink::ByteSource> OpenNote(const std::string& path, std::string& problem) {
    auto note = std::make_unique<HostNote>(path);
    if (!note->IsOpen()) {
        problem = LastError();
        return nullptr;
    }
    if (note->IsFolder()) {
        problem = "it is a folder";
        return nullptr;
    }
    return note;
}

bool IsFolder(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool IsSeparator(char c) { return c == '/'; }

void Print(const std::string& text) { std::fputs(text.c_str(), stdout); }
void PrintError(const std::string& text) { std::fputs(text.c_str(), stderr); }
bool ErrorsAreSeen() { return ::isatty(STDERR_FILENO) == 1; }

}  // namespace inkexport
