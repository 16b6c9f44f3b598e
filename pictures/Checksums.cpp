#include "pictures/Checksums.h"

#include "ink/Lanes.h"

namespace pictures {

Crc32::Crc32() {
    constexpr uint32_t kPolynomial = 0xEDB88320;
    for (uint32_t i = 0; i < 256; ++i) {
        uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) value = value >> 1 ^ ((value & 1) != 0 ? kPolynomial : 0);
        tables_[0][i] = value;
    }
    for (size_t i = 0; i < 256; ++i) {
        for (size_t k = 1; k < tables_.size(); ++k) {
            const uint32_t before = tables_[k - 1][i];
            tables_[k][i] = before >> 8 ^ tables_[0][before & 255];
        }
    }
}

void Crc32::Add(const uint8_t* bytes, size_t size) {
    uint32_t state = state_;
    // Eight bytes at a time: each has a table that knows how many more are to come.
    for (; size >= 8; size -= 8, bytes += 8) {
        const auto& t = tables_;
        state = t[7][(bytes[0] ^ state) & 255] ^ t[6][(bytes[1] ^ state >> 8) & 255] ^
                t[5][(bytes[2] ^ state >> 16) & 255] ^ t[4][bytes[3] ^ state >> 24] ^ t[3][bytes[4]] ^
                t[2][bytes[5]] ^ t[1][bytes[6]] ^ t[0][bytes[7]];
    }
    for (; size > 0; --size) state = state >> 8 ^ tables_[0][(*bytes++ ^ state) & 255];
    state_ = state;
}

// A byte counts once for itself and for each that follows.
void Adler32::AddPixels(const uint32_t* pixels, size_t count) {
    constexpr size_t kLanes = 4;
    ink::Longs4 sums{};
    ink::Longs4 running{};
    ink::Longs4 less{};  // by how much the second and third byte of a pixel count less than the first
    const size_t whole = count - count % kLanes;
    for (size_t i = 0; i < whole; i += kLanes) {
        const ink::Longs4 four = ink::LoadLongs(pixels + i);
        const ink::Longs4 green = four >> 8 & 255;
        const ink::Longs4 blue = four & 255;
        sums += (four >> 16) + green + blue;
        running += sums;
        less += green + blue + blue;
    }
    high_ += 3 * whole * low_;
    for (size_t lane = 0; lane < kLanes; ++lane) {
        const uint64_t weighted = kLanes * uint64_t{running[lane]} - lane * uint64_t{sums[lane]};
        high_ += 3 * weighted - less[lane];
        low_ += sums[lane];
    }
    for (size_t i = whole; i < count; ++i) {
        for (const int shift : {16, 8, 0}) Add(static_cast<uint8_t>(pixels[i] >> shift));
    }
    Settle();
}

}  // namespace pictures
