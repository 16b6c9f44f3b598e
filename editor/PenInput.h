#pragma once

#include <array>
#include <cstdint>

#include "editor/PageView.h"
#include "editor/PenTrace.h"

namespace editor {

// Turns pen contact into ink: collects the points of a stroke, paints them as they come, and cuts records of
// at most 126 points that share their end points. Allocates nothing while the pen moves, except when a
// record is cut.
class PenInput {
  public:
    PenInput(platform::Window& window, ink::InkPage& page, PageView& view)
        : window_(window), page_(page), view_(view) {}

    void PenDown(ink::Point place);
    void PenMove(ink::Point place);
    void PenUp(ink::Point place);
    void CaptureLost();

    // One tick of the auto-scroll timer; true when the writer has paused long enough for the page to move on.
    bool TimerTick();
    // Every scroll request ends the wait for the auto-scroll.
    void StopTimer();

    // The view moved down the page by `rows` (up when negative): a stroke in progress goes on where the pen
    // is.
    void ViewMoved(int32_t rows);

    bool IsTracking() const { return tracking_; }

    static constexpr int kTimerId = 1;

  private:
    static constexpr size_t kMaxSamples = 64;

    void TakeSamples(ink::Point place);
    void TakePoint(ink::Point place);
    void Append(ink::Point place);
    void PaintSegment();
    void CutStroke();
    void EndStroke(ink::Point place);

    platform::Window& window_;
    ink::InkPage& page_;
    PageView& view_;

    bool tracking_ = false;
    ink::Point last_;  // last accepted position, view coordinates
    PenTrace trace_;
    // View coordinates: the last point of the segment before, then what one move event brought.
    std::array<ink::Point, kMaxSamples + 2> segment_{};
    size_t segmentCount_ = 0;
    int32_t lowestRow_ = 0;  // largest page y since the pen came down

    bool timerRuns_ = false;
    uint32_t lastPenTime_ = 0;  // milliseconds
};

}  // namespace editor
