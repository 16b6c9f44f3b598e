#include "ink/StrokeBand.h"

#include <algorithm>
#include <limits>
#include <new>

namespace ink {

void StrokeBand::Reserve(size_t capacity) {
    if (capacity <= capacity_) return;
    if (capacity > std::numeric_limits<uint32_t>::max()) throw std::bad_alloc();
    auto* const records = new StrokeRecord*[capacity];
    std::copy(begin(), end(), records);
    if (!IsInline()) delete[] List();
    only_ = reinterpret_cast<StrokeRecord*>(records);
    capacity_ = static_cast<uint32_t>(capacity);
}

void StrokeBand::Replace(size_t index, size_t out, const std::vector<StrokeRecord*>& in) {
    const size_t count = count_ - out + in.size();
    Require(index + out <= count_ && count <= capacity_, "a change of another page");
    StrokeRecord** const first = List() + index;
    StrokeRecord** const rest = first + out;
    StrokeRecord** const last = first + (count_ - index);
    if (in.size() <= out) {
        std::copy(rest, last, first + in.size());
    } else {
        std::copy_backward(rest, last, last + (in.size() - out));
    }
    std::copy(in.begin(), in.end(), first);
    count_ = static_cast<uint32_t>(count);
}

}  // namespace ink
