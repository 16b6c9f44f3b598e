#include "editor/SpaceTool.h"

#include <algorithm>

#include "platform/MessageBox.h"

namespace editor {

void SpaceTool::Begin(ink::Point place) {
    start_ = current_ = place.y;
    Invert();
}

void SpaceTool::Move(const ink::Point* places, size_t count) {
    Invert();
    current_ = std::clamp(places[count - 1].y, 0, page_.canvasHeight);
    Invert();
}

LiftResult SpaceTool::Lift(ink::Point) {
    Invert();
    const int64_t from = int64_t{page_.scroll} + start_;
    const int64_t rows = int64_t{current_} - start_;
    const ink::EditResult result = history_.MoveStrokes(from, rows, view_.Reach());
    if (result == ink::EditResult::OutOfMemory) platform::ShowOutOfMemory(&window_);
    if (result != ink::EditResult::Changed) return LiftResult::Nothing;
    if (rows < 0) page_.TrimTrailingBands();
    view_.Redraw();
    return LiftResult::Extent;
}

void SpaceTool::ViewMoved(int32_t rows) {
    start_ -= rows;
    Invert();
}

// Both rows belong to the band.
void SpaceTool::Invert() {
    const auto [top, bottom] = std::minmax(start_, current_);
    view_.InvertRows(top, bottom + 1);
}

}  // namespace editor
