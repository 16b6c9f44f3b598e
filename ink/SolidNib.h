// Pen tips without soft edges: brushes of whole pixels moved along a line of pixels.
#pragma once

#include <vector>

#include "ink/Nib.h"

namespace ink {

// A brush of `width` pixels that marks what it sweeps with `level`.
struct BrushLayer {
    int32_t width;
    uint8_t level;
};

// Several brushes may be laid over each other, later ones on top (their levels must then be higher).
class SolidNib : public Nib {
  public:
    // Throws bad_alloc.
    explicit SolidNib(const std::vector<BrushLayer>& layers);

    int32_t Reach() const override { return reach_; }
    bool HasSoftEdges() const override { return false; }
    bool Prepare(int32_t) override { return true; }
    CoverSpan CoverRow(const Sweep& sweep, int64_t row, int64_t column, int32_t width, uint8_t* out) override;

  private:
    // One row of a round brush, in columns from its middle.
    struct BrushRow {
        int32_t y;
        int32_t left;
        int32_t right;
    };
    struct Brush {
        uint8_t level;
        std::vector<BrushRow> rows;
    };

    static Brush MakeBrush(const BrushLayer& layer);

    int32_t reach_ = 0;
    std::vector<Brush> brushes_;
};

}  // namespace ink
