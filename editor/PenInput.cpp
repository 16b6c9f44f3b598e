#include "editor/PenInput.h"

#include <algorithm>

#include "platform/Clock.h"
#include "platform/MessageBox.h"

namespace editor {

namespace {

constexpr int32_t kBottomZone = 20;           // rows above the view's bottom edge
constexpr uint32_t kTimerPeriod = 270;        // milliseconds
constexpr uint32_t kPauseBeforeScroll = 530;  // milliseconds
constexpr uint8_t kClassicPen = 1;

}  // namespace

void PenInput::PenDown(ink::Point place) {
    window_.CapturePen();
    trace_.Clear();
    lowestRow_ = page_.scroll + place.y;
    Append(place);
    view_.BeginStroke();
    last_ = place;
    tracking_ = true;
}

void PenInput::PenMove(ink::Point place) {
    if (tracking_ && window_.HasPen()) TakeSamples(place);
}

void PenInput::PenUp(ink::Point place) {
    PenMove(place);
    if (tracking_ && window_.HasPen()) {
        EndStroke(place);
        window_.ReleasePen();
    }
    tracking_ = false;
}

void PenInput::CaptureLost() {
    if (tracking_) CutStroke();
    tracking_ = false;
}

bool PenInput::TimerTick() {
    if (tracking_) {
        lastPenTime_ = platform::TickMilliseconds();
        return false;
    }
    if (platform::TickMilliseconds() - lastPenTime_ <= kPauseBeforeScroll) return false;
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
    view_.BeginStroke();
    for (size_t i = 1; i < trace_.Count(); ++i) {
        const ink::Point from = trace_.Points()[i - 1];
        const ink::Point to = trace_.Points()[i];
        const ink::Point line[] = {{from.x, from.y - page_.scroll}, {to.x, to.y - page_.scroll}};
        view_.PaintSegment(line, 2);
    }
}

// All positions since the previous pen event, this event's own last.
void PenInput::TakeSamples(ink::Point place) {
    segment_[0] = last_;
    segmentCount_ = 1;
    std::array<ink::Point, kMaxSamples> samples;
    const size_t count = window_.PenSamples(samples.data(), samples.size());
    for (size_t i = 0; i < count; ++i) TakePoint(samples[i]);
    TakePoint(place);
    if (segmentCount_ > 1) PaintSegment();
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
    if (page_.penStyle == kClassicPen && trace_.Count() >= 2) view_.PaintSegment(&place, 1);
    CutStroke();
    lastPenTime_ = platform::TickMilliseconds();
    const bool nearBottom = lowestRow_ - page_.scroll > page_.canvasHeight - kBottomZone;
    if (nearBottom && !timerRuns_) timerRuns_ = window_.StartTimer(kTimerId, kTimerPeriod);
}

}  // namespace editor
