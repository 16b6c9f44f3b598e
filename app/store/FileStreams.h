#pragma once

#include "ink/ByteStream.h"
#include "platform/File.h"

namespace store {

// A file as the ink readers and writers want it; the file must live as long.
class FileSource : public ink::ByteSource {
  public:
    explicit FileSource(platform::File& file) : file_(file) {}
    bool Read(void* buffer, size_t size, size_t& got) override { return file_.Read(buffer, size, got); }

  private:
    platform::File& file_;
};

class FileSink : public ink::ByteSink {
  public:
    explicit FileSink(platform::File& file) : file_(file) {}
    bool Write(const void* data, size_t size) override { return file_.Write(data, size); }

  private:
    platform::File& file_;
};

}  // namespace store
