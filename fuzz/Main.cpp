// Replays stored cases as a test, or, named "fuzz_TARGET", is the fuzzer of that target.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <numeric>

#include "fuzz/Mutation.h"

namespace fuzz {

namespace {

constexpr struct {
    const char* name;
    void (*tryBytes)(const Bytes& bytes, Care care);
    Form form;
} kTargets[] = {
    {"note", TryNote, Form::Note},
    {"salvage", TrySalvage, Form::Note},
    {"journal", TryJournal, Form::Blocks},
    {"notification_entry", TryNotificationEntry, Form::Any},
    {"command_line", TryCommandLine, Form::Any},
    {"name_pattern", TryNamePattern, Form::Any},
    {"memo", TryMemo, Form::Any},
    {"day_name", TryDayName, Form::Any},
};

const auto* target = kTargets;

void Choose(const std::string& name) {
    for (const auto& each : kTargets) {
        if (name == each.name) target = &each;
    }
    Require(name == target->name, "a target's name");
}

}  // namespace

void Require(bool kept, const char* promise) {
    if (kept) return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

}  // namespace fuzz

#ifdef INKWRIGHT_FUZZER

extern "C" int LLVMFuzzerInitialize(int*, char*** arguments) {
    fuzz::Choose(std::filesystem::path((*arguments)[0]).filename().string().substr(5));
    return 0;
}

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t mostBytes, unsigned seed) {
    return fuzz::Mutate(fuzz::target->form, data, size, mostBytes, seed);
}

// Short call stacks: allocations take most of the time.
extern "C" const char* __asan_default_options() { return "malloc_context_size=2:quarantine_size_mb=16"; }

// One input of 1024 is looked at thoroughly: most draw what others drew before.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const bool isPicked = std::accumulate(data, data + size, size_t{0}) % 1024 == 0;
    fuzz::target->tryBytes({data, data + size}, isPicked ? fuzz::Care::Thorough : fuzz::Care::Quick);
    return 0;
}

#else

// fuzz_replay TARGET FOLDER...
int main(int argc, char** argv) {
    size_t count = 0;
    fuzz::Choose(argc > 1 ? argv[1] : "");
    for (int i = 2; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            std::fprintf(stderr, "%s\n", entry.path().filename().c_str());
            fuzz::target->tryBytes({std::istreambuf_iterator<char>(file), {}}, fuzz::Care::Thorough);
            ++count;
        }
    }
    return count == 0 ? 1 : 0;
}

#endif
