// Note files in the temporary folder, read and written with the plainest calls there are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ink/ByteStream.h"

namespace bench {

// An open file, closed with the object.
class File : public ink::ByteSource, public ink::ByteSink {
  public:
    static File OpenForReading(const std::string& path);
    static File Create(const std::string& path);
    File(File&& other) noexcept;
    ~File() override;

    bool Read(void* buffer, size_t size, size_t& got) override;
    bool BytesLeft(uint64_t& bytes) override;
    bool Write(const void* data, size_t size) override;

  private:
    explicit File(int handle) : handle_(handle) {}
    int handle_;
};

// A path in the temporary folder; the file is removed with the object.
class TempPath {
  public:
    explicit TempPath(const std::string& name);
    ~TempPath();
    TempPath(const TempPath&) = delete;
    TempPath& operator=(const TempPath&) = delete;
    const std::string& Path() const { return path_; }

  private:
    std::string path_;
};

}  // namespace bench
