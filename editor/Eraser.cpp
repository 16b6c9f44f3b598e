#include "editor/Eraser.h"

#include "platform/MessageBox.h"

namespace editor {

void Eraser::Begin(ink::Point place) {
    memoryShort_ = false;
    EraseAt(place);
}

// Places above the view erase nothing.
void Eraser::Move(const ink::Point* places, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        if (places[i].y >= 0) EraseAt(places[i]);
    }
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

LiftResult Eraser::Lift(ink::Point) {
    CutSwept();
    page_.TrimTrailingBands();
    // Lines whose points were all missed were wiped too, and come back.
    view_.Redraw();
    if (memoryShort_) platform::ShowOutOfMemory(&window_);
    return LiftResult::Extent;
}

void Eraser::GiveUp() {
    swept_.Clear();
    view_.Redraw();
}

void Eraser::ViewMoved(int32_t) {
    CutSwept();
    view_.Redraw();
}

void Eraser::CutSwept() {
    memoryShort_ = history_.EraseStrokes(swept_) == ink::EditResult::OutOfMemory || memoryShort_;
    swept_.Clear();
}

}  // namespace editor
