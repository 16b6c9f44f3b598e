#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/File.h"
#include "platform/windows/FileAttributes.h"
#include "platform/windows/FileHolds.h"
#include "platform/windows/Guards.h"
#include "platform/windows/HandheldPath.h"

namespace platform {

namespace {

// One call of the system takes a 32-bit count.
constexpr size_t kLargestPiece = size_t{1} << 30;

FileError ErrorOf(DWORD systemError) {
    switch (systemError) {
        case ERROR_SUCCESS:
            return FileError::None;
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return FileError::NotFound;
        case ERROR_ACCESS_DENIED:
            return FileError::AccessDenied;
        default:
            return FileError::Other;
    }
}

struct OpenResult {
    windows::OwnedHandle handle;
    FileError error = FileError::None;
};

OpenResult Open(const std::wstring& path, DWORD access, DWORD share, DWORD disposition) {
    OpenResult result;
    const std::wstring host = windows::ToHostPath(path);
    // A name with the mark of a folder at its end is no file's.
    if (host.empty() || path.empty() || path.back() == L'\\') {
        result.error = host.empty() ? ErrorOf(GetLastError()) : FileError::Other;
        return result;
    }
    const bool isOpen = windows::TryThroughHolds(host, [&] {
        result.handle = windows::OwnFile(
            CreateFileW(host.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
        return result.handle != nullptr;
    });
    if (!isOpen) result.error = ErrorOf(GetLastError());
    return result;
}

}  // namespace

struct File::Impl {
    windows::OwnedHandle handle;
    FileError error = FileError::None;

    bool Report(BOOL succeeded) {
        error = succeeded ? FileError::None : ErrorOf(GetLastError());
        return succeeded != FALSE;
    }
};

File::File() = default;
File::File(File&&) noexcept = default;
File& File::operator=(File&&) noexcept = default;
File::~File() = default;

File File::OpenForReading(const std::wstring& path, Share share) {
    File file;
    OpenResult opened = Open(path, GENERIC_READ, share == Share::Read ? FILE_SHARE_READ : 0, OPEN_EXISTING);
    file.openError_ = opened.error;
    if (opened.handle) file.impl_ = std::make_unique<Impl>(Impl{std::move(opened.handle)});
    return file;
}

File File::Create(const std::wstring& path) {
    File file;
    OpenResult opened = Open(path, GENERIC_WRITE | DELETE, 0, CREATE_ALWAYS);
    file.openError_ = opened.error;
    if (opened.handle) file.impl_ = std::make_unique<Impl>(Impl{std::move(opened.handle)});
    return file;
}

bool File::IsOpen() const { return impl_ != nullptr; }

bool File::Read(void* buffer, size_t size, size_t& got) {
    got = 0;
    if (!impl_) return false;
    while (got < size) {
        const auto piece = static_cast<DWORD>(std::min(size - got, kLargestPiece));
        DWORD read = 0;
        if (!impl_->Report(
                ReadFile(impl_->handle.get(), static_cast<char*>(buffer) + got, piece, &read, nullptr))) {
            return false;
        }
        got += read;
        if (read < piece) break;
    }
    return true;
}

bool File::Write(const void* bytes, size_t size) {
    if (!impl_) return false;
    size_t done = 0;
    while (done < size) {
        const auto piece = static_cast<DWORD>(std::min(size - done, kLargestPiece));
        DWORD written = 0;
        const BOOL succeeded =
            WriteFile(impl_->handle.get(), static_cast<const char*>(bytes) + done, piece, &written, nullptr);
        if (!impl_->Report(succeeded)) return false;
        if (written == 0) {
            impl_->error = FileError::Other;
            return false;
        }
        done += written;
    }
    return true;
}

bool File::Size(uint64_t& bytes) {
    LARGE_INTEGER size{};
    if (!impl_ || !impl_->Report(GetFileSizeEx(impl_->handle.get(), &size))) return false;
    bytes = static_cast<uint64_t>(size.QuadPart);
    return true;
}

bool File::FlushBytes() { return Flush(); }

bool File::Flush() { return impl_ && impl_->Report(FlushFileBuffers(impl_->handle.get())); }

bool File::MoveInPlace(const std::wstring& to) {
    const std::wstring host = windows::ToHostPath(to);
    if (!impl_ || host.empty()) return false;
    const DWORD old = GetFileAttributesW(host.c_str());
    if (old != INVALID_FILE_ATTRIBUTES && !windows::IsOrdinaryFile(old)) return false;
    const size_t nameBytes = host.size() * sizeof(wchar_t);
    std::vector<uint64_t> memory((sizeof(FILE_RENAME_INFO) + nameBytes) / sizeof(uint64_t) + 1);
    auto* const info = reinterpret_cast<FILE_RENAME_INFO*>(memory.data());
    info->ReplaceIfExists = old != INVALID_FILE_ATTRIBUTES;
    info->FileNameLength = static_cast<DWORD>(nameBytes);
    std::memcpy(info->FileName, host.c_str(), nameBytes);
    return impl_->Report(SetFileInformationByHandle(impl_->handle.get(), FileRenameInfo, info,
                                                    static_cast<DWORD>(memory.size() * sizeof(uint64_t))));
}

FileError File::Error() const { return impl_ ? impl_->error : openError_; }

void File::Close() { impl_.reset(); }

}  // namespace platform
