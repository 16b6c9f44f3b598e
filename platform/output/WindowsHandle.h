#pragma once

#include <windows.h>

#include <string>

namespace platform {

// What a system call may read or write at a time.
constexpr DWORD kLargestPiece = 1u << 30;

// In UTF-8, without the full stop.
std::string SystemErrorText(DWORD error);

// An open file, closed with the object.
class Handle {
  public:
    Handle() = default;
    ~Handle() { Close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool Open(const std::wstring& path, DWORD access, DWORD share, DWORD disposition) {
        handle_ =
            CreateFileW(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
        return IsOpen();
    }
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }
    void Close() {
        if (IsOpen()) CloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }

  private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

}  // namespace platform
