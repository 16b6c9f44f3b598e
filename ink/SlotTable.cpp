#include "ink/SlotTable.h"

#include <algorithm>
#include <cstring>
#include <new>
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

// Bands that are moved as bytes leave nothing behind that owns anything: empty ones are made there anew.
StrokeBand& SlotTable::Insert(Leaf& leaf, size_t slot) {
    const size_t count = BitsIn(leaf.there);
    const size_t place = PlaceOf(leaf, slot);
    const bool isFull = (count & (count - 1)) == 0;
    std::unique_ptr<StrokeBand[]> larger(isFull ? new StrokeBand[std::max<size_t>(1, 2 * count)] : nullptr);
    StrokeBand* const old = leaf.bands.get();
    StrokeBand* const bands = isFull ? larger.get() : old;
    const auto moveBytes = [](StrokeBand* to, const StrokeBand* from, size_t bandCount) {
        if (bandCount != 0 && to != from) std::memmove(static_cast<void*>(to), from, bandCount * sizeof *to);
    };
    moveBytes(bands + place + 1, old + place, count - place);
    moveBytes(bands, old, place);
    for (size_t i = isFull ? 0 : place; i < (isFull ? count : place + 1); ++i) new (old + i) StrokeBand();
    if (isFull) leaf.bands = std::move(larger);
    leaf.there |= BitOf(slot);
    return bands[place];
}

void SlotTable::SetCount(size_t count) noexcept {
    const bool isShorter = count < count_;
    count_ = count;
    if (!isShorter) return;
    const size_t leaves = (count + kLeaf - 1) / kLeaf;
    if (leaves < leaves_.size())
        leaves_.erase(leaves_.begin() + static_cast<std::ptrdiff_t>(leaves), leaves_.end());
    if (count % kLeaf == 0 || leaves > leaves_.size()) return;
    Leaf& last = leaves_.back();
    const size_t kept = PlaceOf(last, count);
    for (size_t i = kept; i < BitsIn(last.there); ++i) last.bands[i] = StrokeBand();
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
