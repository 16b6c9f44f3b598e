// Sixteen bytes worked on at once, written so that every compiler we build with makes vector code of it; the
// results are those of the same integer arithmetic byte by byte.
#pragma once

#include <cstdint>
#include <cstring>

namespace ink {

typedef uint8_t Bytes16 __attribute__((vector_size(16)));
typedef uint32_t Longs4 __attribute__((vector_size(16)));
typedef uint16_t Words8 __attribute__((vector_size(16)));

inline Bytes16 LoadBytes(const void* from) {
    Bytes16 bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    return bytes;
}

inline void StoreBytes(void* to, Bytes16 bytes) { std::memcpy(to, &bytes, sizeof bytes); }

inline Longs4 LoadLongs(const uint32_t* from) {
    Longs4 quads;
    std::memcpy(&quads, from, sizeof quads);
    return quads;
}

inline void StoreLongs(uint32_t* to, Longs4 quads) { std::memcpy(to, &quads, sizeof quads); }

// The first four bytes, with zeros behind them.
inline Bytes16 LoadFour(const void* from) {
    uint32_t four;
    std::memcpy(&four, from, sizeof four);
    const Longs4 quads = {four, 0, 0, 0};
    return reinterpret_cast<Bytes16>(quads);
}

inline void StoreFour(void* to, Bytes16 bytes) {
    const uint32_t four = reinterpret_cast<Longs4>(bytes)[0];
    std::memcpy(to, &four, sizeof four);
}

inline Bytes16 Larger(Bytes16 a, Bytes16 b) { return a > b ? a : b; }

// a + b, no byte beyond 255.
inline Bytes16 AddClamped(Bytes16 a, Bytes16 b) {
    const Bytes16 sum = a + b;
    return sum | reinterpret_cast<Bytes16>(sum < a);
}

// The first four bytes, each four times.
inline Bytes16 Spread(Bytes16 bytes) {
    const Bytes16 twice =
        __builtin_shufflevector(bytes, bytes, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
    const Words8 words = reinterpret_cast<Words8>(twice);
    return reinterpret_cast<Bytes16>(__builtin_shufflevector(words, words, 0, 8, 1, 9, 2, 10, 3, 11));
}

}  // namespace ink
