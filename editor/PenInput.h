#pragma once

#include <array>
#include <cstdint>

#include "editor/Eraser.h"
#include "editor/PageView.h"
#include "editor/PenTrace.h"
#include "editor/SpaceTool.h"

namespace editor {

enum class PenTool { Pen, Eraser, Space };

// Turns pen contact into ink, or into what the eraser and the space tool do. For ink it collects the points
// of a stroke, paints them as they come, and cuts records of at most 126 points that share their end points.
// Allocates nothing while the pen moves, except when a record is cut.
class PenInput {
  public:
    PenInput(platform::Window& window, ink::InkPage& page, PageView& view)
        : window_(window),
          page_(page),
          view_(view),
          eraser_(window, page, view),
          space_(window, page, view) {}

    // A drag under way goes on with the tool it began with.
    void SetTool(PenTool tool) { tool_ = tool; }

    void PenDown(ink::Point place);
    void PenMove(ink::Point place);
    // True when the page's extent may have changed.
    bool PenUp(ink::Point place);
    // Keeps the stroke in progress; what is swept or spaced without having been lifted is given up.
    void CaptureLost();
    // Ends the drag under way, as if the pen had been taken away.
    void Interrupt();
    // The tool's marks over a freshly painted window.
    void PaintMarks() { space_.Paint(); }

    // One tick of the auto-scroll timer; true when the writer has paused long enough for the page to move on.
    bool TimerTick();
    // Every scroll request and every command ends the wait for the auto-scroll.
    void StopTimer();

    // Around a move of the view down the page by `rows` (up when negative): a drag goes on where the pen is.
    void ViewMoves() { space_.Hide(); }
    void ViewMoved(int32_t rows);

    bool IsTracking() const { return tracking_; }

    static constexpr int kTimerId = 1;

  private:
    static constexpr size_t kMaxSamples = 64;

    template <typename Take>
    void TakeSamples(ink::Point place, Take&& take);
    void MovePen(ink::Point place);
    void TakePoint(ink::Point place);
    void ErasePoint(ink::Point place);
    void RepaintTrace();
    bool FinishDrag(ink::Point place);
    void Append(ink::Point place);
    void PaintSegment();
    void CutStroke();
    void EndStroke(ink::Point place);

    platform::Window& window_;
    ink::InkPage& page_;
    PageView& view_;

    Eraser eraser_;
    SpaceTool space_;
    PenTool tool_ = PenTool::Pen;
    PenTool drag_ = PenTool::Pen;  // the tool of the contact under way

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
