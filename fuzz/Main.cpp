// Replays stored cases as a test, or, started as "fuzz_TARGET", is the fuzzer of that target.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <numeric>

#include "fuzz/Target.h"

using namespace fuzz;

static const std::map<std::string, Try*> kTargets{{"note", TryNote},
                                                  {"salvage", TrySalvage},
                                                  {"journal", TryJournal},
                                                  {"notification_entry", TryNotificationEntry},
                                                  {"command_line", TryCommandLine},
                                                  {"name_pattern", TryNamePattern},
                                                  {"memo", TryMemo},
                                                  {"day_name", TryDayName}};

void fuzz::Require(bool kept, const char* promise) {
    if (kept) return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

#ifdef INKWRIGHT_FUZZER

// Short call stacks: allocations take most of the time.
extern "C" const char* __asan_default_options() { return "malloc_context_size=2:quarantine_size_mb=16"; }

// One input of 1024 is looked at thoroughly: most draw what others drew before.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const bool isPicked = std::accumulate(data, data + size, size_t{0}) % 1024 == 0;
    kTargets.at(program_invocation_short_name + 5)({data, data + size},
                                                   isPicked ? Care::Thorough : Care::Quick);
    return 0;
}

#else

// fuzz_replay TARGET FOLDER...
int main(int argc, char** argv) {
    size_t count = 0;
    for (int i = 2; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            std::fprintf(stderr, "%s\n", entry.path().filename().c_str());
            kTargets.at(argv[1])({std::istreambuf_iterator<char>(file), {}}, Care::Thorough);
            ++count;
        }
    }
    return count == 0 ? 1 : 0;
}

#endif
