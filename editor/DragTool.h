#pragma once

#include <cstddef>
#include <cstdint>

#include "ink/Geometry.h"

namespace editor {

// What a lift has done to the page: nothing, new ink, or a change that may leave it shorter or longer.
enum class LiftResult { Nothing, Ink, Extent };

// What the pen does from its contact to its lift: one class for each tool. Points are view coordinates.
// `Lift` or `GiveUp` ends every drag that `Begin` began, and nothing else comes between two drags.
class DragTool {
  public:
    DragTool() = default;
    DragTool(const DragTool&) = delete;
    DragTool& operator=(const DragTool&) = delete;
    virtual ~DragTool() = default;

    virtual void Begin(ink::Point place) = 0;
    // Everywhere that the pen was since the event before, oldest first: at least one point.
    virtual void Move(const ink::Point* places, size_t count) = 0;
    // Comes after a Move to the same place.
    virtual LiftResult Lift(ink::Point place) = 0;
    // The pen was taken away in the middle of the drag.
    virtual void GiveUp() = 0;

    // Around a move of the view down the page by `rows` (up when negative): the drag goes on where the pen
    // is.
    virtual void ViewMoves() {}
    virtual void ViewMoved(int32_t rows) = 0;
    // The tool's own marks over a freshly painted window.
    virtual void PaintMarks() {}
};

}  // namespace editor
