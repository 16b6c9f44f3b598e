// Sixteen bytes worked on at once, written so that every compiler we build with makes vector code of it; the
// results are those of the same integer arithmetic byte by byte.
#pragma once

#include <cstdint>
#include <cstring>

namespace ink {

typedef uint8_t Bytes16 __attribute__((vector_size(16)));
typedef uint32_t Quads4 __attribute__((vector_size(16)));
typedef uint16_t Words8 __attribute__((vector_size(16)));

inline Bytes16 LoadBytes(const void* from) {
    Bytes16 bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    return bytes;
}

inline void StoreBytes(void* to, Bytes16 bytes) { std::memcpy(to, &bytes, sizeof bytes); }

inline Bytes16 Larger(Bytes16 a, Bytes16 b) { return a > b ? a : b; }

// a + b, no byte beyond 255.
inline Bytes16 AddClamped(Bytes16 a, Bytes16 b) {
    const Bytes16 sum = a + b;
    return sum | reinterpret_cast<Bytes16>(sum < a);
}

// The first and the last eight bytes as words.
inline Words8 LowWords(Bytes16 bytes) {
    const Bytes16 zero = {};
    return reinterpret_cast<Words8>(
        __builtin_shufflevector(bytes, zero, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23));
}
inline Words8 HighWords(Bytes16 bytes) {
    const Bytes16 zero = {};
    return reinterpret_cast<Words8>(
        __builtin_shufflevector(bytes, zero, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31));
}

// The low bytes of sixteen words.
inline Bytes16 Narrow(Words8 low, Words8 high) {
    return __builtin_shufflevector(reinterpret_cast<Bytes16>(low), reinterpret_cast<Bytes16>(high), 0, 2, 4,
                                   6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
}

// Four bytes, each four times.
inline Bytes16 Spread(uint32_t four) {
    const Quads4 quads = {four, 0, 0, 0};
    const Bytes16 bytes = reinterpret_cast<Bytes16>(quads);
    const Bytes16 twice =
        __builtin_shufflevector(bytes, bytes, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
    const Words8 words = reinterpret_cast<Words8>(twice);
    return reinterpret_cast<Bytes16>(__builtin_shufflevector(words, words, 0, 8, 1, 9, 2, 10, 3, 11));
}

}  // namespace ink
