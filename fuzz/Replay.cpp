// Runs the fuzz target on every file of the folders named on the command line.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/NoteTarget.h"

int main(int argc, char** argv) {
    size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(file),
                                          std::istreambuf_iterator<char>()};
            std::printf("%s\n", entry.path().filename().c_str());
            std::fflush(stdout);
            TryNote(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size(), Care::Thorough);
            ++count;
        }
    }
    std::printf("%zu cases\n", count);
    return count == 0 ? 1 : 0;
}
