// Paints ink: the one way strokes reach a picture, for the screen, the preview and the export.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "ink/InkPage.h"
#include "ink/PenStyle.h"
#include "ink/PixelSurface.h"

namespace ink {

// How many rows at the top of the page carry the head decoration.
constexpr int32_t kHeadRows = 45;

// Surface row 0 shows page row `scroll`; surface column x is page column x. Every call paints exactly inside
// its clip (surface coordinates) and inside the surface; the same ink always gives the same pixels, whether
// painted live, whole or in strips. Coordinates may be any numbers: cost is bounded by the clip.
// Memory for masks is taken when a surface larger than before is seen, never while a stroke is in progress.
class InkPainter {
  public:
    InkPainter();
    ~InkPainter();
    InkPainter(InkPainter&&) noexcept;
    InkPainter& operator=(InkPainter&&) noexcept;

    // `width` in pixels (0 to kWidestPen). Ends a stroke in progress. False when memory is short; the pen is
    // then what it was.
    bool SetPen(PenStyle style, double width);

    // Background, head decoration and strokes. False when memory was short: the strokes are then missing.
    bool Repaint(PixelSurface& surface, const InkPage& page, int32_t scroll, const Rect& clip);

    // The decoration of the top rows alone, over whatever is there.
    static void PaintHead(PixelSurface& surface, ColorRef background, int32_t scroll, const Rect& clip);

    // One stroke of a page, with page row `scroll` at surface row 0.
    bool PaintStroke(PixelSurface& surface, const StrokeRecord& record, int32_t scroll, const Rect& clip);
    bool PaintStroke(PixelSurface& surface, const StrokeRecord& record, ColorRef color, int32_t scroll,
                     const Rect& clip);

    // Live ink. BeginStroke remembers what lies below; the surface must stay the same, and nothing else be
    // painted into it, until EndStroke. Points are surface coordinates, and each run of connected points
    // starts with the last point of the run before; one point is a dot. Returns the rectangle that changed.
    bool BeginStroke(PixelSurface& surface, ColorRef color);
    Rect PaintSegment(PixelSurface& surface, const Point* points, size_t count);
    void EndStroke();

    // By how many pixels ink reaches beyond its points: the margin for repainting around them.
    int32_t Reach() const;

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace ink
