#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "ink/Geometry.h"
#include "ink/Require.h"

namespace editor {

// The points of the stroke being drawn that are not yet a record of the page: x in pixels, y in page rows.
class PenTrace {
  public:
    static constexpr size_t kCapacity = 126;  // points of one record

    void Clear() { count_ = 0; }

    // Callers cut the stroke when it is full.
    void Append(ink::Point pagePoint) {
        ink::Require(!IsFull(), "a stroke that should have been cut goes on");
        box_ = count_ == 0 ? ink::Rect{pagePoint.x, pagePoint.y, pagePoint.x, pagePoint.y}
                           : ink::Rect{std::min(box_.left, pagePoint.x), std::min(box_.top, pagePoint.y),
                                       std::max(box_.right, pagePoint.x), std::max(box_.bottom, pagePoint.y)};
        points_[count_++] = pagePoint;
    }

    size_t Count() const { return count_; }
    bool IsFull() const { return count_ == kCapacity; }
    const ink::Point* Points() const { return points_.data(); }
    // Smallest and largest x and y of the points: right and bottom belong to it. Meaningless without points.
    const ink::Rect& Box() const { return box_; }

  private:
    std::array<ink::Point, kCapacity> points_{};
    size_t count_ = 0;
    ink::Rect box_;
};

}  // namespace editor
