#include "pictures/Deflate.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "pictures/HuffmanCode.h"

namespace pictures {

namespace {

// A token is a pixel with how many more of its kind follow in the top byte, or a single byte with this there.
constexpr uint32_t kByte = 0xFFu << 24;
constexpr uint32_t kMostFollowing = 86;
constexpr uint32_t kNoToken = kByte | 0xFFFF;

constexpr size_t kTokensPerBlock = 1u << 15;
constexpr size_t kMostPixelsAtOnce = 8192;
// No token takes more bits than three bytes and a repetition.
constexpr size_t kBlockRoom = (kTokensPerBlock + kMostPixelsAtOnce + 1) * 9 + 2 * sizeof(uint64_t);
constexpr size_t kLongestRepeat = 3 * kMostFollowing;  // bytes
constexpr size_t kEndOfBlock = 256;
constexpr size_t kLengthCodes = 29;
constexpr size_t kSymbols = 257 + kLengthCodes;
// The only distance is three bytes back, the third code. It takes one bit, as does another that never comes:
// a code of one symbol is none.
constexpr size_t kDistances = 3;
constexpr uint64_t kThreeBackBits = 1;
// Three bytes and a repetition fit into 64 bits beside what is left of the last byte.
constexpr int kLongestCode = 12;
static_assert(4 * kLongestCode + 5 + 1 + 7 <= 64);
constexpr int kLongestHeadCode = 7;

// Of each length code: the bits that follow it, and the shortest length that it stands for.
struct LengthCode {
    uint8_t extraBits;
    uint16_t base;
};

constexpr std::array<LengthCode, kLengthCodes> MakeLengthCodes() {
    std::array<LengthCode, kLengthCodes> codes{};
    uint16_t base = 3;
    for (size_t i = 0; i < kLengthCodes - 1; ++i) {
        const int extra = i < 8 ? 0 : static_cast<int>(i / 4) - 1;
        codes[i] = {static_cast<uint8_t>(extra), base};
        base = static_cast<uint16_t>(base + (1 << extra));
    }
    codes[kLengthCodes - 1] = {0, kLongestRepeat};
    return codes;
}

constexpr std::array<uint8_t, kLongestRepeat + 1> MakeCodeOfLength() {
    constexpr std::array<LengthCode, kLengthCodes> codes = MakeLengthCodes();
    std::array<uint8_t, kLongestRepeat + 1> codeOf{};
    for (size_t length = 3, code = 0; length <= kLongestRepeat; ++length) {
        while (code + 1 < kLengthCodes && codes[code + 1].base <= length) ++code;
        codeOf[length] = static_cast<uint8_t>(code);
    }
    return codeOf;
}

constexpr std::array<LengthCode, kLengthCodes> kLengths = MakeLengthCodes();
constexpr std::array<uint8_t, kLongestRepeat + 1> kCodeOfLength = MakeCodeOfLength();

std::vector<uint32_t> CountSymbols(const std::vector<uint32_t>& tokens, size_t count) {
    // Three tables, so that no count waits for the one just before it.
    std::array<std::array<uint32_t, 256>, 3> bytes{};
    std::array<uint32_t, kMostFollowing + 1> following{};
    for (size_t i = 0; i < count; ++i) {
        const uint32_t token = tokens[i];
        ++bytes[0][token & 255];
        if (token >= kByte) continue;
        ++bytes[1][token >> 8 & 255];
        ++bytes[2][token >> 16 & 255];
        ++following[token >> 24];
    }
    std::vector<uint32_t> counts(kSymbols);
    for (size_t i = 0; i < 256; ++i) counts[i] = bytes[0][i] + bytes[1][i] + bytes[2][i];
    for (size_t i = 1; i <= kMostFollowing; ++i) counts[257 + kCodeOfLength[3 * i]] += following[i];
    counts[kEndOfBlock] = 1;
    // A code of one symbol is none.
    counts[0] = std::max(counts[0], 1u);
    return counts;
}

// Whether eight pixels are all the same as a given one.
bool AreAll(const uint32_t* pixels, uint32_t wanted) {
    const uint64_t pair = static_cast<uint64_t>(wanted) << 32 | wanted;
    uint64_t pairs[4];
    std::memcpy(pairs, pixels, sizeof pairs);
    return ((pairs[0] ^ pair) | (pairs[1] ^ pair) | (pairs[2] ^ pair) | (pairs[3] ^ pair)) == 0;
}

}  // namespace

ZlibStream::ZlibStream() {
    tokens_.resize(kTokensPerBlock + kMostPixelsAtOnce + 1);
    block_.resize(kBlockRoom);
    packed_ = {0x78, 0x01};
}

void ZlibStream::AddByte(uint8_t byte) {
    sum_.Add(byte);
    if (tokenCount_ % 4096 == 0) sum_.Settle();
    tokens_[tokenCount_++] = kByte | byte;
    if (tokenCount_ >= kTokensPerBlock) EndBlock(false);
}

void ZlibStream::AddPixels(const uint32_t* pixels, size_t count) {
    for (; count > kMostPixelsAtOnce; pixels += kMostPixelsAtOnce, count -= kMostPixelsAtOnce) {
        AddPixels(pixels, kMostPixelsAtOnce);
    }
    sum_.AddPixels(pixels, count);
    // Without branches but where nothing changes for long: where ink begins and ends no processor can guess.
    uint32_t* token = tokens_.data() + tokenCount_ - 1;
    uint32_t last = kNoToken;
    uint32_t following = 0;
    for (size_t i = 0; i < count;) {
        if (following + 8 > kMostFollowing) last = kNoToken;
        if (i + 8 <= count && AreAll(pixels + i, last)) {
            following += 8;
            i += 8;
            *token = last | following << 24;
            continue;
        }
        const size_t end = std::min(i + 8, count);
        for (; i < end; ++i) {
            const uint32_t goesOn = pixels[i] == last ? 1 : 0;
            following = (following + 1) & (0 - goesOn);
            token += 1 - goesOn;
            last = pixels[i];
            *token = last | following << 24;
        }
    }
    tokenCount_ = static_cast<size_t>(token + 1 - tokens_.data());
    if (tokenCount_ >= kTokensPerBlock) EndBlock(false);
}

void ZlibStream::Finish() {
    EndBlock(true);
    Put(0, (8 - bitCount_ % 8) % 8);
    const uint32_t sum = sum_.Value();
    for (int shift = 24; shift >= 0; shift -= 8) Put(sum >> shift & 255, 8);
    for (; bitCount_ > 0; bitCount_ -= 8, bits_ >>= 8) packed_.push_back(static_cast<uint8_t>(bits_));
}

// Up to 48 bits.
void ZlibStream::Put(uint64_t bits, int count) {
    bits_ |= bits << bitCount_;
    bitCount_ += count;
    for (; bitCount_ >= 8; bitCount_ -= 8, bits_ >>= 8) packed_.push_back(static_cast<uint8_t>(bits_));
}

// The lengths of the block's codes, packed with a code of their own.
void ZlibStream::PutHead(const std::vector<uint8_t>& lengths) {
    constexpr uint8_t kOrder[] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    std::vector<uint32_t> counts(std::size(kOrder));
    for (const uint8_t length : lengths) ++counts[length];
    const HuffmanCode code = MakeHuffmanCode(counts, kLongestHeadCode);
    Put(kSymbols - 257, 5);
    Put(kDistances - 1, 5);
    Put(std::size(kOrder) - 4, 4);
    for (const uint8_t symbol : kOrder) Put(code.lengths[symbol], 3);
    for (const uint8_t length : lengths) Put(code.bits[length], code.lengths[length]);
}

void ZlibStream::EndBlock(bool isLast) {
    struct Bits {
        uint64_t bits;
        int count;
    };
    const HuffmanCode code = MakeHuffmanCode(CountSymbols(tokens_, tokenCount_), kLongestCode);
    std::vector<uint8_t> lengths = code.lengths;
    lengths.insert(lengths.end(), {0, 1, 1});
    Put(isLast ? 1 : 0, 1);
    Put(2, 2);  // codes of its own
    PutHead(lengths);

    std::array<Bits, 256> bytes{};
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = {code.bits[i], code.lengths[i]};
    std::array<Bits, kMostFollowing + 1> repeats{};
    for (size_t i = 1; i < repeats.size(); ++i) {
        const size_t symbol = 257 + kCodeOfLength[3 * i];
        const LengthCode& known = kLengths[kCodeOfLength[3 * i]];
        const int codeBits = code.lengths[symbol];
        repeats[i].bits = code.bits[symbol] | static_cast<uint64_t>(3 * i - known.base) << codeBits |
                          kThreeBackBits << (codeBits + known.extraBits);
        repeats[i].count = codeBits + known.extraBits + 1;
    }
    // Eight bytes are written at a time: whole bytes count, the rest is written again.
    uint8_t* out = block_.data();
    uint64_t pending = bits_;
    int pendingCount = bitCount_;
    for (size_t i = 0; i < tokenCount_; ++i) {
        const uint32_t token = tokens_[i];
        Bits whole = bytes[token & 255];
        if (token < kByte) {
            const Bits& red = bytes[token >> 16 & 255];
            const Bits& green = bytes[token >> 8 & 255];
            const Bits& again = repeats[token >> 24];
            const int beforeBlue = red.count + green.count;
            const int beforeAgain = beforeBlue + whole.count;
            whole.bits =
                red.bits | green.bits << red.count | whole.bits << beforeBlue | again.bits << beforeAgain;
            whole.count = beforeAgain + again.count;
        }
        pending |= whole.bits << pendingCount;
        pendingCount += whole.count;
        std::memcpy(out, &pending, sizeof pending);
        out += pendingCount >> 3;
        pending >>= pendingCount & ~7;
        pendingCount &= 7;
    }
    packed_.insert(packed_.end(), block_.data(), out);
    bits_ = pending;
    bitCount_ = pendingCount;
    Put(code.bits[kEndOfBlock], code.lengths[kEndOfBlock]);
    tokenCount_ = 0;
}

}  // namespace pictures
