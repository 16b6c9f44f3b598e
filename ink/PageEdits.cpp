#include "ink/PageEdits.h"

#include <algorithm>
#include <exception>
#include <limits>

namespace ink {

namespace {

// Adds the runs of points of a stroke that lie outside the region; false when that is all of them.
bool FindRuns(const StrokeRecord& record, const SweptRegion& region, std::vector<StrokeRun>& runs) {
    StrokeRun run{0, 0};
    for (int32_t i = 0; i < record.count; ++i) {
        if (!region.Contains(record.Points()[i].x, record.PageY(i))) {
            ++run.count;
            continue;
        }
        if (run.count > 0) runs.push_back(run);
        run = {i + 1, 0};
    }
    if (run.count == record.count) return false;
    if (run.count > 0) runs.push_back(run);
    return true;
}

BandCuts CutsOf(const InkPage& page, size_t slot, const SweptRegion& region) {
    BandCuts found;
    found.slot = slot;
    if (page.Band(slot) == nullptr) return found;
    const StrokeBand& band = *page.Band(slot);
    for (size_t i = 0; i < band.Count(); ++i) {
        const StrokeRecord& record = band.At(i);
        if (record.count < 1 || record.maxY < region.Top() || record.minY > region.Bottom()) continue;
        const size_t before = found.runs.size();
        if (FindRuns(record, region, found.runs)) found.cuts.push_back({i, found.runs.size() - before});
    }
    return found;
}

// Where a page comes apart when the strokes that begin at some row or below move away from the others. Rows
// are those of the ink, not of its points.
struct Seam {
    int64_t lastAbove = -1;  // lowest row of the strokes that stay, or the row above the page
    int64_t firstBelow = std::numeric_limits<int64_t>::max();  // highest row of those that move

    bool NothingBelow() const { return firstBelow == std::numeric_limits<int64_t>::max(); }
    int64_t BlankRows() const { return std::max<int64_t>(0, firstBelow - lastAbove - 1); }
};

Seam FindSeam(const InkPage& page, int64_t from, int32_t reach) {
    Seam seam;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        const StrokeBand* band = page.Band(slot);
        for (size_t i = 0; band != nullptr && i < band->Count(); ++i) {
            const StrokeRecord& record = band->At(i);
            if (record.count < 1) continue;
            if (record.minY < from) {
                seam.lastAbove = std::max<int64_t>(seam.lastAbove, int64_t{record.maxY} + reach);
            } else {
                seam.firstBelow = std::min<int64_t>(seam.firstBelow, int64_t{record.minY} - reach);
            }
        }
    }
    return seam;
}

}  // namespace

EditResult EraseStrokes(InkPage& page, const SweptRegion& region, StrokeChange& change) {
    if (region.IsEmpty()) return EditResult::NothingToDo;
    const SlotRange slots = page.SlotsFor(region.Top(), region.Bottom());
    std::vector<BandCuts> cuts;
    try {
        for (int64_t slot = slots.first; slot <= slots.last; ++slot) {
            BandCuts found = CutsOf(page, static_cast<size_t>(slot), region);
            if (!found.cuts.empty()) cuts.push_back(std::move(found));
        }
    } catch (const std::exception&) {
        return EditResult::OutOfMemory;
    }
    if (cuts.empty()) return EditResult::NothingToDo;
    return page.CutRecords(cuts, change) ? EditResult::Changed : EditResult::OutOfMemory;
}

EditResult MoveStrokes(InkPage& page, int64_t from, int64_t rows, int32_t reach, StrokeChange& change) {
    const Seam seam = FindSeam(page, from, reach);
    if (seam.NothingBelow()) return EditResult::NothingToDo;
    const int64_t distance = std::max(rows, -seam.BlankRows());
    if (distance == 0) return EditResult::NothingToDo;
    return page.ShiftStrokes(from, distance, change) ? EditResult::Changed : EditResult::OutOfMemory;
}

}  // namespace ink
