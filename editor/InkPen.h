#pragma once

#include <array>

#include "editor/DragTool.h"
#include "editor/PageView.h"
#include "editor/PenTrace.h"
#include "ink/PageHistory.h"

namespace editor {

// The pen: collects the points of a stroke, paints them as they come, and cuts records of at most 126 points
// that share their end points. Allocates nothing while the pen moves, except when a record is cut.
class InkPen : public DragTool {
  public:
    // Positions that one move may bring.
    static constexpr size_t kMaxMoves = 65;

    InkPen(platform::Window& window, const ink::InkPage& page, ink::PageHistory& history, PageView& view)
        : window_(window), page_(page), history_(history), view_(view) {}

    void Begin(ink::Point place) override;
    void Move(const ink::Point* places, size_t count) override;
    LiftResult Lift(ink::Point place) override;
    // A stroke that another window interrupts is kept as far as it was written.
    void GiveUp() override { CutStroke(); }
    void ViewMoved(int32_t rows) override;

    // The largest page row of the trace, of all its records.
    int32_t LowestRow() const { return lowestRow_; }

  private:
    void TakePoint(ink::Point place);
    void Append(ink::Point place);
    void CutStroke();

    platform::Window& window_;
    const ink::InkPage& page_;
    ink::PageHistory& history_;
    PageView& view_;

    ink::Point last_;  // last accepted position, view coordinates
    PenTrace trace_;
    // View coordinates: the last point of the segment before, then what one move brought.
    std::array<ink::Point, kMaxMoves + 1> segment_{};
    size_t segmentCount_ = 0;
    int32_t lowestRow_ = 0;
};

}  // namespace editor
