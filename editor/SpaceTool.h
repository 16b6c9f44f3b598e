#pragma once

#include "editor/DragTool.h"
#include "editor/PageView.h"
#include "ink/PageHistory.h"

namespace editor {

// The space tool's drag: an inverted band from the row where the pen came down to the pen. Dragged down, it
// opens as many blank rows at the first row; dragged up, it closes blank rows above it.
class SpaceTool : public DragTool {
  public:
    SpaceTool(platform::Window& window, ink::InkPage& page, ink::PageHistory& history, PageView& view)
        : window_(window), page_(page), history_(history), view_(view) {}

    void Begin(ink::Point place) override;
    void Move(const ink::Point* places, size_t count) override;
    LiftResult Lift(ink::Point place) override;
    void GiveUp() override { Invert(); }

    // The band is not part of the page: it is away while the view moves, and comes back with its first row
    // where that has gone.
    void ViewMoves() override { Invert(); }
    void ViewMoved(int32_t rows) override;
    void PaintMarks() override { Invert(); }

  private:
    void Invert();  // shows the band, or takes it away

    platform::Window& window_;
    ink::InkPage& page_;
    ink::PageHistory& history_;
    PageView& view_;
    // View rows. The first may leave the view, the pen's is kept inside it.
    int32_t start_ = 0;
    int32_t current_ = 0;
};

}  // namespace editor
