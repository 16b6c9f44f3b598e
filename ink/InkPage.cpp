#include "ink/InkPage.h"

#include <algorithm>
#include <exception>

namespace ink {
void InkPage::Clear() {
    slots_ = SlotTable();
    pool_.Clear();
    mostBands_ = 1;
    memo.clear();
    scroll = 0;
    modified = false;
}

int64_t InkPage::SlotOf(int32_t minY, int32_t maxY) const {
    return std::max<int64_t>(0, BandOf(minY) + BandOf(maxY));
}

void InkPage::EnsureSlotCount(size_t count) {
    if (count > slots_.Count()) slots_.SetCount(count);
}

bool InkPage::EnsureSlot(int64_t slot) {
    if (slot < 0) return true;
    if (slot > kMaxSlot) return false;
    EnsureSlotCount(static_cast<size_t>(slot) + 1);
    return true;
}

void InkPage::TrimTrailingBands(size_t least) {
    slots_.SetCount(std::min(slots_.Count(), std::max(least, slots_.Used())));
}

bool InkPage::HasInk() const { return slots_.Used() > 0; }

SlotRange InkPage::SlotsFor(int64_t top, int64_t bottom) const {
    const int64_t lastSlot = static_cast<int64_t>(slots_.Count()) - 1;
    const int64_t reach = findsTallStrokes ? mostBands_ : 1;
    return {std::max<int64_t>(0, 2 * BandOf(top) - reach), std::min(2 * BandOf(bottom) + reach, lastSlot)};
}

bool InkPage::FileRecord(StrokeRecord* record, int64_t slot) {
    if (slot < 0 || slot > kMaxSlot) return false;
    try {
        slots_.Make(static_cast<size_t>(slot)).Append(record);
    } catch (const std::exception&) {
        return false;
    }
    NoteHeight(record->minY, record->maxY);
    return true;
}

void InkPage::NoteHeight(int32_t minY, int32_t maxY) {
    const int64_t rows = int64_t{maxY} - minY;
    if (rows >= bandHeight) mostBands_ = std::max(mostBands_, BandOf(rows) + 1);
}

bool InkPage::FileAnew(const InkPage& page) {
    Clear();
    background = page.background;
    canvasWidth = page.canvasWidth;
    canvasHeight = page.canvasHeight;
    scroll = page.scroll;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        const StrokeBand* band = page.Band(slot);
        if (band == nullptr) continue;
        for (StrokeRecord* record : *band) {
            if (!FileRecord(record, SlotOf(record->minY, record->maxY))) return false;
        }
    }
    const bool hasRoom = page.slots_.Used() < page.SlotCount();
    const int64_t lastRow = int64_t{page.bandHeight} * static_cast<int64_t>(page.SlotCount() / 2 + 1) - 1;
    if (hasRoom) EnsureSlot(2 * BandOf(lastRow));
    return true;
}

}  // namespace ink
