#include "editor/SpaceTool.h"

#include <algorithm>

#include "ink/PageEdits.h"
#include "platform/MessageBox.h"

namespace editor {

void SpaceTool::Begin(int32_t row) {
    start_ = current_ = row;
    shown_ = true;
    Invert();
}

void SpaceTool::MoveTo(int32_t row) {
    Invert();
    current_ = std::clamp(row, 0, page_.canvasHeight);
    Invert();
}

bool SpaceTool::Finish() {
    Hide();
    if (start_ == current_ || page_.SlotCount() == 0) return false;
    const int64_t from = int64_t{page_.scroll} + start_;
    const int64_t rows = int64_t{current_} - start_;
    const ink::EditResult result = ink::MoveStrokes(page_, from, rows, view_.Reach());
    if (result == ink::EditResult::OutOfMemory) platform::ShowOutOfMemory(&window_);
    if (result != ink::EditResult::Changed) return false;
    if (rows < 0) page_.TrimTrailingBands();
    view_.Redraw();
    return true;
}

void SpaceTool::Paint() {
    if (shown_) Invert();
}

void SpaceTool::Hide() {
    if (shown_) Invert();
    shown_ = false;
}

void SpaceTool::ShowMoved(int32_t rows) {
    start_ -= rows;
    shown_ = true;
    Invert();
}

// Both rows belong to the band.
void SpaceTool::Invert() {
    const auto [top, bottom] = std::minmax(start_, current_);
    window_.InvertPixels({0, top, page_.canvasWidth, bottom + 1});
}

}  // namespace editor
