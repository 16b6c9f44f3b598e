#pragma once

#include "editor/DragTool.h"
#include "editor/PageView.h"
#include "ink/PageHistory.h"
#include "ink/SweptRegion.h"

namespace editor {

// The eraser's drag: ink vanishes from the view while the pen moves, and the strokes are cut when it is
// lifted. What is swept is kept in page coordinates, so that it stays where the user saw it go.
class Eraser : public DragTool {
  public:
    Eraser(platform::Window& window, ink::InkPage& page, ink::PageHistory& history, PageView& view)
        : window_(window), page_(page), history_(history), view_(view) {}

    void Begin(ink::Point place) override;
    void Move(const ink::Point* places, size_t count) override;
    // Cuts the strokes and drops empty bands at the page's end.
    LiftResult Lift(ink::Point place) override;
    // The view shows the ink again.
    void GiveUp() override;
    // The view shows swept ink again: cuts the strokes and goes on.
    void ViewMoved(int32_t rows) override;

  private:
    void EraseAt(ink::Point place);
    void CutSwept();

    platform::Window& window_;
    ink::InkPage& page_;
    ink::PageHistory& history_;
    PageView& view_;
    ink::SweptRegion swept_;
    bool memoryShort_ = false;  // told when the pen is lifted: a box would end the drag
};

}  // namespace editor
