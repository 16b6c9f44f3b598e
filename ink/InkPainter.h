// Paints ink: the one way strokes reach a picture, for the screen, the preview and the export.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "ink/InkPage.h"
#include "ink/PenStyle.h"
#include "ink/PixelSurface.h"
#include "ink/Scale.h"

namespace ink {

// How many rows at the top of the page carry the head decoration.
constexpr int32_t kHeadRows = 45;

// How much lighter the classic pen's outer line is than its core.
constexpr float kClassicRimShade = 0.39f;

// Surfaces are made of screen pixels, points and `scroll` of page pixels (see Scale): a point (x, y) of the
// page is painted at column ToScreen(x), row ToScreen(y) - ToScreen(scroll). So a picture that is moved by
// the difference of two scrolls' screen rows fits what is painted beside it. Every call paints exactly inside
// its clip (surface coordinates) and inside the surface; the same ink always gives the same pixels, whether
// painted live, whole or in strips. Coordinates may be any numbers: cost is bounded by the clip. Memory for
// masks is taken when a surface larger than before is seen, never while a stroke is in progress.
class InkPainter {
  public:
    InkPainter();
    ~InkPainter();
    InkPainter(InkPainter&&) noexcept;
    InkPainter& operator=(InkPainter&&) noexcept;

    // `width` in page pixels (0 to kWidestPen). The lines of each style are those of a pen as many times as
    // wide as the scale says. Ends a stroke in progress. False when memory is short; pen and scale are then
    // what they were.
    bool SetPen(PenStyle style, double width, Scale scale = Scale());

    // Background, head decoration and strokes. False when memory was short: the strokes are then missing.
    bool Repaint(PixelSurface& surface, const InkPage& page, int32_t scroll, const Rect& clip);

    // The decoration of the top rows alone, over whatever is there.
    void PaintHead(PixelSurface& surface, ColorRef background, int32_t scroll, const Rect& clip) const;

    // One stroke of a page.
    bool PaintStroke(PixelSurface& surface, const StrokeRecord& record, int32_t scroll, const Rect& clip);
    bool PaintStroke(PixelSurface& surface, const StrokeRecord& record, ColorRef color, int32_t scroll,
                     const Rect& clip);

    // Live ink. BeginStroke remembers what lies below; the surface must stay the same, and nothing else be
    // painted into it, until EndStroke. Points are in page pixels, their rows counted from page row `scroll`:
    // those of the view. Each run of connected points starts with the last point of the run before; one point
    // is a dot. Returns the rectangle of the surface that changed.
    bool BeginStroke(PixelSurface& surface, ColorRef color, int32_t scroll = 0);
    Rect PaintSegment(PixelSurface& surface, const Point* points, size_t count);
    void EndStroke();

    // By how many page pixels ink reaches beyond its points: the margin for repainting around them.
    int32_t Reach() const;

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace ink
