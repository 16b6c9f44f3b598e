#include "ink/InkPage.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace ink {
namespace {

int32_t ToInt32(int64_t value) {
    return static_cast<int32_t>(
        std::clamp<int64_t>(value, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

bool FitsInt32(int64_t value) { return value == ToInt32(value); }

// A new record with `run` of the points of `whole`, or null.
StrokeRecord* CopyRun(StrokePool& pool, const StrokeRecord& whole, const StrokeRun& run) {
    StrokeRecord* piece = pool.Allocate(run.count);
    if (piece == nullptr) return nullptr;
    piece->yOffset = whole.yOffset;
    piece->colorLow = whole.colorLow;
    piece->colorHigh = whole.colorHigh;
    int64_t low = std::numeric_limits<int64_t>::max();
    int64_t high = std::numeric_limits<int64_t>::min();
    for (int32_t i = 0; i < run.count; ++i) {
        low = std::min(low, whole.PageY(run.first + i));
        high = std::max(high, whole.PageY(run.first + i));
    }
    piece->minY = ToInt32(low);
    piece->maxY = ToInt32(high);
    std::memcpy(piece->Points(), whole.Points() + run.first, static_cast<size_t>(run.count) * sizeof(Point));
    return piece;
}

}  // namespace

void InkPage::Clear() {
    Slots().swap(slots_);
    pool_.Clear();
    memo.clear();
    scroll = 0;
    modified = false;
}

int64_t InkPage::SlotOf(int32_t minY, int32_t maxY) const {
    return std::max<int64_t>(0, BandOf(minY) + BandOf(maxY));
}

AddResult InkPage::AddStroke(const Point* points, int32_t count, int32_t top, int32_t bottom,
                             ColorRef color) {
    modified = true;
    if (count <= 0) return AddResult::NothingToAdd;
    StrokeRecord* record = pool_.Allocate(count);
    if (record == nullptr) return AddResult::OutOfMemory;
    record->yOffset = 0;
    record->SetColor(color);
    record->minY = top;
    record->maxY = bottom;
    std::memcpy(record->Points(), points, static_cast<size_t>(count) * sizeof(Point));

    const size_t slotsBefore = slots_.size();
    if (FileRecord(record, SlotOf(top, bottom))) return AddResult::Added;
    slots_.resize(std::min(slotsBefore, slots_.size()));
    pool_.Release(record);
    return AddResult::OutOfMemory;
}

bool InkPage::EnsureSlotCount(size_t count) {
    if (count <= slots_.size()) return true;
    try {
        slots_.resize(count);
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

bool InkPage::EnsureSlot(int64_t slot) {
    if (slot < 0) return true;
    return slot <= kMaxSlot && EnsureSlotCount(static_cast<size_t>(slot) + 1);
}

void InkPage::TrimTrailingBands() {
    while (!slots_.empty() && (slots_.back() == nullptr || slots_.back()->IsEmpty())) slots_.pop_back();
}

bool InkPage::HasInk() const {
    return std::any_of(slots_.begin(), slots_.end(),
                       [](const auto& band) { return band != nullptr && !band->IsEmpty(); });
}

SlotRange InkPage::SlotsFor(int64_t top, int64_t bottom) const {
    const int64_t lastSlot = static_cast<int64_t>(slots_.size()) - 1;
    return {std::max<int64_t>(0, 2 * BandOf(top) - 1), std::min(2 * BandOf(bottom) + 1, lastSlot)};
}

// Throws bad_alloc, with the band list at most grown by empty bands.
void InkPage::AppendTo(Slots& slots, StrokeRecord* record, int64_t slot) const {
    const size_t index = static_cast<size_t>(slot);
    if (slots.size() <= index) slots.resize(index + 1);
    if (slots[index] == nullptr) {
        auto band = std::make_unique<StrokeBand>();
        band->records_.push_back(record);
        slots[index] = std::move(band);
    } else {
        slots[index]->records_.push_back(record);
    }
}

bool InkPage::FileRecord(StrokeRecord* record, int64_t slot) {
    if (slot < 0 || slot > kMaxSlot) return false;
    try {
        AppendTo(slots_, record, slot);
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

bool InkPage::ReplaceRecord(size_t slot, size_t index, const StrokeRun* runs, size_t runCount) {
    if (slot >= slots_.size() || slots_[slot] == nullptr || index >= slots_[slot]->Count()) return false;
    std::vector<StrokeRecord*>& records = slots_[slot]->records_;
    StrokeRecord* whole = records[index];
    std::vector<StrokeRecord*> pieces;
    bool enough = true;
    try {
        pieces.reserve(runCount);
        records.reserve(records.size() + runCount);
    } catch (const std::exception&) {
        enough = false;
    }
    for (size_t i = 0; i < runCount && enough; ++i) {
        StrokeRecord* piece = CopyRun(pool_, *whole, runs[i]);
        enough = piece != nullptr;
        if (enough) pieces.push_back(piece);
    }
    if (!enough) {
        for (StrokeRecord* piece : pieces) pool_.Release(piece);
        return false;
    }
    // Room was reserved: from here on nothing can fail.
    const auto place = records.erase(records.begin() + static_cast<std::ptrdiff_t>(index));
    records.insert(place, pieces.begin(), pieces.end());
    pool_.Release(whole);
    modified = true;
    return true;
}

bool InkPage::ShiftStrokes(int32_t fromY, int32_t rows) {
    Slots shifted;
    const auto moves = [fromY](const StrokeRecord& record) { return record.minY >= fromY; };
    try {
        shifted.resize(slots_.size());
        for (size_t slot = 0; slot < slots_.size(); ++slot) {
            if (slots_[slot] == nullptr) continue;
            for (StrokeRecord* record : slots_[slot]->records_) {
                int64_t target = static_cast<int64_t>(slot);
                if (moves(*record)) {
                    const int64_t low = static_cast<int64_t>(record->minY) + rows;
                    const int64_t high = static_cast<int64_t>(record->maxY) + rows;
                    const int64_t offset = static_cast<int64_t>(record->yOffset) + rows;
                    if (!FitsInt32(low) || !FitsInt32(high) || !FitsInt32(offset)) return false;
                    target = SlotOf(ToInt32(low), ToInt32(high));
                    if (target > kMaxSlot) return false;
                }
                AppendTo(shifted, record, target);
            }
        }
    } catch (const std::exception&) {
        return false;
    }
    for (const auto& band : slots_) {
        if (band == nullptr) continue;
        for (StrokeRecord* record : band->records_) {
            if (!moves(*record)) continue;
            record->minY += rows;
            record->maxY += rows;
            record->yOffset += rows;
        }
    }
    slots_.swap(shifted);
    modified = true;
    return true;
}

}  // namespace ink
