#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace platform {

// A new file that is only appended to. Nobody else can open it as long as it is open, whoever made it: a log
// that can be opened has lost its owner.
class LogFile {
  public:
    LogFile();
    LogFile(LogFile&& other) noexcept;
    LogFile& operator=(LogFile&& other) noexcept;
    ~LogFile();

    // Not open where there is such a file already, or where none can be made.
    static LogFile Create(const std::wstring& path);
    bool IsOpen() const { return impl_ != nullptr; }

    // On return the system has all bytes, and they survive the end of this program; within a second, without
    // anybody waiting for it, they are on the disk.
    bool Append(const void* bytes, size_t size);
    // On the disk on return; at once when it is there already.
    bool Flush();
    void Close();

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform
