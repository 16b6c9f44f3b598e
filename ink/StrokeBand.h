// The strokes of one slot of the page's band list, in drawing order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "ink/Require.h"
#include "ink/StrokeRecord.h"

namespace ink {

// Lists records; their memory is the page's StrokePool, and InkPage is what adds and removes them. A single
// record takes no memory of its own, since a file may put each into another slot. Bands are moved as bytes;
// the SlotTable that a band stands in frees it.
class StrokeBand {
  public:
    size_t Count() const { return count_; }
    bool IsEmpty() const { return count_ == 0; }
    const StrokeRecord& At(size_t index) const {
        Require(index < count_, "no such stroke in its slot");
        return *begin()[index];
    }

    StrokeRecord* const* begin() const { return const_cast<StrokeBand*>(this)->List(); }
    StrokeRecord* const* end() const { return begin() + count_; }

  private:
    friend class InkPage;
    friend class SlotTable;

    bool IsInline() const { return capacity_ == 1; }
    void Free() {
        if (!IsInline()) delete[] List();
        *this = StrokeBand();
    }
    // Both throw bad_alloc.
    void Reserve(size_t capacity);
    void Append(StrokeRecord* record) {
        // An odd number of addresses fills what allocators round up to.
        if (count_ == capacity_) Reserve(size_t{capacity_} * 2 + 1);
        List()[count_++] = record;
    }
    // Puts other records in the place of `out` of them, for which there is room.
    void Replace(size_t index, size_t out, const std::vector<StrokeRecord*>& in);

    StrokeRecord** List() { return IsInline() ? &only_ : reinterpret_cast<StrokeRecord**>(only_); }

    StrokeRecord* only_ = nullptr;  // where there is room for one; else what lies there is the list
    uint32_t count_ = 0;
    uint32_t capacity_ = 1;
};

}  // namespace ink
