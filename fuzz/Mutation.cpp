// Changes notes so that most of them stay well-formed, and other inputs anyhow.
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <random>
#include <string>
#include <vector>

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t mostBytes);

// A band or a stroke, and which word counts it.
struct Piece {
    size_t at, size, count;
};

// As far as they are whole.
static std::vector<Piece> PiecesOf(const std::vector<uint32_t>& words) {
    std::vector<Piece> pieces;
    for (size_t at = 4; at < words.size();) {
        const size_t band = at++;
        for (uint32_t left = words[band]; left > 0 && at < words.size(); --left) {
            pieces.push_back({at, size_t{words[at]} * 2 + 6, band});
            at += pieces.back().size;
            if (at > words.size()) pieces.pop_back();
        }
        if (at <= words.size()) pieces.push_back({band, at - band, 2});
    }
    return pieces;
}

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t mostBytes, unsigned seed) {
    std::vector<uint32_t> words(size / 4);
    if (!words.empty()) std::memcpy(words.data(), data, words.size() * 4);
    std::minstd_rand dice(seed);
    const std::string name = program_invocation_short_name;
    const std::vector<Piece> pieces = PiecesOf(words);
    const bool isNote = name == "fuzz_note" || name == "fuzz_salvage";
    if (!isNote || pieces.empty() || dice() % 4 == 0) return LLVMFuzzerMutate(data, size, mostBytes);
    const Piece piece = pieces[dice() % pieces.size()], other = pieces[dice() % pieces.size()];
    const Piece to = (other.count == 2) == (piece.count == 2) ? other : piece;
    const auto first = words.begin() + static_cast<std::ptrdiff_t>(piece.at);
    const std::vector<uint32_t> some(first, first + static_cast<std::ptrdiff_t>(piece.size));
    const auto way = dice() % 8;
    if (way == 0) {
        words.erase(first, first + static_cast<std::ptrdiff_t>(piece.size));
        --words[piece.count];
    } else if (way == 1) {
        words.insert(words.begin() + static_cast<std::ptrdiff_t>(to.at), some.begin(), some.end());
        ++words[to.count];
    } else {
        LLVMFuzzerMutate(reinterpret_cast<uint8_t*>(&words[piece.at + dice() % piece.size]), 4, 4);
    }
    const size_t changed = std::min(words.size() * 4, mostBytes);
    std::memcpy(data, words.data(), changed);
    return changed;
}
