// Prints what reading hostile notes and journals takes, beside an ordinary one of the same size and beside
// the bare read of as many bytes: time, and the most memory at once. All in alternation in one run; the best
// of several rounds counts.
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "bench/Scene.h"
#include "bench/TempFile.h"
#include "ink/Blocks.h"
#include "ink/NoteFile.h"
#include "ink/NoteSalvage.h"
#include "ink/NoteScanner.h"
#include "ink/PageHistory.h"
#include "ink/PageJournal.h"

namespace {

size_t g_now = 0;
size_t g_most = 0;

void* Take(size_t size) {
    void* memory = std::malloc(size);
    if (memory == nullptr) return nullptr;
    g_now += malloc_usable_size(memory);
    g_most = std::max(g_most, g_now);
    return memory;
}

void GiveBack(void* memory) {
    if (memory != nullptr) g_now -= malloc_usable_size(memory);
    std::free(memory);
}

}  // namespace

void* operator new(size_t size) {
    void* memory = Take(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}
void* operator new(size_t size, const std::nothrow_t&) noexcept { return Take(size); }
void* operator new[](size_t size) { return operator new(size); }
void* operator new[](size_t size, const std::nothrow_t&) noexcept { return Take(size); }
void operator delete(void* memory) noexcept { GiveBack(memory); }
void operator delete(void* memory, size_t) noexcept { GiveBack(memory); }
void operator delete[](void* memory) noexcept { GiveBack(memory); }
void operator delete[](void* memory, size_t) noexcept { GiveBack(memory); }

namespace {

using Bytes = std::vector<uint8_t>;

constexpr double kWantedTime = 3;
constexpr double kWantedMemory = 2;
// What may be added whatever the size: a stroke far below takes its place in the page's list of slots.
constexpr double kFixedTime = 1e-3;
constexpr double kFixedMemory = 1 << 20;
constexpr int32_t kHeight = bench::kViewHeight;
int g_rounds = 7;
size_t g_size = 16 * 1024 * 1024;
bool g_allMet = true;

struct Cost {
    double seconds = 1e9;
    size_t memory = 0;
};

void Measure(const std::function<void()>& work, Cost& cost) {
    malloc_trim(0);
    const size_t before = g_most = g_now;
    const auto start = std::chrono::steady_clock::now();
    work();
    const auto end = std::chrono::steady_clock::now();
    cost.seconds = std::min(cost.seconds, std::chrono::duration<double>(end - start).count());
    cost.memory = g_most - before;
}

void Put(Bytes& bytes, std::initializer_list<int64_t> numbers) {
    for (const int64_t number : numbers) {
        const auto word = static_cast<uint32_t>(number);
        const auto* raw = reinterpret_cast<const uint8_t*>(&word);
        bytes.insert(bytes.end(), raw, raw + sizeof word);
    }
}

// The header of a note of version 5 and as many bands.
Bytes Header(int64_t bands, int32_t height = kHeight) {
    Bytes bytes;
    bytes.reserve(g_size + 4096);
    Put(bytes, {5, 0xFFFFFF, bands, height});
    return bytes;
}

void PutRecord(Bytes& bytes, int32_t points, int64_t top, int64_t bottom) {
    Put(bytes, {points, 0, 0, 0, top, bottom});
    for (int32_t i = 0; i < points; ++i) Put(bytes, {i % 400, top});
}

// Bands of `records` strokes with `points` points each.
Bytes Bands(int32_t records, int32_t points) {
    const size_t size = 4 + static_cast<size_t>(records) * (24 + 8 * static_cast<size_t>(points));
    const auto bands = static_cast<int64_t>(g_size / size);
    Bytes bytes = Header(bands);
    for (int64_t band = 0; band < bands; ++band) {
        Put(bytes, {records});
        for (int32_t i = 0; i < records; ++i) PutRecord(bytes, points, 0, 0);
    }
    return bytes;
}

// One band of another height, whose records without points belong into slots of their own.
Bytes Scattered(const std::function<int64_t(int64_t)>& slotOf, int64_t most = INT32_MAX) {
    const int64_t records = std::min(most, static_cast<int64_t>(g_size / 24));
    Bytes bytes = Header(1, kHeight + 1);
    Put(bytes, {records});
    for (int64_t i = 0; i < records; ++i) {
        const int64_t slot = slotOf(i) % ink::InkPage::kMaxSlot;
        PutRecord(bytes, 0, slot / 2 * kHeight, (slot - slot / 2) * kHeight);
    }
    return bytes;
}

// A stroke that claims more points than there are.
Bytes Claim(int64_t points) {
    Bytes bytes = Header(1);
    Put(bytes, {1, points, 0, 0, 0, 0, 0});
    bytes.resize(g_size + 100);  // the room that doubles is largest
    return bytes;
}

Bytes Ordinary() {
    ink::InkPage page;
    bench::FillPage(page, bench::MakeStrokes(g_size / 344 + 2));
    ink::MemorySink sink;
    ink::WriteNote(sink, page);
    return sink.Bytes();
}

void Load(const std::string& path) {
    bench::File file = bench::File::OpenForReading(path);
    ink::NoteFileHeader header;
    ink::InkPage page;
    page.bandHeight = kHeight;
    if (ink::ReadNoteHeader(file, header)) ink::ReadNoteBody(file, header, page);
}

void Salvage(const std::string& path) {
    bench::File file = bench::File::OpenForReading(path);
    ink::InkPage page;
    ink::SalvageNote(file, page);
}

void Preview(const std::string& path) {
    bench::File file = bench::File::OpenForReading(path);
    ink::NoteFileHeader header;
    ink::StrokePool pool;
    if (!ink::ReadNoteHeader(file, header)) return;
    ink::NoteScanner scanner(file, header, kHeight, pool, ink::NoteScanner::Mode::Visit);
    ink::StrokeRecord* record = nullptr;
    while (scanner.Next(record) == ink::ScanResult::Record) {
    }
}

void ReplayAll(const std::string& path) {
    bench::File file = bench::File::OpenForReading(path);
    ink::InkPage page;
    uint32_t kind = 0;
    ink::BlockBytes content;
    while (ink::NextBlock(file, kind, content) && ink::Replay(kind, content, page)) {
    }
}

void ReadBare(const std::string& path, size_t size) {
    Bytes bytes;
    bytes.reserve(size);
    size_t got = 0;
    bench::File::OpenForReading(path).Read(bytes.data(), size, got);
}

using Reader = void (*)(const std::string&);

void Compare(const std::string& what, Reader reader, const Bytes& hostile, Reader usualReader,
             const Bytes& ordinary) {
    const bench::TempPath hostilePath("hostile");
    const bench::TempPath ordinaryPath("ordinary");
    bench::File::Create(hostilePath.Path()).Write(hostile.data(), hostile.size());
    bench::File::Create(ordinaryPath.Path()).Write(ordinary.data(), hostile.size());
    Cost ours, usual, bare;
    for (int i = 0; i < g_rounds; ++i) {
        Measure([&] { reader(hostilePath.Path()); }, ours);
        Measure([&] { usualReader(ordinaryPath.Path()); }, usual);
        Measure([&] { ReadBare(hostilePath.Path(), hostile.size()); }, bare);
    }
    const double time = ours.seconds / usual.seconds;
    const double memory = static_cast<double>(ours.memory) / static_cast<double>(usual.memory);
    const bool isMet =
        ours.seconds <= kWantedTime * usual.seconds + kFixedTime &&
        static_cast<double>(ours.memory) <= kWantedMemory * static_cast<double>(usual.memory) + kFixedMemory;
    g_allMet = g_allMet && isMet;
    std::printf("| %-50s | %8zu | %6.2f | %6.2f | %6.2f | %6.2f | %-3s |\n", what.c_str(), hostile.size(),
                time, ours.seconds / bare.seconds, memory,
                static_cast<double>(ours.memory) / static_cast<double>(hostile.size()), isMet ? "yes" : "NO");
    std::fflush(stdout);
}

void CompareNotes() {
    const Bytes ordinary = Ordinary();
    uint64_t seed = 1;
    const auto random = [&seed](int64_t) {
        seed = seed * 6364136223846793005u + 1442695040888963407u;
        return static_cast<int64_t>(seed >> 40);
    };
    struct Case {
        const char* name;
        Bytes bytes;
    };
    const Case cases[] = {
        {"ordinary", ordinary},
        {"empty bands", Bands(0, 0)},
        {"a stroke without points in each band", Bands(1, 0)},
        {"two of them in each band", Bands(2, 0)},
        {"three of them in each band", Bands(3, 0)},
        {"five of them in each band", Bands(5, 0)},
        {"a million and more of them in one band", Bands(static_cast<int32_t>(g_size / 24 - 1), 0)},
        {"a million and more of one point", Bands(static_cast<int32_t>(g_size / 32 - 1), 1)},
        {"scattered over all slots", Scattered(random)},
        {"each in a slot of its own, upwards", Scattered([](int64_t i) { return i; })},
        {"each in a slot of its own, downwards", Scattered([](int64_t i) { return 999999 - i % 1000000; })},
        {"far from each other", Scattered([](int64_t i) { return i * 64; }, 15625)},
        {"one, far below", Scattered([](int64_t) { return 999999; }, 1)},
        {"2,147,483,647 points claimed", Claim(INT32_MAX)},
        {"strokes that fill pieces badly", Bands(1, 16500)},
        {"one stroke of all points", Bands(1, static_cast<int32_t>(g_size / 8 - 4))},
    };
    for (const Case& each : cases) Compare(each.name, Load, each.bytes, Load, ordinary);
    for (const Case& each : cases)
        Compare(std::string("preview: ") + each.name, Preview, each.bytes, Load, ordinary);
    for (const Case& each : cases)
        Compare(std::string("salvage: ") + each.name, Salvage, each.bytes, Load, ordinary);
}

class Journal : public ink::StepListener {
  public:
    explicit Journal(const ink::InkPage& page) : page_(page) { ink::AppendPage(bytes, page); }
    void OnStep(const ink::PageStep& step, ink::StepWay way) override {
        ink::AppendStep(bytes, step, way, page_);
    }
    Bytes bytes;

  private:
    const ink::InkPage& page_;
};

Bytes OrdinaryJournal(size_t size) {
    ink::InkPage page;
    bench::FillPage(page, {});
    ink::PageHistory history(page, 0);
    Journal journal(page);
    history.SetListener(&journal);
    for (const bench::Stroke& stroke : bench::MakeStrokes(size / 344)) {
        if (journal.bytes.size() >= size) break;
        int32_t low = INT32_MAX, high = INT32_MIN;
        for (const ink::Point p : stroke.points) low = std::min(low, p.y), high = std::max(high, p.y);
        history.AddStroke(stroke.points.data(), static_cast<int32_t>(stroke.points.size()), low, high, 0);
        history.EndStep();
    }
    return journal.bytes;
}

Bytes PageBlock(int32_t records) {
    Bytes note = Header(1);
    Put(note, {records});
    for (int32_t i = 0; i < records; ++i) PutRecord(note, 0, 0, 0);
    ink::BlockPacker block(ink::kPageBlock);
    block.LongNumber(note.size());
    block.Raw(note.data(), note.size());
    block.Number(0), block.LongNumber(1), block.Number(0);
    return block.Finish();
}

void PutSplice(ink::BlockPacker& block, uint64_t slot) {
    block.LongNumber(slot), block.LongNumber(0), block.LongNumber(0), block.LongNumber(1);
    block.Number(0xFFFFFFFF);
    for (int i = 0; i < 6; ++i) block.Number(0);
}

// One step with a splice for each of very many slots.
Bytes ManySplices(size_t size) {
    Bytes bytes = PageBlock(0);
    ink::BlockPacker block(ink::kStepBlock);
    const auto splices = static_cast<uint32_t>(size / 60);
    block.Number(1), block.Number(0), block.Number(splices);
    for (uint32_t i = 0; i < splices; ++i) PutSplice(block, i);
    block.Number(0), block.LongNumber(splices), block.Number(0);
    const Bytes packed = block.Finish();
    bytes.insert(bytes.end(), packed.begin(), packed.end());
    return bytes;
}

// Steps that put a stroke before all others of a long band, and let the page grow and shrink.
Bytes ManySteps(size_t size, int32_t records, uint64_t slots) {
    Bytes bytes = PageBlock(records);
    for (int i = 0; bytes.size() < size; ++i) {
        ink::BlockPacker block(ink::kStepBlock);
        block.Number(records > 0 ? 1 : 0);
        if (records > 0) block.Number(0), block.Number(1), PutSplice(block, 0);
        block.Number(0), block.LongNumber(i % 2 == 0 ? slots : 1), block.Number(0);
        const Bytes packed = block.Finish();
        bytes.insert(bytes.end(), packed.begin(), packed.end());
    }
    return bytes;
}

void CompareJournals() {
    const size_t size = g_size / 16;  // what is worse than linear shows all the same
    const Bytes ordinary = OrdinaryJournal(2 * size);
    Compare("journal: ordinary", ReplayAll, OrdinaryJournal(size), ReplayAll, ordinary);
    Compare("journal: splices of many slots", ReplayAll, ManySplices(size), ReplayAll, ordinary);
    Compare("journal: strokes put first", ReplayAll, ManySteps(size, static_cast<int32_t>(size / 48), 1),
            ReplayAll, ordinary);
    Compare("journal: growing and shrinking", ReplayAll, ManySteps(size, 0, 2000000), ReplayAll, ordinary);
}

}  // namespace

// "--trial" runs everything once on small notes, to see that it works; its figures mean nothing.
int main(int argc, char** argv) {
    const bool isTrial = argc > 1 && std::string(argv[1]) == "--trial";
    if (isTrial) g_rounds = 1, g_size = 256 * 1024;
    std::printf("| %-50s | %8s | time | beside the bare read | memory | beside the bytes | met |\n", "what",
                "bytes");
    std::printf("|---|---:|---:|---:|---:|---:|---|\n");
    CompareNotes();
    CompareJournals();
    return isTrial || g_allMet ? 0 : 1;
}
