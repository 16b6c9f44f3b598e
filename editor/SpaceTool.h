#pragma once

#include "editor/PageView.h"

namespace editor {

// The space tool's drag: an inverted band from the row where the pen came down to the pen. Dragged down, it
// opens as many blank rows at the first row; dragged up, it closes blank rows above it.
class SpaceTool {
  public:
    SpaceTool(platform::Window& window, ink::InkPage& page, PageView& view)
        : window_(window), page_(page), view_(view) {}

    // Rows are view rows; `MoveTo` keeps inside the view.
    void Begin(int32_t row);
    void MoveTo(int32_t row);
    // Moves the strokes; true when the page's extent may have changed.
    bool Finish();
    void Cancel() { Hide(); }

    // The band over a freshly painted window.
    void Paint();
    // Around a move of the view: takes the band away, and brings it back `rows` further up.
    void Hide();
    void ShowMoved(int32_t rows);

  private:
    void Invert();

    platform::Window& window_;
    ink::InkPage& page_;
    PageView& view_;
    bool shown_ = false;
    int32_t start_ = 0;
    int32_t current_ = 0;
};

}  // namespace editor
