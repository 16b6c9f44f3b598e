#include "bench/CairoScene.h"

namespace bench {

CairoCanvas::CairoCanvas(Picture& picture, double width, cairo_antialias_t antialias)
    : surface_(cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(picture.pixels.data()),
                                                   CAIRO_FORMAT_RGB24, kViewWidth, kViewHeight,
                                                   kViewWidth * 4)),
      cairo_(cairo_create(surface_)) {
    cairo_set_antialias(cairo_, antialias);
    cairo_set_line_width(cairo_, width);
    cairo_set_line_cap(cairo_, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cairo_, CAIRO_LINE_JOIN_ROUND);
}

CairoCanvas::~CairoCanvas() {
    cairo_destroy(cairo_);
    cairo_surface_destroy(surface_);
}

void CairoCanvas::Fill() {
    cairo_set_source_rgb(cairo_, 1, 1, 1);
    cairo_paint(cairo_);
}

void CairoCanvas::Draw(const ink::Point* points, size_t count, ink::ColorRef color) {
    cairo_set_source_rgb(cairo_, ink::Red(color) / 255.0, ink::Green(color) / 255.0,
                         ink::Blue(color) / 255.0);
    for (size_t i = 0; i < count; ++i) cairo_line_to(cairo_, points[i].x + 0.5, points[i].y + 0.5);
    cairo_stroke(cairo_);
    cairo_surface_flush(surface_);
}

void CairoCanvas::DrawAll(const std::vector<Stroke>& strokes) {
    Fill();
    for (const Stroke& stroke : strokes) Draw(stroke.points.data(), stroke.points.size(), stroke.color);
}

}  // namespace bench
