#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace platform {

enum class FileError { None, NotFound, AccessDenied, Other };

// One open file. Move-only; closed by the destructor. Paths are handheld paths (rooted with "\").
class File {
  public:
    enum class Share { None, Read };

    File();
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;
    ~File();

    // Opens an existing file for reading; IsOpen() is false and Error() tells why when it fails.
    static File OpenForReading(const std::wstring& path, Share share = Share::None);
    // Makes a new, empty file for writing (an existing one is emptied); nobody else can open it meanwhile.
    static File Create(const std::wstring& path);

    bool IsOpen() const;

    // Reads up to `size` bytes; `got` < `size` only at the end of the file. False is a failed read.
    bool Read(void* buffer, size_t size, size_t& got);
    // True when all bytes were taken.
    bool Write(const void* bytes, size_t size);
    bool Size(uint64_t& bytes);
    // What was written is on the disk, and would survive a power cut. May take long.
    bool Flush();
    // The same for the bytes alone: a file that was just made may have lost its name after a power cut. For
    // what is moved in place next, whose name at first nobody asks for.
    bool FlushBytes();
    // As PutInPlace() of FileSystem.h, for this file while it is written: of what was flushed nothing is read
    // again, and a power cut leaves the old file or this one, as long as the storage keeps its changes in
    // order. False where the system moves no open file, or where PutInPlace() has more to do.
    bool MoveInPlace(const std::wstring& to);

    // Why the last open, read or write failed.
    FileError Error() const;
    void Close();

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
    FileError openError_ = FileError::None;
};

}  // namespace platform
