// The edits of a page: planned first, then made at once, so that they happen whole or not at all.
#include <algorithm>
#include <cstring>
#include <exception>
#include <limits>

#include "ink/InkPage.h"
#include "ink/Require.h"

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

void Translate(StrokeRecord& record, int64_t rows) {
    record.minY = ToInt32(record.minY + rows);
    record.maxY = ToInt32(record.maxY + rows);
    for (int32_t i = 0; i < record.count; ++i) {
        Point& point = record.Points()[i];
        point.y = ToInt32(point.y + rows);
    }
}

}  // namespace

AddResult InkPage::AddStroke(const Point* points, int32_t count, int32_t top, int32_t bottom, ColorRef color,
                             StrokeChange& change) {
    modified = true;
    if (count <= 0) return AddResult::NothingToAdd;
    const int64_t slot = SlotOf(top, bottom);
    StrokeRecord* record = slot > kMaxSlot ? nullptr : pool_.Allocate(count);
    if (record == nullptr) return AddResult::OutOfMemory;
    record->yOffset = 0;
    record->SetColor(color);
    record->minY = top;
    record->maxY = bottom;
    std::memcpy(record->Points(), points, static_cast<size_t>(count) * sizeof(Point));
    NoteHeight(top, bottom);

    const size_t place = static_cast<size_t>(slot);
    const StrokeBand* band = Band(place);
    try {
        change.splices.push_back({place, band == nullptr ? 0 : band->Count(), {}, {record}});
        change.born.push_back(record);
        if (Splice(change, true)) return AddResult::Added;
    } catch (const std::exception&) {
    }
    change = {};
    pool_.Release(record);
    return AddResult::OutOfMemory;
}

bool InkPage::CutRecords(const std::vector<BandCuts>& cuts, StrokeChange& change) {
    try {
        const bool isPlanned = std::all_of(cuts.begin(), cuts.end(),
                                           [&](const BandCuts& each) { return PlanCuts(each, change); });
        if (isPlanned && Splice(change, true)) return true;
    } catch (const std::exception&) {
    }
    return Refuse(change);
}

// Throws bad_alloc, like the other plans.
bool InkPage::PlanCuts(const BandCuts& cuts, StrokeChange& change) {
    Require(Band(cuts.slot) != nullptr && !cuts.cuts.empty(), "a cut where no stroke is");
    const StrokeBand& band = *Band(cuts.slot);
    StrokeRecord* const* const records = band.begin();
    size_t next = cuts.cuts.front().index;
    const size_t end = cuts.cuts.back().index + 1;
    Require(end <= band.Count(), "a cut of no stroke");
    BandSplice splice{cuts.slot, next, {records + next, records + end}, {}};
    splice.after.reserve(end - next + cuts.runs.size());
    change.born.reserve(change.born.size() + cuts.runs.size());
    const StrokeRun* run = cuts.runs.data();
    for (const BandCuts::Cut& cut : cuts.cuts) {
        splice.after.insert(splice.after.end(), records + next, records + cut.index);
        for (size_t i = 0; i < cut.runs; ++i) {
            StrokeRecord* piece = CopyRun(pool_, *records[cut.index], *run++);
            if (piece == nullptr) return false;
            change.born.push_back(piece);
            splice.after.push_back(piece);
        }
        change.dead.push_back(records[cut.index]);
        next = cut.index + 1;
    }
    change.splices.push_back(std::move(splice));
    return true;
}

bool InkPage::ShiftStrokes(int64_t fromY, int64_t rows, StrokeChange& change) {
    SlotTable shifted;
    if (!FitsInt32(rows) || !FileMoved(fromY, rows, shifted)) return false;
    try {
        PlanShift(shifted, fromY, ToInt32(rows), change);
        if (Splice(change, true)) return true;
    } catch (const std::exception&) {
    }
    return Refuse(change);
}

// Files all records anew, those that move where they are going. Highest slots first, as they are drawn:
// whichever records meet in a band keep their order. False when memory is short or a stroke would leave the
// page.
bool InkPage::FileMoved(int64_t fromY, int64_t rows, SlotTable& shifted) const {
    try {
        shifted.SetCount(slots_.Count());
        for (size_t slot = slots_.Count(); slot-- > 0;) {
            if (Band(slot) == nullptr) continue;
            for (StrokeRecord* record : *Band(slot)) {
                int64_t target = static_cast<int64_t>(slot);
                if (IsFrom(*record, fromY)) {
                    if (!CanMove(*record, rows)) return false;
                    target = SlotOf(ToInt32(record->minY + rows), ToInt32(record->maxY + rows));
                    if (target > kMaxSlot) return false;
                }
                shifted.Make(static_cast<size_t>(target)).Append(record);
            }
        }
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

// The points move and not the offset: that one tells of notes from other devices.
void InkPage::PlanShift(const SlotTable& shifted, int64_t fromY, int32_t rows, StrokeChange& change) const {
    const StrokeBand none{};
    const auto bandOf = [&none](const SlotTable& slots, size_t slot) -> const StrokeBand& {
        const StrokeBand* band = slots.Find(slot);
        return band == nullptr ? none : *band;
    };
    change.from = fromY;
    change.rows = rows;
    for (size_t slot = 0; slot < std::max(slots_.Count(), shifted.Count()); ++slot) {
        const StrokeBand& before = bandOf(slots_, slot);
        const StrokeBand& after = bandOf(shifted, slot);
        if (!std::equal(before.begin(), before.end(), after.begin(), after.end()))
            change.splices.push_back({slot, 0, {before.begin(), before.end()}, {after.begin(), after.end()}});
        std::copy_if(before.begin(), before.end(), std::back_inserter(change.moved),
                     [fromY](const StrokeRecord* record) { return IsFrom(*record, fromY); });
    }
}

bool InkPage::RemoveAll(StrokeChange& change) {
    try {
        for (size_t slot = 0; slot < slots_.Count(); ++slot) {
            const StrokeBand* band = Band(slot);
            if (band == nullptr || band->IsEmpty()) continue;
            change.splices.push_back({slot, 0, {band->begin(), band->end()}, {}});
            change.dead.insert(change.dead.end(), band->begin(), band->end());
        }
        if (Splice(change, true)) return true;
    } catch (const std::exception&) {
    }
    return Refuse(change);
}

bool InkPage::Refuse(StrokeChange& change) {
    for (StrokeRecord* record : change.born) pool_.Release(record);
    change = {};
    return false;
}

void InkPage::Forget(const StrokeChange& change, bool isMade) {
    for (StrokeRecord* record : isMade ? change.dead : change.born) pool_.Release(record);
}

bool InkPage::MakeRoomFor(const StrokeChange& change, bool forward) {
    const size_t slotsBefore = slots_.Count();
    try {
        for (const BandSplice& splice : change.splices) {
            StrokeBand& band = slots_.Make(splice.slot);
            const size_t more = (forward ? splice.after : splice.before).size();
            // Doubled: strokes come one by one.
            if (band.capacity_ < band.Count() + more) band.Reserve(band.Count() * 2 + more);
        }
    } catch (const std::exception&) {
        slots_.SetCount(std::min(slotsBefore, slots_.Count()));
        return false;
    }
    return true;
}

bool InkPage::Splice(const StrokeChange& change, bool forward) {
    if (!MakeRoomFor(change, forward)) return false;
    // From here on nothing can fail.
    for (const BandSplice& splice : change.splices) {
        const std::vector<StrokeRecord*>& out = forward ? splice.before : splice.after;
        const std::vector<StrokeRecord*>& in = forward ? splice.after : splice.before;
        slots_.Find(splice.slot)->Replace(splice.index, out.size(), in);
    }
    for (StrokeRecord* record : change.moved)
        Translate(*record, forward ? change.rows : -int64_t{change.rows});
    modified = true;
    return true;
}

}  // namespace ink
