#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ink/ByteStream.h"
#include "platform/File.h"

namespace store {

// A file that is written beside its place and put there when it is whole and on the disk: whenever the
// program or the device ends, the place holds what it held before or what was written, never a part. What was
// not committed is removed.
class SafeFile : public ink::ByteSink {
  public:
    SafeFile() = default;
    SafeFile(SafeFile&& other) noexcept;
    SafeFile& operator=(SafeFile&&) = delete;
    ~SafeFile() override;

    // For the place of this file, which may exist. Not open when the folder takes no file; whether the old
    // one can be replaced turns out when it is.
    static SafeFile At(const std::wstring& path);

    bool IsOpen() const { return file_.IsOpen(); }
    const std::wstring& Path() const { return path_; }
    bool Write(const void* data, size_t size) override { return file_.Write(data, size); }

    // False leaves the place as it was.
    bool Commit();
    // The same for a place that must be free: "name (1)" and so on if it is not.
    bool CommitToFreePlace();

    // Where the file of this path is written: in its folder, with a name no longer than its own that no
    // listing of notes shows. What lies there without being written is the rest of a run that was cut short.
    static std::wstring PathBeside(const std::wstring& path);

  private:
    bool Finish();

    std::wstring path_;
    std::wstring beside_;  // what there is to remove
    platform::File file_;
};

// Whether the file holds these bytes and no others.
bool Holds(const std::wstring& path, const std::vector<uint8_t>& bytes);
// The first of `notePath`, "name (1)", "name (2)", ... that is free, or has these bytes already (`isThere`).
std::wstring PlaceFor(const std::wstring& notePath, const std::vector<uint8_t>& bytes, bool& isThere);

// Whether the storage has no room for a second version of `bytes` bytes, but the old one's is enough.
bool FitsOnlyInPlace(const std::wstring& path, uint64_t bytes);

// Copies a file with its times as safely, over an existing one. Where there is only room for one of them, the
// existing one goes first.
bool CopySafely(const std::wstring& from, const std::wstring& to);

}  // namespace store
