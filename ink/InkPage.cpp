#include "ink/InkPage.h"

#include <algorithm>
#include <exception>

namespace ink {
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

void InkPage::TrimTrailingBands(size_t least) {
    while (slots_.size() > least && (slots_.back() == nullptr || slots_.back()->IsEmpty())) slots_.pop_back();
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
void InkPage::AppendTo(Slots& slots, StrokeRecord* record, int64_t slot) {
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

}  // namespace ink
