// Changes notes so that most of them stay well-formed, and other inputs anyhow.
#include <cerrno>
#include <cstring>
#include <random>
#include <string>

#include "fuzz/Target.h"

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t mostBytes);

namespace {

using Part = std::vector<uint32_t>;

// The head (4 words), the heads of the bands (1) and the strokes (6 and the points): as far as there are
// words.
std::vector<Part> Split(const Part& words) {
    std::vector<Part> parts;
    uint32_t strokes = 0;  // that are still to come in the band
    for (auto at = words.begin(); at != words.end(); at += static_cast<std::ptrdiff_t>(parts.back().size())) {
        const size_t size = parts.empty() ? 4 : strokes > 0 ? size_t{*at} * 2 + 6 : 1;
        if (!parts.empty()) strokes = strokes > 0 ? strokes - 1 : *at;
        const auto left = static_cast<size_t>(words.end() - at);
        parts.emplace_back(at, at + static_cast<std::ptrdiff_t>(std::min(size, left)));
    }
    return parts;
}

// Takes parts away, puts some of them elsewhere as well, or changes one.
void Change(std::vector<Part>& parts, std::minstd_rand& dice) {
    const auto first = parts.begin() + static_cast<std::ptrdiff_t>(dice() % parts.size());
    const auto last = first + std::min<std::ptrdiff_t>(1 + dice() % 4, parts.end() - first);
    const std::vector<Part> some(first, last);
    const auto way = dice() % 8;
    const size_t size = first->size() * 4;
    if (way == 0) parts.erase(first, last);
    if (way == 1)
        parts.insert(parts.end() - static_cast<std::ptrdiff_t>(dice() % parts.size()), some.begin(),
                     some.end());
    if (way < 2) return;
    first->resize(first->size() + 8);
    const size_t mostBytes = way < 5 ? size : size + 32;
    first->resize(LLVMFuzzerMutate(reinterpret_cast<uint8_t*>(first->data()), size, mostBytes) / 4);
}

// Joins the parts with all their counts true again.
Part Join(const std::vector<Part>& parts) {
    Part words{0, 0, 0, 0};
    for (size_t i = 0, band = 0; i < parts.size(); ++i) {
        Part part = parts[i];
        if (i == 0) {
            std::copy_n(part.begin(), std::min<size_t>(part.size(), 4), words.begin());
            words[2] = 0;
        } else if (part.size() < 2 || band == 0) {
            band = words.size();
            words.push_back(0);
            ++words[2];
        } else {
            part.resize(std::max<size_t>(part.size() / 2 * 2, 6));
            part[0] = static_cast<uint32_t>(part.size() / 2 - 3);
            words.insert(words.end(), part.begin(), part.end());
            ++words[band];
        }
    }
    return words;
}

}  // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t mostBytes, unsigned seed) {
    const std::string name = program_invocation_short_name;
    std::minstd_rand dice(seed);
    Part words(size / 4);
    const bool isNote = name == "fuzz_note" || name == "fuzz_salvage";
    if (!isNote || words.empty() || dice() % 4 == 0) return LLVMFuzzerMutate(data, size, mostBytes);
    std::memcpy(words.data(), data, words.size() * 4);
    std::vector<Part> parts = Split(words);
    Change(parts, dice);
    words = Join(parts);
    const size_t changed = std::min(words.size() * 4, mostBytes);
    std::memcpy(data, words.data(), changed);
    return changed;
}
