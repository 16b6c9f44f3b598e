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

BandCuts CutsOf(const StrokeBand& band, const SweptRegion& region) {
    BandCuts found;
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

EditResult EraseStrokes(InkPage& page, const SweptRegion& region) {
    if (region.IsEmpty()) return EditResult::NothingToDo;
    const SlotRange slots = page.SlotsFor(region.Top(), region.Bottom());
    EditResult result = EditResult::NothingToDo;
    for (int64_t slot = slots.last; slot >= slots.first; --slot) {
        const StrokeBand* band = page.Band(static_cast<size_t>(slot));
        if (band == nullptr) continue;
        try {
            const BandCuts cuts = CutsOf(*band, region);
            if (cuts.cuts.empty()) continue;
            if (!page.CutRecords(static_cast<size_t>(slot), cuts)) return EditResult::OutOfMemory;
            result = EditResult::Changed;
        } catch (const std::exception&) {
            return EditResult::OutOfMemory;
        }
    }
    return result;
}

EditResult MoveStrokes(InkPage& page, int64_t from, int64_t rows, int32_t reach) {
    const Seam seam = FindSeam(page, from, reach);
    if (seam.NothingBelow()) return EditResult::NothingToDo;
    const int64_t distance = std::max(rows, -seam.BlankRows());
    if (distance == 0) return EditResult::NothingToDo;
    return page.ShiftStrokes(from, distance) ? EditResult::Changed : EditResult::OutOfMemory;
}

}  // namespace ink
