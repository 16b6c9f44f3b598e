#include "editor/PenInput.h"

#include <array>

#include "platform/Clock.h"

namespace editor {

namespace {

constexpr int32_t kBottomZone = 20;           // rows above the view's bottom edge
constexpr uint32_t kTimerPeriod = 270;        // milliseconds
constexpr uint32_t kPauseBeforeScroll = 530;  // milliseconds

}  // namespace

// A contact that was never lifted leaves no ink, and what it swept or spaced comes back.
void PenInput::PenDown(ink::Point place) {
    if (drag_ != nullptr && drag_ != &pen_) CaptureLost();
    view_.Unmark();
    window_.CapturePen();
    drag_ = window_.EndOfPen() == platform::PenEnd::Eraser ? &eraser_ : tool_;
    drag_->Begin(place);
}

void PenInput::PenMove(ink::Point place) {
    if (drag_ == nullptr) return;
    std::array<ink::Point, InkPen::kMaxMoves> places;
    size_t count = window_.PenSamples(places.data(), places.size() - 1);
    places[count++] = place;
    drag_->Move(places.data(), count);
}

bool PenInput::PenUp(ink::Point place) {
    PenMove(place);
    if (drag_ == nullptr) return false;
    const LiftResult result = EndDrag().Lift(place);
    history_.EndStep();
    if (result == LiftResult::Ink) AwaitPause();
    window_.ReleasePen();
    return result == LiftResult::Extent;
}

// Before the tool hears of the end: releasing the pen, or a box that the tool shows, tells of a lost capture,
// which is to find no drag. Every contact counts as a change, even of an eraser that met nothing.
DragTool& PenInput::EndDrag() {
    DragTool& ended = *drag_;
    drag_ = nullptr;
    page_.modified = true;
    return ended;
}

void PenInput::CaptureLost() {
    if (drag_ == nullptr) return;
    EndDrag().GiveUp();
    history_.EndStep();
}

void PenInput::PenHover(ink::Point place, platform::PenEnd end) {
    if (end == platform::PenEnd::Eraser || tool_ == &eraser_) {
        view_.MarkSquare(place, ink::SweptRegion::kReach);
    } else if (tool_ == &pen_) {
        view_.MarkDot(place);
    } else {
        view_.Unmark();
    }
}

void PenInput::PaintMarks() {
    if (drag_ != nullptr) drag_->PaintMarks();
}

// Who writes near the view's foot gets room when the pen rests. The wait looks at the whole trace.
void PenInput::AwaitPause() {
    lastPenTime_ = platform::TickMilliseconds();
    const bool nearBottom = pen_.LowestRow() - page_.scroll > page_.canvasHeight - kBottomZone;
    if (nearBottom && !timerRuns_) timerRuns_ = window_.StartTimer(kTimerId, kTimerPeriod);
}

bool PenInput::TimerTick() {
    if (drag_ != nullptr) {
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

void PenInput::ViewMoves() {
    if (drag_ != nullptr) drag_->ViewMoves();
}

void PenInput::ViewMoved(int32_t rows) {
    if (drag_ != nullptr) drag_->ViewMoved(rows);
}

}  // namespace editor
