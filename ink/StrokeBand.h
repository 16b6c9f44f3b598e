// The strokes of one slot of the page's band list, in drawing order.
#pragma once

#include <cstddef>
#include <vector>

#include "ink/Require.h"
#include "ink/StrokeRecord.h"

namespace ink {

// Lists records; their memory is the page's StrokePool, and InkPage is what adds and removes them.
class StrokeBand {
  public:
    size_t Count() const { return records_.size(); }
    bool IsEmpty() const { return records_.empty(); }
    const StrokeRecord& At(size_t index) const {
        Require(index < records_.size(), "no such stroke in its slot");
        return *records_[index];
    }

    const std::vector<StrokeRecord*>& Records() const { return records_; }

  private:
    friend class InkPage;
    std::vector<StrokeRecord*> records_;
};

}  // namespace ink
