#include "bench/TempFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <utility>

namespace bench {

File File::OpenForReading(const std::string& path) { return File(open(path.c_str(), O_RDONLY)); }

File File::Create(const std::string& path) {
    return File(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600));
}

File::File(File&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}

File::~File() {
    if (handle_ >= 0) close(handle_);
}

bool File::Read(void* buffer, size_t size, size_t& got) {
    got = 0;
    while (got < size) {
        const ssize_t part = read(handle_, static_cast<char*>(buffer) + got, size - got);
        if (part < 0) return false;
        if (part == 0) break;
        got += static_cast<size_t>(part);
    }
    return true;
}

bool File::BytesLeft(uint64_t& bytes) {
    struct stat status {};
    const off_t here = lseek(handle_, 0, SEEK_CUR);
    if (here < 0 || fstat(handle_, &status) != 0) return false;
    bytes = static_cast<uint64_t>(status.st_size - here);
    return true;
}

bool File::Write(const void* data, size_t size) {
    const char* bytes = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t part = write(handle_, bytes, size);
        if (part <= 0) return false;
        bytes += part;
        size -= static_cast<size_t>(part);
    }
    return true;
}

TempPath::TempPath(const std::string& name)
    : path_((std::filesystem::temp_directory_path() / (std::to_string(getpid()) + "-" + name)).string()) {}

TempPath::~TempPath() { unlink(path_.c_str()); }

}  // namespace bench
