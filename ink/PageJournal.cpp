#include "ink/PageJournal.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <new>

#include "ink/NoteFile.h"

namespace ink {
namespace {

constexpr uint32_t kSplices = 0;
constexpr uint32_t kShift = 1;
constexpr size_t kLeastSplice = 32;            // bytes
constexpr uint32_t kWholeRecord = 0xFFFFFFFF;  // instead of the number of a record that was there before

void PackRest(BlockPacker& block, const InkPage& page, bool hasMemo) {
    block.Number(page.background);
    block.LongNumber(page.SlotCount());
    block.Number(hasMemo ? 1 : 0);
    if (hasMemo) block.Text(page.memo);
}

void PackSplice(BlockPacker& block, const BandSplice& splice, bool isDone) {
    const std::vector<StrokeRecord*>& out = isDone ? splice.before : splice.after;
    const std::vector<StrokeRecord*>& in = isDone ? splice.after : splice.before;
    block.LongNumber(splice.slot);
    block.LongNumber(splice.index);
    block.LongNumber(out.size());
    block.LongNumber(in.size());
    // What stays in the band keeps its order, so one look along the old list finds it.
    size_t next = 0;
    for (const StrokeRecord* record : in) {
        const auto found = std::find(out.begin() + static_cast<std::ptrdiff_t>(next), out.end(), record);
        if (found == out.end()) {
            block.Number(kWholeRecord);
            block.Raw(record, record->Bytes());
        } else {
            next = static_cast<size_t>(found - out.begin());
            block.Number(static_cast<uint32_t>(next++));
        }
    }
}

void PackChange(BlockPacker& block, const StrokeChange& change, bool isDone) {
    if (change.rows != 0) {
        block.Number(kShift);
        block.LongNumber(static_cast<uint64_t>(change.from));
        block.Number(static_cast<uint32_t>(change.rows));
        return;
    }
    block.Number(kSplices);
    block.Number(static_cast<uint32_t>(change.splices.size()));
    for (const BandSplice& splice : change.splices) PackSplice(block, splice, isDone);
}

// Where moved strokes met others only the change itself knows their old order.
bool IsUndoneShift(const PageStep& step, StepWay way) {
    return way == StepWay::Undone && std::any_of(step.changes.begin(), step.changes.end(),
                                                 [](const StrokeChange& each) { return each.rows != 0; });
}

// A new record with what stands in the block, or null.
StrokeRecord* ReadRecord(BlockParser& block, StrokePool& pool) {
    const uint8_t* head = block.Raw(sizeof(StrokeRecord));
    if (head == nullptr) return nullptr;
    int32_t count = 0;
    std::memcpy(&count, head, sizeof count);
    const size_t points = static_cast<size_t>(std::max(count, 0)) * sizeof(Point);
    const uint8_t* rest = block.Raw(points);
    if (rest == nullptr || count < 0) return nullptr;
    StrokeRecord* record = pool.Allocate(count);
    if (record == nullptr) throw std::bad_alloc();
    std::memcpy(static_cast<void*>(record), head, sizeof(StrokeRecord));
    if (points != 0) std::memcpy(record->Points(), rest, points);
    return record;
}

// Adds what the block tells of one slot; false when it does not fit the page.
bool ReadSplice(BlockParser& block, InkPage& page, StrokeChange& change) {
    BandSplice splice;
    const uint64_t slot = block.LongNumber();
    const uint64_t index = block.LongNumber();
    const uint64_t out = block.LongNumber();
    const uint64_t in = block.LongNumber();
    if (!block.IsGood() || slot > static_cast<uint64_t>(InkPage::kMaxSlot)) return false;
    const StrokeBand* band = page.Band(static_cast<size_t>(slot));
    const size_t records = band == nullptr ? 0 : band->Count();
    // One that changes nothing is never written.
    if (index > records || out > records - index || in > block.Left() || out + in == 0) return false;
    splice.slot = static_cast<size_t>(slot);
    splice.index = static_cast<size_t>(index);
    if (out > 0) splice.before.assign(band->begin() + index, band->begin() + index + out);
    size_t next = 0;
    for (uint64_t i = 0; i < in; ++i) {
        const uint32_t old = block.Number();
        if (old == kWholeRecord) {
            StrokeRecord* record = ReadRecord(block, page.Pool());
            if (record == nullptr) return false;
            change.born.push_back(record);
            splice.after.push_back(record);
            continue;
        }
        if (!block.IsGood() || old < next || old >= splice.before.size()) return false;
        change.dead.insert(change.dead.end(), splice.before.begin() + static_cast<std::ptrdiff_t>(next),
                           splice.before.begin() + static_cast<std::ptrdiff_t>(old));
        splice.after.push_back(splice.before[old]);
        next = size_t{old} + 1;
    }
    change.dead.insert(change.dead.end(), splice.before.begin() + static_cast<std::ptrdiff_t>(next),
                       splice.before.end());
    change.splices.push_back(std::move(splice));
    return true;
}

bool HasSlotTwice(const StrokeChange& change) {
    std::vector<size_t> slots;
    slots.reserve(change.splices.size());
    for (const BandSplice& splice : change.splices) slots.push_back(splice.slot);
    std::sort(slots.begin(), slots.end());
    return std::adjacent_find(slots.begin(), slots.end()) != slots.end();
}

bool ReplayChange(BlockParser& block, InkPage& page) {
    StrokeChange change;
    if (block.Number() == kShift) {
        const auto from = static_cast<int64_t>(block.LongNumber());
        const auto rows = static_cast<int32_t>(block.Number());
        return block.IsGood() && page.ShiftStrokes(from, rows, change);
    }
    const uint32_t splices = block.Number();
    bool fits = block.IsGood();
    // As many as the block has room for, whatever it claims.
    change.splices.reserve(std::min<size_t>(splices, block.Left() / kLeastSplice));
    for (uint32_t i = 0; i < splices && fits; ++i) fits = ReadSplice(block, page, change);
    fits = fits && !HasSlotTwice(change);
    const bool isMade = fits && page.Make(change);
    page.Forget(change, isMade);
    if (fits && !isMade) throw std::bad_alloc();
    return isMade;
}

bool ReplayRest(BlockParser& block, InkPage& page) {
    const ColorRef background = block.Number();
    const uint64_t slots = block.LongNumber();
    const bool hasMemo = block.Number() != 0;
    std::wstring memo = hasMemo ? block.Text() : page.memo;
    if (!block.IsGood() || slots > static_cast<uint64_t>(2 * InkPage::kMaxSlot)) return false;
    page.background = background;
    page.memo.swap(memo);
    page.EnsureSlotCount(static_cast<size_t>(slots));
    page.TrimTrailingBands(static_cast<size_t>(slots));
    return true;
}

bool ReplayPage(BlockParser& block, InkPage& page) {
    const uint64_t size = block.LongNumber();
    const uint8_t* note = block.Raw(size);
    if (note == nullptr) return false;
    MemorySource source(note, static_cast<size_t>(size));
    NoteFileHeader header;
    if (!ReadNoteHeader(source, header) || header.bandHeight <= 0) return false;
    page.bandHeight = header.bandHeight;
    const LoadResult result = ReadNoteBody(source, header, page);
    if (result == LoadResult::OutOfMemory) throw std::bad_alloc();
    return result == LoadResult::Loaded && ReplayRest(block, page);
}

}  // namespace

bool AppendPage(BlockBytes& bytes, const InkPage& page) {
    try {
        MemorySink note;
        if (!WriteNote(note, page)) return false;
        BlockPacker block(kPageBlock);
        block.LongNumber(note.Bytes().size());
        block.Raw(note.Bytes().data(), note.Bytes().size());
        PackRest(block, page, true);
        const BlockBytes packed = block.Finish();
        bytes.insert(bytes.end(), packed.begin(), packed.end());
        return !packed.empty();
    } catch (const std::exception&) {
        return false;
    }
}

bool AppendStep(BlockBytes& bytes, const PageStep& step, StepWay way, const InkPage& page) {
    if (IsUndoneShift(step, way)) return AppendPage(bytes, page);
    try {
        const bool isDone = way == StepWay::Done;
        BlockPacker block(kStepBlock);
        block.Number(static_cast<uint32_t>(step.changes.size()));
        for (size_t i = 0; i < step.changes.size(); ++i)
            PackChange(block, step.changes[isDone ? i : step.changes.size() - 1 - i], isDone);
        PackRest(block, page, step.memoBefore != step.memoAfter);
        const BlockBytes packed = block.Finish();
        bytes.insert(bytes.end(), packed.begin(), packed.end());
        return !packed.empty();
    } catch (const std::exception&) {
        return false;
    }
}

bool Replay(uint32_t kind, const BlockBytes& content, InkPage& page) {
    BlockParser block(content);
    if (kind == kPageBlock) return ReplayPage(block, page);
    const uint32_t changes = block.Number();
    for (uint32_t i = 0; i < changes; ++i) {
        if (!ReplayChange(block, page)) return false;
    }
    return ReplayRest(block, page);
}

}  // namespace ink
