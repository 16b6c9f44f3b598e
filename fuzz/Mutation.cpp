#include "fuzz/Mutation.h"

#include <algorithm>
#include <cstring>
#include <random>

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t mostBytes);

namespace fuzz {

namespace {

using Part = std::vector<uint32_t>;

constexpr size_t kNoteHead = 4;
constexpr size_t kBandHead = 1;
constexpr size_t kStrokeHead = 6;
constexpr size_t kBlockHead = 2;

// A note's head, the heads of its bands and the strokes, or blocks: as far as there are words.
std::vector<Part> Split(Form form, const Part& words) {
    std::vector<Part> parts;
    uint32_t strokes = 0;
    for (size_t at = 0; at < words.size(); at += parts.back().size()) {
        size_t size = parts.empty() ? kNoteHead : kBandHead;
        if (form == Form::Blocks) size = kBlockHead + (at + 1 < words.size() ? words[at + 1] : 0);
        if (!parts.empty() && strokes > 0) size = kStrokeHead + 2 * size_t{words[at]};
        if (parts.size() > 1 || at >= kNoteHead) strokes = strokes > 0 ? strokes - 1 : words[at];
        const size_t end = at + std::min(size, words.size() - at);
        parts.emplace_back(words.begin() + static_cast<std::ptrdiff_t>(at),
                           words.begin() + static_cast<std::ptrdiff_t>(end));
    }
    return parts;
}

// Makes all counts true again.
void Mend(Form form, std::vector<Part>& parts) {
    uint32_t* count = nullptr;
    for (Part& part : parts) {
        if (form == Form::Blocks) {
            part.resize(std::max(part.size(), kBlockHead));
            part[1] = static_cast<uint32_t>(part.size() - kBlockHead);
        } else if (&part == parts.data()) {
            part.resize(kNoteHead);
            part[2] = 0;
        } else if (part.size() <= kBandHead) {
            ++parts[0][2];
            part.assign(kBandHead, 0);
            count = part.data();
        } else if (count != nullptr) {
            part.resize(std::max(part.size() / 2 * 2, kStrokeHead));
            part[0] = static_cast<uint32_t>((part.size() - kStrokeHead) / 2);
            ++*count;
        }
    }
}

// Takes parts away, puts some of them elsewhere as well, or changes one, often a single word of it.
void Change(std::vector<Part>& parts, std::minstd_rand& dice) {
    const size_t first = dice() % parts.size();
    const size_t last = std::min(parts.size(), first + 1 + dice() % 4);
    const auto at = [&](size_t index) { return parts.begin() + static_cast<std::ptrdiff_t>(index); };
    const std::vector<Part> some(at(first), at(last));
    Part& part = parts[first];
    const auto way = dice() % 8;
    if (way == 0 && some.size() < parts.size()) {
        parts.erase(at(first), at(last));
    } else if (way == 1) {
        parts.insert(at(dice() % (parts.size() + 1)), some.begin(), some.end());
    } else if (way < 5 && !part.empty()) {
        LLVMFuzzerMutate(reinterpret_cast<uint8_t*>(&part[dice() % part.size()]), 4, 4);
    } else {
        const size_t size = part.size() * 4;
        part.resize(part.size() + 8);
        part.resize(LLVMFuzzerMutate(reinterpret_cast<uint8_t*>(part.data()), size, size + 32) / 4);
    }
}

}  // namespace

size_t Mutate(Form form, uint8_t* data, size_t size, size_t mostBytes, unsigned seed) {
    std::minstd_rand dice(seed);
    Part words(size / 4);
    if (form == Form::Any || words.empty() || dice() % 4 == 0) return LLVMFuzzerMutate(data, size, mostBytes);
    std::memcpy(words.data(), data, words.size() * 4);
    std::vector<Part> parts = Split(form, words);
    Change(parts, dice);
    Mend(form, parts);
    words.clear();
    for (const Part& part : parts) words.insert(words.end(), part.begin(), part.end());
    const size_t bytes = std::min(words.size() * 4, mostBytes);
    std::memcpy(data, words.data(), bytes);
    return bytes;
}

}  // namespace fuzz
