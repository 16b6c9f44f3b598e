#pragma once

#include "ink/ByteStream.h"
#include "platform/File.h"

namespace store {

// A file as the ink readers and writers want it; the file must live as long.
class FileSource : public ink::ByteSource {
  public:
    explicit FileSource(platform::File& file) : file_(file) {}
    bool Read(void* buffer, size_t size, size_t& got) override {
        const bool isRead = file_.Read(buffer, size, got);
        read_ += got;
        return isRead;
    }
    bool BytesLeft(uint64_t& bytes) override {
        if (!file_.Size(bytes) || bytes < read_) return false;
        bytes -= read_;
        return true;
    }

  private:
    platform::File& file_;
    uint64_t read_ = 0;
};

class FileSink : public ink::ByteSink {
  public:
    explicit FileSink(platform::File& file) : file_(file) {}
    bool Write(const void* data, size_t size) override { return file_.Write(data, size); }

  private:
    platform::File& file_;
};

}  // namespace store
