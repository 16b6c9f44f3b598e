#include "editor/PenInput.h"

#include <algorithm>

#include "platform/Clock.h"
#include "platform/MessageBox.h"

namespace editor {

namespace {

constexpr int32_t kBottomZone = 20;           // rows above the view's bottom edge
constexpr uint32_t kTimerPeriod = 270;        // milliseconds
constexpr uint32_t kPauseBeforeScroll = 530;  // milliseconds

}  // namespace

void PenInput::PenDown(ink::Point place) {
    if (tracking_ && drag_ != PenTool::Pen) CaptureLost();
    window_.CapturePen();
    trace_.Clear();
    drag_ = tool_;
    switch (drag_) {
        case PenTool::Pen:
            lowestRow_ = page_.scroll + place.y;
            Append(place);
            view_.BeginStroke();
            break;
        case PenTool::Eraser:
            eraser_.Begin();
            eraser_.EraseAt(place);
            break;
        case PenTool::Space:
            space_.Begin(place.y);
            break;
    }
    last_ = place;
    tracking_ = true;
}

void PenInput::PenMove(ink::Point place) {
    if (!tracking_ || !window_.HasPen()) return;
    switch (drag_) {
        case PenTool::Pen:
            return MovePen(place);
        case PenTool::Eraser:
            last_ = {-1, -1};
            return TakeSamples(place, [this](ink::Point point) { ErasePoint(point); });
        case PenTool::Space:
            return space_.MoveTo(place.y);
    }
}

bool PenInput::PenUp(ink::Point place) {
    PenMove(place);
    bool pageChanged = false;
    if (tracking_ && window_.HasPen()) {
        pageChanged = FinishDrag(place);
        drag_ = PenTool::Pen;  // nothing is left to give up when the pen is released
        window_.ReleasePen();
    }
    if (tracking_ && drag_ != PenTool::Pen) CaptureLost();  // lifted elsewhere
    tracking_ = false;
    return pageChanged;
}

bool PenInput::FinishDrag(ink::Point place) {
    switch (drag_) {
        case PenTool::Pen:
            EndStroke(place);
            return false;
        case PenTool::Eraser:
            eraser_.Commit();
            return true;
        case PenTool::Space:
            return space_.Finish();
    }
    return false;
}

void PenInput::CaptureLost() {
    if (tracking_) {
        if (drag_ == PenTool::Eraser) eraser_.Cancel();
        if (drag_ == PenTool::Space) space_.Cancel();
        CutStroke();
    }
    tracking_ = false;
}

void PenInput::Interrupt() {
    if (!tracking_) return;
    CaptureLost();
    window_.ReleasePen();
}

bool PenInput::TimerTick() {
    if (tracking_) {
        lastPenTime_ = platform::TickMilliseconds();
        return false;
    }
    // A tick that was on its way when the timer was stopped counts no more.
    if (!timerRuns_ || platform::TickMilliseconds() - lastPenTime_ <= kPauseBeforeScroll) return false;
    StopTimer();
    return true;
}

void PenInput::StopTimer() {
    if (timerRuns_) window_.StopTimer(kTimerId);
    timerRuns_ = false;
}

void PenInput::ViewMoved(int32_t rows) {
    if (!tracking_) return;
    last_.y -= rows;
    switch (drag_) {
        case PenTool::Pen:
            return RepaintTrace();
        case PenTool::Eraser:
            return eraser_.ViewMoved();
        case PenTool::Space:
            return space_.ShowMoved(rows);
    }
}

void PenInput::RepaintTrace() {
    view_.BeginStroke();
    for (size_t i = 1; i < trace_.Count(); ++i) {
        const ink::Point from = trace_.Points()[i - 1];
        const ink::Point to = trace_.Points()[i];
        const ink::Point line[] = {{from.x, from.y - page_.scroll}, {to.x, to.y - page_.scroll}};
        view_.PaintSegment(line, 2);
    }
}

// All positions since the previous pen event, this event's own last.
template <typename Take>
void PenInput::TakeSamples(ink::Point place, Take&& take) {
    std::array<ink::Point, kMaxSamples> samples;
    const size_t count = window_.PenSamples(samples.data(), samples.size());
    for (size_t i = 0; i < count; ++i) take(samples[i]);
    take(place);
}

void PenInput::MovePen(ink::Point place) {
    segment_[0] = last_;
    segmentCount_ = 1;
    TakeSamples(place, [this](ink::Point point) { TakePoint(point); });
    if (segmentCount_ > 1) PaintSegment();
}

void PenInput::ErasePoint(ink::Point place) {
    if (place.y < 0 || place == last_) return;
    eraser_.EraseAt(place);
    last_ = place;
}

// Points above the view and repeated ones are no ink.
void PenInput::TakePoint(ink::Point place) {
    if (place.y < 0 || place == last_) return;
    segment_[segmentCount_++] = place;
    Append(place);
    if (trace_.IsFull()) {
        PaintSegment();
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
void PenInput::Append(ink::Point place) {
    trace_.Append({place.x, page_.scroll + place.y});
    lowestRow_ = std::max(lowestRow_, page_.scroll + place.y);
}

void PenInput::PaintSegment() { view_.PaintSegment(segment_.data(), segmentCount_); }

// The pending points stay when there is no memory for their record.
void PenInput::CutStroke() {
    const ink::Rect box = trace_.Box();
    const ink::AddResult result = page_.AddStroke(trace_.Points(), static_cast<int32_t>(trace_.Count()),
                                                  box.top, box.bottom, page_.penColors[0]);
    if (result == ink::AddResult::OutOfMemory) return platform::ShowOutOfMemory(&window_);
    if (result == ink::AddResult::NothingToAdd) return;
    trace_.Clear();
    view_.FinishStroke({box.left, box.top - page_.scroll, box.right + 1, box.bottom - page_.scroll + 1});
}

void PenInput::EndStroke(ink::Point place) {
    if (place != last_) {
        const ink::Point line[] = {last_, place};
        view_.PaintSegment(line, 2);
        Append(place);
    } else if (trace_.Count() == 1) {
        view_.PaintSegment(&place, 1);
    }
    if (page_.penStyle == ink::PenStyle::Classic && trace_.Count() >= 2) view_.PaintSegment(&place, 1);
    CutStroke();
    lastPenTime_ = platform::TickMilliseconds();
    const bool nearBottom = lowestRow_ - page_.scroll > page_.canvasHeight - kBottomZone;
    if (nearBottom && !timerRuns_) timerRuns_ = window_.StartTimer(kTimerId, kTimerPeriod);
}

}  // namespace editor
