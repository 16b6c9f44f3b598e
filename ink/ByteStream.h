// The narrow door through which notes and pictures enter and leave: anything that yields or takes bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace ink {

class ByteSource {
  public:
    virtual ~ByteSource() = default;
    // Reads up to `size` bytes. `got` is less than `size` only at the end of the data. False is an I/O error;
    // what then lies in `buffer` means nothing.
    virtual bool Read(void* buffer, size_t size, size_t& got) = 0;
    // How much is still to be read; false where that is not known.
    virtual bool BytesLeft(uint64_t& /*bytes*/) { return false; }
};

class ByteSink {
  public:
    virtual ~ByteSink() = default;
    // Writes all `size` bytes, or returns false.
    virtual bool Write(const void* data, size_t size) = 0;
};

// Reads from memory that the caller keeps alive.
class MemorySource : public ByteSource {
  public:
    MemorySource(const void* data, size_t size) : data_(static_cast<const uint8_t*>(data)), left_(size) {}

    bool Read(void* buffer, size_t size, size_t& got) override {
        got = size < left_ ? size : left_;
        if (got != 0) std::memcpy(buffer, data_, got);
        data_ += got;
        left_ -= got;
        return true;
    }
    bool BytesLeft(uint64_t& bytes) override {
        bytes = left_;
        return true;
    }

  private:
    const uint8_t* data_;
    size_t left_;
};

// Collects what is written.
class MemorySink : public ByteSink {
  public:
    bool Write(const void* data, size_t size) override {
        const uint8_t* bytes = static_cast<const uint8_t*>(data);
        bytes_.insert(bytes_.end(), bytes, bytes + size);
        return true;
    }
    const std::vector<uint8_t>& Bytes() const { return bytes_; }

  private:
    std::vector<uint8_t> bytes_;
};

}  // namespace ink
