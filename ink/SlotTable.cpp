#include "ink/SlotTable.h"

#include <algorithm>
#include <utility>

namespace ink {

// Counted in the word's own lanes: plain x86-64 has no instruction for it.
size_t SlotTable::BitsIn(uint64_t bits) {
    bits -= bits >> 1 & 0x5555555555555555u;
    bits = (bits & 0x3333333333333333u) + (bits >> 2 & 0x3333333333333333u);
    bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0Fu;
    return bits * 0x0101010101010101u >> 56;
}

StrokeBand& SlotTable::Make(size_t slot) {
    const size_t place = slot / kLeaf;
    if (leaves_.size() <= place) leaves_.resize(place + 1);
    Leaf& leaf = leaves_[place];
    StrokeBand& band = (leaf.there & BitOf(slot)) != 0 ? leaf.bands[PlaceOf(leaf, slot)] : Insert(leaf, slot);
    count_ = std::max(count_, slot + 1);
    return band;
}

StrokeBand& SlotTable::Insert(Leaf& leaf, size_t slot) {
    const size_t count = BitsIn(leaf.there);
    const size_t place = PlaceOf(leaf, slot);
    StrokeBand* bands = leaf.bands.get();
    if ((count & (count - 1)) == 0) {
        std::unique_ptr<StrokeBand[]> larger(new StrokeBand[std::max<size_t>(1, 2 * count)]);
        std::copy(bands, bands + place, larger.get());
        std::copy(bands + place, bands + count, larger.get() + place + 1);
        leaf.bands = std::move(larger);
        bands = leaf.bands.get();
    } else {
        std::copy_backward(bands + place, bands + count, bands + count + 1);
    }
    bands[place] = StrokeBand();
    leaf.there |= BitOf(slot);
    return bands[place];
}

void SlotTable::Leaf::FreeFrom(size_t place) {
    for (const size_t count = BitsIn(there); place < count; ++place) bands[place].Free();
}

void SlotTable::SetCount(size_t count) noexcept {
    const bool isShorter = count < count_;
    count_ = count;
    const size_t leaves = (count + kLeaf - 1) / kLeaf;
    if (!isShorter || leaves > leaves_.size()) return;
    leaves_.resize(leaves);
    if (count % kLeaf == 0) return;
    Leaf& last = leaves_.back();
    last.FreeFrom(PlaceOf(last, count));
    last.there &= BitOf(count) - 1;
}

size_t SlotTable::Used() const noexcept {
    for (size_t i = leaves_.size(); i-- > 0;) {
        if (leaves_[i].there == 0) continue;
        for (size_t slot = (i + 1) * kLeaf; slot-- > i * kLeaf;) {
            const StrokeBand* band = Find(slot);
            if (band != nullptr && !band->IsEmpty()) return slot + 1;
        }
    }
    return 0;
}

}  // namespace ink
