#include "editor/InkPen.h"

#include <algorithm>

#include "platform/MessageBox.h"

namespace editor {

void InkPen::Begin(ink::Point place) {
    trace_.Clear();
    lowestRow_ = page_.scroll;
    Append(place);
    view_.BeginStroke();
    last_ = place;
}

void InkPen::Move(const ink::Point* places, size_t count) {
    segment_[0] = last_;
    segmentCount_ = 1;
    for (size_t i = 0; i < count; ++i) TakePoint(places[i]);
    if (segmentCount_ > 1) view_.PaintSegment(segment_.data(), segmentCount_);
}

// A lift above the view ends the stroke there although the way to it was no ink.
LiftResult InkPen::Lift(ink::Point place) {
    if (place != last_) Append(place);
    CutStroke();
    return LiftResult::Ink;
}

// What is on the screen moved with the page, but the live ink's copy of what lies below it did not.
void InkPen::ViewMoved(int32_t rows) {
    last_.y -= rows;
    view_.BeginStroke();
    for (size_t i = 1; i < trace_.Count(); ++i) {
        const ink::Point from = trace_.Points()[i - 1];
        const ink::Point to = trace_.Points()[i];
        const ink::Point line[] = {{from.x, from.y - page_.scroll}, {to.x, to.y - page_.scroll}};
        view_.PaintSegment(line, 2);
    }
}

// Points above the view and repeated ones are no ink.
void InkPen::TakePoint(ink::Point place) {
    if (place.y < 0 || place == last_) return;
    segment_[segmentCount_++] = place;
    Append(place);
    if (trace_.IsFull()) {
        CutStroke();
        trace_.Clear();
        view_.BeginStroke();
        Append(place);
        segment_[0] = place;
        segmentCount_ = 1;
    }
    last_ = place;
}

// The sum can't overflow: a view begins nowhere near the last row that a number can tell.
void InkPen::Append(ink::Point place) {
    trace_.Append({place.x, page_.scroll + place.y});
    lowestRow_ = std::max(lowestRow_, page_.scroll + place.y);
}

// Files the pending points as a record, of its own rows only, and shows it as a repaint would: a tap becomes
// a dot, and what was not painted on the way appears.
void InkPen::CutStroke() {
    const ink::Rect box = trace_.Box();
    const ink::AddResult result = history_.AddStroke(trace_.Points(), static_cast<int32_t>(trace_.Count()),
                                                     box.top, box.bottom, page_.penColors[0]);
    if (result == ink::AddResult::OutOfMemory) return platform::ShowOutOfMemory(&window_);
    view_.FinishStroke({box.left, box.top - page_.scroll, box.right + 1, box.bottom - page_.scroll + 1});
}

}  // namespace editor
