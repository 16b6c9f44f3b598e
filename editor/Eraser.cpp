#include "editor/Eraser.h"

#include "ink/PageEdits.h"
#include "platform/MessageBox.h"

namespace editor {

void Eraser::Begin() {
    swept_.Clear();
    memoryShort_ = false;
}

void Eraser::EraseAt(ink::Point place) {
    // What can't be remembered must not look erased.
    if (!swept_.AddSquare(place.x, int64_t{page_.scroll} + place.y)) {
        memoryShort_ = true;
        return;
    }
    constexpr int32_t kReach = ink::SweptRegion::kReach;
    view_.Wipe({place.x - kReach, place.y - kReach, place.x + kReach, place.y + kReach});
}

void Eraser::Commit() {
    page_.modified = true;
    CutSwept();
    page_.TrimTrailingBands();
    view_.Redraw();
    if (memoryShort_) platform::ShowOutOfMemory(&window_);
}

void Eraser::Cancel() {
    swept_.Clear();
    view_.Redraw();
}

void Eraser::ViewMoved() {
    CutSwept();
    view_.Redraw();
}

void Eraser::CutSwept() {
    memoryShort_ = ink::EraseStrokes(page_, swept_) == ink::EditResult::OutOfMemory || memoryShort_;
    swept_.Clear();
}

}  // namespace editor
