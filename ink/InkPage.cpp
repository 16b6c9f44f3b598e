#include "ink/InkPage.h"

#include <algorithm>
#include <exception>

namespace ink {
void InkPage::Clear() {
    slots_ = SlotTable();
    pool_.Clear();
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
    return {std::max<int64_t>(0, 2 * BandOf(top) - 1), std::min(2 * BandOf(bottom) + 1, lastSlot)};
}

bool InkPage::FileRecord(StrokeRecord* record, int64_t slot) {
    if (slot < 0 || slot > kMaxSlot) return false;
    try {
        slots_.Make(static_cast<size_t>(slot)).Append(record);
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

}  // namespace ink
