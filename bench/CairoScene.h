// The same strokes drawn by cairo, the yardstick for speed and for the picture.
#pragma once

#include <cairo.h>

#include "bench/Scene.h"

namespace bench {

class CairoCanvas {
  public:
    CairoCanvas(Picture& picture, double width, cairo_antialias_t antialias);
    ~CairoCanvas();
    CairoCanvas(const CairoCanvas&) = delete;
    CairoCanvas& operator=(const CairoCanvas&) = delete;

    void Fill();
    void Draw(const ink::Point* points, size_t count, ink::ColorRef color);
    void DrawAll(const std::vector<Stroke>& strokes);

  private:
    cairo_surface_t* surface_;
    cairo_t* cairo_;
};

}  // namespace bench
