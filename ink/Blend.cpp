#include "ink/Blend.h"

#include <algorithm>
#include <cstring>

namespace ink {
namespace {

constexpr size_t kWord = 8;  // mask bytes looked at together

uint64_t MaskWord(const uint8_t* mask) {
    uint64_t word = 0;
    std::memcpy(&word, mask, sizeof word);
    return word;
}

// Red and blue are worked on together: 16 bits each are enough for a product with 256.
uint32_t Mix(uint32_t below, uint32_t redBlue, uint32_t green, uint8_t share) {
    const uint32_t over = share + (static_cast<uint32_t>(share) >> 7);  // 0 to 256
    const uint32_t under = 256 - over;
    const uint32_t mixedRedBlue = ((below & 0xFF00FF) * under + redBlue * over + 0x800080) >> 8;
    const uint32_t mixedGreen = ((below & 0x00FF00) * under + green * over + 0x008000) >> 8;
    return (mixedRedBlue & 0xFF00FF) | (mixedGreen & 0x00FF00);
}

}  // namespace

void BlendRow(uint32_t* out, const uint32_t* below, const uint8_t* mask, size_t count, uint32_t pixel) {
    const uint32_t redBlue = pixel & 0xFF00FF;
    const uint32_t green = pixel & 0x00FF00;
    size_t i = 0;
    while (i + kWord <= count) {
        const uint64_t word = MaskWord(mask + i);
        if (word == ~uint64_t{0}) {
            std::fill(out + i, out + i + kWord, pixel);
        } else if (word != 0) {
            for (size_t k = i; k < i + kWord; ++k) out[k] = Mix(below[k], redBlue, green, mask[k]);
        }
        i += kWord;
    }
    for (; i < count; ++i) {
        if (mask[i] != 0) out[i] = Mix(below[i], redBlue, green, mask[i]);
    }
}

void ReplaceRow(uint32_t* out, const uint32_t* below, const uint8_t* mask, size_t count, uint32_t first,
                uint32_t second) {
    const auto pick = [&](size_t i) { return mask[i] == 0 ? below[i] : mask[i] == 1 ? first : second; };
    size_t i = 0;
    while (i + kWord <= count) {
        if (MaskWord(mask + i) != 0) {
            for (size_t k = i; k < i + kWord; ++k) out[k] = pick(k);
        }
        i += kWord;
    }
    for (; i < count; ++i) out[i] = pick(i);
}

}  // namespace ink
