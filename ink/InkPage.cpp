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

// Records without points are no ink and stay where they are.
bool IsFrom(const StrokeRecord& record, int64_t fromY) { return record.count >= 1 && record.minY >= fromY; }

// A damaged file may hold points that can't go any further.
bool CanMove(const StrokeRecord& record, int64_t rows) {
    if (!FitsInt32(record.minY + rows) || !FitsInt32(record.maxY + rows)) return false;
    const Point* points = record.Points();
    return std::all_of(points, points + record.count, [rows](Point p) { return FitsInt32(p.y + rows); });
}

std::ptrdiff_t Place(size_t index) { return static_cast<std::ptrdiff_t>(index); }

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

bool InkPage::CutRecords(size_t slot, const BandCuts& cuts) {
    if (slot >= slots_.size() || slots_[slot] == nullptr) return false;
    std::vector<StrokeRecord*>& records = slots_[slot]->records_;
    std::vector<StrokeRecord*> pieces;
    std::vector<StrokeRecord*> after;
    bool enough = true;
    try {
        pieces.reserve(cuts.runs.size());
        after.reserve(records.size() + cuts.runs.size());
    } catch (const std::exception&) {
        return false;
    }
    const StrokeRun* run = cuts.runs.data();
    for (const BandCuts::Cut& cut : cuts.cuts) {
        for (size_t i = 0; i < cut.runs && enough; ++i) {
            StrokeRecord* piece = CopyRun(pool_, *records[cut.index], *run++);
            enough = piece != nullptr;
            if (enough) pieces.push_back(piece);
        }
    }
    if (!enough) {
        for (StrokeRecord* piece : pieces) pool_.Release(piece);
        return false;
    }
    // Room was reserved: from here on nothing can fail.
    auto piece = pieces.begin();
    size_t next = 0;
    for (const BandCuts::Cut& cut : cuts.cuts) {
        after.insert(after.end(), records.begin() + Place(next), records.begin() + Place(cut.index));
        after.insert(after.end(), piece, piece + Place(cut.runs));
        piece += Place(cut.runs);
        pool_.Release(records[cut.index]);
        next = cut.index + 1;
    }
    after.insert(after.end(), records.begin() + Place(next), records.end());
    records.swap(after);
    modified = true;
    return true;
}

// Files all records anew, those that move where they are going. Highest slots first, as they are drawn:
// whichever records meet in a band keep their order. False when memory is short or a stroke would leave the
// page.
bool InkPage::FileMoved(int64_t fromY, int64_t rows, Slots& shifted) const {
    try {
        shifted.resize(slots_.size());
        for (size_t slot = slots_.size(); slot-- > 0;) {
            if (slots_[slot] == nullptr) continue;
            for (StrokeRecord* record : slots_[slot]->records_) {
                int64_t target = static_cast<int64_t>(slot);
                if (IsFrom(*record, fromY)) {
                    if (!CanMove(*record, rows)) return false;
                    target = SlotOf(ToInt32(record->minY + rows), ToInt32(record->maxY + rows));
                    if (target > kMaxSlot) return false;
                }
                AppendTo(shifted, record, target);
            }
        }
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

// The points move and not the offset: that one tells of notes from other devices.
bool InkPage::ShiftStrokes(int64_t fromY, int64_t rows) {
    Slots shifted;
    if (!FitsInt32(rows) || !FileMoved(fromY, rows, shifted)) return false;
    const int32_t distance = ToInt32(rows);
    for (const auto& band : slots_) {
        if (band == nullptr) continue;
        for (StrokeRecord* record : band->records_) {
            if (!IsFrom(*record, fromY)) continue;
            record->minY += distance;
            record->maxY += distance;
            for (int32_t i = 0; i < record->count; ++i) record->Points()[i].y += distance;
        }
    }
    slots_.swap(shifted);
    modified = true;
    return true;
}

}  // namespace ink
