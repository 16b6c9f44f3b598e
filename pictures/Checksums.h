// The two checksums of a PNG file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pictures {

// Of a PNG's chunks.
class Crc32 {
  public:
    Crc32();
    void Add(const uint8_t* bytes, size_t size);
    uint32_t Value() const { return ~state_; }
    void Restart() { state_ = ~0u; }

  private:
    std::array<std::array<uint32_t, 256>, 8> tables_{};
    uint32_t state_ = ~0u;
};

// Of what a zlib stream holds. Settle is to come before some thousand bytes have.
class Adler32 {
  public:
    void Add(uint8_t byte) {
        low_ += byte;
        high_ += low_;
    }
    // The three bytes of each of up to 8192 pixels 0x00RRGGBB; settles.
    void AddPixels(const uint32_t* pixels, size_t count);
    void Settle() {
        low_ %= kPrime;
        high_ %= kPrime;
    }
    uint32_t Value() {
        Settle();
        return static_cast<uint32_t>(high_ << 16 | low_);
    }

  private:
    static constexpr uint64_t kPrime = 65521;

    uint64_t low_ = 1;
    uint64_t high_ = 0;
};

}  // namespace pictures
