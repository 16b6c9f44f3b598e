#pragma once

#include <cstdint>

#include "editor/Eraser.h"
#include "editor/InkPen.h"
#include "editor/SpaceTool.h"

namespace editor {

// Takes the pen's events to the tool in use, or to the eraser for the pen's other end: it captures the pen,
// has a drag go on with the tool that it began with, collects the positions between two events, makes each
// drag one step of the page's history, and waits for the pause after which the page moves on.
class PenInput {
  public:
    PenInput(platform::Window& window, ink::InkPage& page, ink::PageHistory& history, PageView& view)
        : window_(window),
          page_(page),
          history_(history),
          view_(view),
          pen_(window, page, history, view),
          eraser_(window, page, history, view),
          space_(window, page, history, view) {}

    // For the drags to come.
    void UsePen() { tool_ = &pen_; }
    void UseEraser() { tool_ = &eraser_; }
    void UseSpaceTool() { tool_ = &space_; }

    void PenDown(ink::Point place);
    void PenMove(ink::Point place);
    // True when the page's extent may have changed.
    bool PenUp(ink::Point place);
    // Keeps the stroke in progress; what is swept or spaced without having been lifted is given up.
    void CaptureLost();
    // Ends the drag under way, as if the pen had been taken away: the window tells of a lost capture.
    void Interrupt() { window_.ReleasePen(); }
    // A pen is near and would write, or erase, there.
    void PenHover(ink::Point place, platform::PenEnd end);
    void PenLeave() { view_.Unmark(); }
    // The tool's marks over a freshly painted window.
    void PaintMarks();

    // One tick of the auto-scroll timer; true when the writer has paused long enough for the page to move on.
    bool TimerTick();
    // Every scroll request and every command ends the wait for the auto-scroll.
    void StopTimer();

    // Around a move of the view down the page by `rows` (up when negative): a drag goes on where the pen is.
    void ViewMoves();
    void ViewMoved(int32_t rows);

    static constexpr int kTimerId = 1;
    bool IsDragging() const { return drag_ != nullptr; }

  private:
    DragTool& EndDrag();
    void AwaitPause();

    platform::Window& window_;
    ink::InkPage& page_;
    ink::PageHistory& history_;
    PageView& view_;

    InkPen pen_;
    Eraser eraser_;
    SpaceTool space_;
    DragTool* tool_ = &pen_;    // for the next contact
    DragTool* drag_ = nullptr;  // of the contact under way; null while the pen is up

    bool timerRuns_ = false;
    uint32_t lastPenTime_ = 0;  // milliseconds
};

}  // namespace editor
