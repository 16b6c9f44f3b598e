#pragma once

#include "ink/InkPage.h"
#include "ink/InkPainter.h"
#include "platform/Image.h"
#include "platform/Window.h"

namespace editor {

// What the window shows of the page: the off-screen page image, brought up to date piece by piece and copied
// to the screen. View coordinates, in page pixels; view row 0 is page row `page.scroll`. Inside, the image is
// painted and shown in screen pixels.
class PageView {
  public:
    PageView(platform::Window& window, ink::InkPage& page) : window_(window), page_(page) {}

    // The page image and the pen, for the page's canvas size, pen style and pen size; false when memory is
    // short.
    bool Create();
    // A view of another size, or at the window's other scale, not drawn yet; without memory for it the view
    // stays what it was: false.
    bool Resize(int32_t width, int32_t height);
    // From the next drawing on, rows whose ink goes on to the right of the view have a mark at its edge.
    void MarkInkBeyond(bool isMarked) { marksInkBeyond_ = isMarked; }

    // By how many page pixels the pen's ink reaches beyond its points.
    int32_t Reach() const { return painter_.Reach(); }

    // Draws the whole view into the page image and has the window repainted.
    void Redraw();
    // Answers the window's paint event.
    void Paint() { window_.ShowPixels(image_, Bounds()); }

    // Moves the view to page row `top`: what stays in view is moved, only the uncovered rows are drawn.
    void MoveTo(int32_t top);

    // Paints the empty page over what the area shows, at once; the ink stays where it is.
    void Wipe(const ink::Rect& area);

    // Ink of a stroke in progress, straight to the screen. Each segment starts at the last one's end.
    void BeginStroke();
    void PaintSegment(const ink::Point* points, size_t count);
    // Draws the rows and columns of a finished stroke again from the page: strokes of lower slots lie above
    // it.
    void FinishStroke(const ink::Rect& box);

    // Where a hovering pen would write a dot, or which square it would erase; on the screen alone, one at a
    // time.
    void MarkDot(ink::Point place);
    void MarkSquare(ink::Point place, int32_t reach);
    void Unmark();

    // Inverts these rows on the screen alone; the same again takes it back.
    void InvertRows(int32_t top, int32_t bottom);

  private:
    // From here on all places are screen pixels of the page image.
    ink::Rect Bounds() const { return image_.Surface().Bounds(); }
    ink::Rect InImage(const ink::Rect& view) const;
    int32_t ScreenPixels(int32_t pagePixels) const;
    void Repaint(const ink::Rect& area);
    void MarkRowsBeyond(const ink::Rect& area, const ink::StrokeRecord& stroke);
    void MoveImageRows(int32_t dy);
    void ShowMark(const ink::Rect& area);

    platform::Window& window_;
    ink::InkPage& page_;
    ink::InkPainter painter_;
    platform::Image image_;  // its scale is the painter's
    bool marksInkBeyond_ = false;
    ink::Rect mark_;  // what the screen shows otherwise than the page image; empty without a mark
};

}  // namespace editor
