#include "ink/Blocks.h"

#include <algorithm>
#include <array>
#include <limits>

namespace ink {
namespace {

constexpr size_t kHead = 8;  // kind and size, before the content; the checksum of all that is behind it
constexpr size_t kPiece = 64 * 1024;

// CRC-32 as in zip files.
constexpr std::array<uint32_t, 256> MakeChecksums() {
    std::array<uint32_t, 256> table{};
    for (uint32_t i = 0; i < 256; ++i) {
        uint32_t sum = i;
        for (int bit = 0; bit < 8; ++bit) sum = (sum & 1) != 0 ? 0xEDB88320u ^ sum >> 1 : sum >> 1;
        table[i] = sum;
    }
    return table;
}
constexpr std::array<uint32_t, 256> kChecksums = MakeChecksums();

uint32_t Checksum(const uint8_t* bytes, size_t size, uint32_t before = 0) {
    uint32_t sum = ~before;
    for (size_t i = 0; i < size; ++i) sum = kChecksums[(sum ^ bytes[i]) & 0xFF] ^ sum >> 8;
    return ~sum;
}

void Put(uint8_t* place, uint32_t number) {
    for (int i = 0; i < 4; ++i) place[i] = static_cast<uint8_t>(number >> 8 * i);
}

uint32_t Get(const uint8_t* place) {
    return static_cast<uint32_t>(place[0]) | static_cast<uint32_t>(place[1]) << 8 |
           static_cast<uint32_t>(place[2]) << 16 | static_cast<uint32_t>(place[3]) << 24;
}

bool ReadWhole(ByteSource& source, uint8_t* place, size_t size) {
    size_t got = 0;
    return source.Read(place, size, got) && got == size;
}

}  // namespace

BlockPacker::BlockPacker(uint32_t kind) : bytes_(kHead) { Put(bytes_.data(), kind); }

void BlockPacker::Number(uint32_t number) {
    bytes_.resize(bytes_.size() + 4);
    Put(&bytes_[bytes_.size() - 4], number);
}

void BlockPacker::LongNumber(uint64_t number) {
    Number(static_cast<uint32_t>(number));
    Number(static_cast<uint32_t>(number >> 32));
}

// A number for each unit: their width differs from system to system.
void BlockPacker::Text(const std::wstring& text) {
    Number(static_cast<uint32_t>(text.size()));
    for (const wchar_t unit : text) Number(static_cast<uint32_t>(unit));
}

void BlockPacker::Raw(const void* bytes, size_t size) {
    const auto* first = static_cast<const uint8_t*>(bytes);
    bytes_.insert(bytes_.end(), first, first + size);
}

BlockBytes BlockPacker::Finish() {
    const size_t size = bytes_.size() - kHead;
    if (size > std::numeric_limits<uint32_t>::max()) return {};
    Put(&bytes_[4], static_cast<uint32_t>(size));
    Number(Checksum(bytes_.data(), bytes_.size()));
    return std::move(bytes_);
}

const uint8_t* BlockParser::Raw(uint64_t size) {
    isGood_ = isGood_ && size <= left_;
    if (!isGood_) return nullptr;
    const uint8_t* here = next_;
    next_ += size;
    left_ -= static_cast<size_t>(size);
    return here;
}

uint32_t BlockParser::Number() {
    const uint8_t* here = Raw(4);
    return here == nullptr ? 0 : Get(here);
}

uint64_t BlockParser::LongNumber() {
    const uint32_t low = Number();
    return low | static_cast<uint64_t>(Number()) << 32;
}

std::wstring BlockParser::Text() {
    const uint32_t units = Number();
    const uint8_t* here = Raw(uint64_t{units} * 4);
    std::wstring text;
    for (uint32_t i = 0; here != nullptr && i < units; ++i) text += static_cast<wchar_t>(Get(here + 4 * i));
    return text;
}

bool NextBlock(ByteSource& source, uint32_t& kind, BlockBytes& content) {
    uint8_t head[kHead];
    if (!ReadWhole(source, head, kHead)) return false;
    kind = Get(head);
    const size_t size = Get(head + 4);
    content.clear();
    while (content.size() < size) {
        const size_t before = content.size();
        content.resize(std::min(size, before + kPiece));
        if (!ReadWhole(source, &content[before], content.size() - before)) return false;
    }
    uint8_t sum[4];
    return ReadWhole(source, sum, sizeof sum) &&
           Get(sum) == Checksum(content.data(), size, Checksum(head, kHead));
}

}  // namespace ink
