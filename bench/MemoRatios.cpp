// Prints how fast text memos are searched, beside the searches of the standard library over the same file
// read into one buffer. Both sides are timed in alternation; the best of several rounds counts.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <string_view>

#include "platform/File.h"
#include "platform/host/HostDevice.h"
#include "search/MemoSearch.h"

namespace {

constexpr wchar_t kPath[] = L"\\memo.txt";

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Words of small letters, none of which holds a "z".
std::string MakeMemo(size_t size) {
    std::mt19937 random(3);
    std::string memo;
    while (memo.size() < size) {
        for (size_t i = 2 + random() % 7; i > 0; --i) memo += "etaoinshrdlucmfwypvbgkjqx"[random() % 25];
        memo += random() % 12 == 0 ? '\n' : ' ';
    }
    return memo;
}

std::string ReadWhole() {
    platform::File file = platform::File::OpenForReading(kPath);
    uint64_t size = 0;
    file.Size(size);
    std::string bytes(size, '\0');
    size_t got = 0;
    file.Read(bytes.data(), bytes.size(), got);
    return bytes;
}

char Small(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte; }

bool FindExact(const std::string& text) {
    return std::string_view(ReadWhole()).find(text) != std::string::npos;
}

bool FindFolded(const std::string& text) {
    const std::string bytes = ReadWhole();
    const auto same = [](char a, char b) { return Small(a) == Small(b); };
    return std::search(bytes.begin(), bytes.end(), text.begin(), text.end(), same) != bytes.end();
}

}  // namespace

// "--trial" runs everything once on a small memo, to see that it works; its figures mean nothing.
int main(int argc, char** argv) {
    const bool trial = argc > 1 && std::string(argv[1]) == "--trial";
    platform::host::HostDevice device;
    const std::string memo = MakeMemo(trial ? 100000 : 16 << 20);
    const double megabytes = static_cast<double>(memo.size()) / 1e6;
    device.files.Put(kPath, memo);
    std::printf("| text | ours, MB/s | find, MB/s | ratio | search without case, MB/s | ratio |\n");
    std::printf("|---|---:|---:|---:|---:|---:|\n");
    for (const char* text : {"zebra", "quince with z", "tea and zest"}) {
        const std::atomic<bool> going{false};
        double ours = 1e9;
        double exact = 1e9;
        double folded = 1e9;
        for (int round = trial ? 1 : 9; round > 0; --round) {
            search::MemoSearch memos(text);
            bool found = false;
            ours = std::min(
                ours, Seconds([&] { found |= memos.LookIn(kPath, going) != search::MemoResult::NotFound; }));
            exact = std::min(exact, Seconds([&] { found |= FindExact(text); }));
            folded = std::min(folded, Seconds([&] { found |= FindFolded(text); }));
            if (found) std::abort();  // no word holds a "z"
        }
        std::printf("| %s | %.0f | %.0f | %.2f | %.0f | %.2f |\n", text, megabytes / ours, megabytes / exact,
                    exact / ours, megabytes / folded, folded / ours);
    }
    return 0;
}
