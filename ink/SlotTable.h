// The bands of a page by slot.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "ink/StrokeBand.h"

namespace ink {

// Takes memory for the slots that hold strokes: a few bytes of a file may name a slot far below, or very many
// empty ones. Bands move when others come.
class SlotTable {
  public:
    size_t Count() const { return count_; }
    // Slots that come hold no band and take no memory; bands beyond the end go.
    void SetCount(size_t count) noexcept;

    // The band of a slot, or null.
    StrokeBand* Find(size_t slot) noexcept {
        const Leaf* leaf = slot / kLeaf < leaves_.size() ? &leaves_[slot / kLeaf] : nullptr;
        return leaf == nullptr || (leaf->there & BitOf(slot)) == 0 ? nullptr
                                                                   : &leaf->bands[PlaceOf(*leaf, slot)];
    }
    const StrokeBand* Find(size_t slot) const noexcept { return const_cast<SlotTable*>(this)->Find(slot); }
    // The same, made when there is none; the slots up to it exist then. Throws bad_alloc.
    StrokeBand& Make(size_t slot);

    // How many slots there are up to the last that holds a record.
    size_t Used() const noexcept;

  private:
    static constexpr size_t kLeaf = 64;

    // The bands of 64 slots that have one, side by side: as many as bits are set, with room for the next
    // power of two.
    struct Leaf {
        Leaf() = default;
        Leaf(Leaf&& other) noexcept : there(std::exchange(other.there, 0)), bands(std::move(other.bands)) {}
        Leaf& operator=(Leaf&&) = delete;
        ~Leaf() { FreeFrom(0); }
        void FreeFrom(size_t place);

        uint64_t there = 0;
        std::unique_ptr<StrokeBand[]> bands;
    };

    static uint64_t BitOf(size_t slot) { return uint64_t{1} << slot % kLeaf; }
    static size_t BitsIn(uint64_t bits);
    static size_t PlaceOf(const Leaf& leaf, size_t slot) { return BitsIn(leaf.there & (BitOf(slot) - 1)); }
    static StrokeBand& Insert(Leaf& leaf, size_t slot);

    std::vector<Leaf> leaves_;
    size_t count_ = 0;
};

}  // namespace ink
