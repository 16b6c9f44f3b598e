// The note in memory: a tall page of strokes kept in a list of horizontal bands.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "ink/Color.h"
#include "ink/PenStyle.h"
#include "ink/SlotTable.h"
#include "ink/StrokeChange.h"
#include "ink/StrokePool.h"
#include "ink/StrokeRecord.h"

namespace ink {

enum class AddResult { Added, NothingToAdd, OutOfMemory };

// A run of consecutive points of a stroke.
struct StrokeRun {
    int32_t first;
    int32_t count;
};

// How some records of a slot fall apart.
struct BandCuts {
    struct Cut {
        size_t index;  // of the record in its band, in ascending order
        size_t runs;   // how many pieces stay of it; none: it goes
    };
    size_t slot = 0;
    std::vector<Cut> cuts;        // at least one
    std::vector<StrokeRun> runs;  // of all cuts, one after another
};

// First and last slot that may hold strokes touching some rows; nothing when last < first.
struct SlotRange {
    int64_t first;
    int64_t last;
};

// Coordinates are page pixels, of which the screen may have several for one (see Scale); page y is measured
// from the top of the note, independent of scrolling. No public member throws; none shows anything to the
// user.
class InkPage {
  public:
    // Strokes beyond this slot are refused: no real page is half a million screens tall.
    static constexpr int64_t kMaxSlot = 1000000;

    // What the editor sets and reads freely.
    int32_t bandHeight = 1;  // rows per band: the canvas height when the editor was created
    int32_t canvasWidth = 0;
    int32_t canvasHeight = 0;
    bool findsTallStrokes = false;  // SlotsFor reaches strokes of any height, not only of a band's
    PenStyle penStyle = PenStyle::Simple;
    uint8_t penSize = 10;  // tenths of a page pixel
    // Most recent first: [0] is the colour given to new strokes.
    std::array<ColorRef, 5> penColors{0x808080, 0x4040FF, 0x40FF40, 0xFF4040, 0xFF40FF};
    ColorRef background = 0x00FFFFFF;
    int32_t scroll = 0;  // page y of the top of the view
    bool modified =
        false;  // set by adding and erasing, cleared by Clear alone: who saves a page clears or closes it
    std::wstring notePath;    // ends in "\" when only the folder of a new note is known
    bool isProposal = false;  // notePath is where the note is to go; nothing of it has reached the disk yet
    std::wstring memo;        // the text memo, as long as it waits for the note's first save

    double PenWidth() const { return penSize * 0.1; }

    InkPage() = default;
    InkPage(const InkPage&) = delete;
    InkPage& operator=(const InkPage&) = delete;

    // Drops every stroke and slot and the memo; scroll 0; not modified. Colours, pen and path stay.
    void Clear();

    // The edits. Each is made whole, sets `modified` and fills an empty `change`, with which it can be taken
    // back; on failure (memory is short, or the page would get too long) the page holds what it held before
    // and `change` is empty.

    // Files a new stroke of `count` points in page coordinates, whose smallest and largest page y are `top`
    // and `bottom`. Sets `modified` in every case.
    AddResult AddStroke(const Point* points, int32_t count, int32_t top, int32_t bottom, ColorRef color,
                        StrokeChange& change);
    // Puts new records that hold runs of its points (offset and colour are kept, the y range is each run's
    // own) in the place of each record that is cut.
    bool CutRecords(const std::vector<BandCuts>& cuts, StrokeChange& change);
    // Moves every stroke whose smallest y is at least `fromY` by `rows` (down when positive) and files it
    // anew; strokes that meet in a band keep their drawing order.
    bool ShiftStrokes(int64_t fromY, int64_t rows, StrokeChange& change);
    // Takes every record off the page.
    bool RemoveAll(StrokeChange& change);

    // Makes a change that is not made, or takes back the last one that is. False, with the page untouched,
    // when memory is short. Sets `modified`.
    bool Make(const StrokeChange& change) { return Splice(change, true); }
    bool TakeBack(const StrokeChange& change) { return Splice(change, false); }
    // Nobody will make or take back the change any more: the memory of the records that are not on the page
    // serves later strokes.
    void Forget(const StrokeChange& change, bool isMade);

    // The slot of a stroke covering rows minY..maxY: the sum of the bands of its first and last row; never
    // below 0.
    int64_t SlotOf(int32_t minY, int32_t maxY) const;

    size_t SlotCount() const { return slots_.Count(); }
    // The band of a slot, or null when it holds none; until the page changes.
    const StrokeBand* Band(size_t slot) const { return slots_.Find(slot); }
    // Makes slots up to and including `slot` exist, new ones without a band. False when the slot is beyond
    // kMaxSlot.
    bool EnsureSlot(int64_t slot);
    // Drops slots from the end up to the last one that holds a record, but none of the first `least`.
    void TrimTrailingBands(size_t least = 0);
    // Whether any slot holds a record.
    bool HasInk() const;

    // The slots to look through for strokes that may touch page rows top..bottom (both inclusive).
    SlotRange SlotsFor(int64_t top, int64_t bottom) const;

    // Calls visit(const StrokeRecord&) for the records with points whose rows overlap top..bottom (both
    // inclusive): from the highest slot to the lowest, in each in drawing order. Unless findsTallStrokes is
    // set, a stroke taller than a band may lie in a slot that is not looked through; the pen cannot make one
    // in a view of that height.
    template <typename Visitor>
    void VisitStrokes(int64_t top, int64_t bottom, Visitor&& visit) const;

    // For the note reader: the memory of the records, and filing a record that lies in it at the end of a
    // slot's band. Neither touches `modified`.
    StrokePool& Pool() { return pool_; }
    bool FileRecord(StrokeRecord* record, int64_t slot);
    // Like EnsureSlot without its limit: a file may list more empty slots than strokes can use.
    void EnsureSlotCount(size_t count);
    // Fills this page with the records of another one, which keeps them and lives longer, filed for this
    // page's own band height as reading them from a file would; empty slots below them stay room of as many
    // rows. Takes over background and view. False when memory is short or a stroke finds no slot.
    bool FileAnew(const InkPage& page);

  private:
    int64_t BandOf(int64_t y) const { return y / (bandHeight > 0 ? bandHeight : 1); }
    bool FileMoved(int64_t fromY, int64_t rows, SlotTable& shifted) const;
    bool PlanCuts(const BandCuts& cuts, StrokeChange& change);
    void PlanShift(const SlotTable& shifted, int64_t fromY, int32_t rows, StrokeChange& change) const;
    bool MakeRoomFor(const StrokeChange& change, bool forward);
    bool Splice(const StrokeChange& change, bool forward);
    // Gives up a change that was not made.
    bool Refuse(StrokeChange& change);
    void NoteHeight(int32_t minY, int32_t maxY);

    SlotTable slots_;
    int64_t mostBands_ = 1;  // from the first to the last band of any stroke so far, wherever it moves
    StrokePool pool_;
};

template <typename Visitor>
void InkPage::VisitStrokes(int64_t top, int64_t bottom, Visitor&& visit) const {
    const SlotRange range = SlotsFor(top, bottom);
    for (int64_t slot = range.last; slot >= range.first; --slot) {
        const StrokeBand* band = slots_.Find(static_cast<size_t>(slot));
        if (band == nullptr) continue;
        for (size_t i = 0; i < band->Count(); ++i) {
            const StrokeRecord& record = band->At(i);
            if (record.count >= 1 && record.maxY >= top && record.minY <= bottom) visit(record);
        }
    }
}

}  // namespace ink
