#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/File.h"
#include "platform/qt/system/HandheldPath.h"
#include "platform/qt/system/HeldFile.h"
#include "platform/qt/system/UserFolders.h"

namespace platform {

namespace {

// One call of the system takes no more.
constexpr size_t kLargestPiece = size_t{1} << 30;

// So much is sent to the disk while the rest is still being made, for whoever flushes it all then.
constexpr uint64_t kAhead = 512 * 1024;

FileError ErrorOf(int systemError) {
    switch (systemError) {
        case 0:
            return FileError::None;
        case ENOENT:
        case ENOTDIR:
        case ENODEV:
            return FileError::NotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
            return FileError::AccessDenied;
        default:
            return FileError::Other;
    }
}

// A name with the mark of a folder at its end is no file's.
std::string HostFile(const std::wstring& path) {
    std::string host = qt::ToHostPath(path);
    if (host.empty() || (!path.empty() && path.back() != L'\\')) return host;
    errno = EINVAL;
    return {};
}

bool MayBeWritten(const std::string& host) {
    struct stat found {};
    if (stat(host.c_str(), &found) != 0) return qt::MayBeMade(host);
    return !qt::IsReadOnly(host);
}

}  // namespace

struct File::Impl {
    qt::OwnedFd file;
    std::string host;             // where it lies, as far as this program knows
    bool isFolderFlushed = true;  // of its name
    uint64_t written = 0;
    uint64_t sent = 0;  // of that, on its way to the disk
    FileError error = FileError::None;

    void SendAhead() {
        if (written - sent < kAhead) return;
        sync_file_range(file.Get(), static_cast<off_t>(sent), static_cast<off_t>(written - sent),
                        SYNC_FILE_RANGE_WRITE);
        sent = written;
    }

    bool Report(bool succeeded) {
        error = succeeded ? FileError::None : ErrorOf(errno);
        return succeeded;
    }
};

File::File() = default;
File::File(File&&) noexcept = default;
File& File::operator=(File&&) noexcept = default;
File::~File() = default;

File File::OpenForReading(const std::wstring& path, Share share) {
    File file;
    const std::string host = HostFile(path);
    const qt::Hold hold = share == Share::Read ? qt::Hold::Shared : qt::Hold::Alone;
    qt::OwnedFd opened = host.empty() ? qt::OwnedFd() : qt::OpenHeldPatiently(host, O_RDONLY, hold);
    file.openError_ = opened ? FileError::None : ErrorOf(errno);
    if (opened) file.impl_ = std::make_unique<Impl>(Impl{std::move(opened), host});
    return file;
}

File File::Create(const std::wstring& path) {
    File file;
    const std::string host = HostFile(path);
    qt::OwnedFd opened;
    if (!host.empty() && MayBeWritten(host))
        opened = qt::OpenHeldPatiently(host, O_WRONLY | O_CREAT, qt::Hold::Alone);
    // Only now: what somebody else holds must not be emptied.
    if (opened && ftruncate(opened.Get(), 0) != 0) opened.Close();
    file.openError_ = opened ? FileError::None : ErrorOf(errno);
    if (opened) file.impl_ = std::make_unique<Impl>(Impl{std::move(opened), host, false});
    return file;
}

bool File::IsOpen() const { return impl_ != nullptr; }

bool File::Read(void* buffer, size_t size, size_t& got) {
    got = 0;
    while (impl_ && got < size) {
        const ssize_t count =
            read(impl_->file.Get(), static_cast<char*>(buffer) + got, std::min(size - got, kLargestPiece));
        if (count < 0 && errno == EINTR) continue;
        if (!impl_->Report(count >= 0)) return false;
        if (count == 0) break;
        got += static_cast<size_t>(count);
    }
    return impl_ != nullptr;
}

bool File::Write(const void* bytes, size_t size) {
    if (!impl_ || !impl_->Report(qt::WriteAll(impl_->file.Get(), bytes, size))) return false;
    impl_->written += size;
    impl_->SendAhead();
    return true;
}

bool File::Size(uint64_t& bytes) {
    struct stat found {};
    if (!impl_ || !impl_->Report(fstat(impl_->file.Get(), &found) == 0)) return false;
    bytes = static_cast<uint64_t>(found.st_size);
    return true;
}

bool File::FlushBytes() { return impl_ && impl_->Report(fsync(impl_->file.Get()) == 0); }

bool File::Flush() {
    if (!FlushBytes()) return false;
    if (!impl_->isFolderFlushed) impl_->isFolderFlushed = qt::FlushFolder(qt::FolderOf(impl_->host));
    return impl_->Report(impl_->isFolderFlushed);
}

bool File::MoveInPlace(const std::wstring& to) {
    const std::string host = qt::ToHostPath(to);
    if (!impl_ || host.empty() || !qt::IsSameFile(impl_->file.Get(), impl_->host)) return false;
    if (!impl_->Report(qt::RenameInPlace(impl_->file.Get(), impl_->host, host))) return false;
    impl_->host = host;
    impl_->isFolderFlushed = false;
    return true;
}

FileError File::Error() const { return impl_ ? impl_->error : openError_; }

void File::Close() { impl_.reset(); }

}  // namespace platform
