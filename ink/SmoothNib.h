// The round anti-aliased pen tip.
#pragma once

#include <vector>

#include "ink/Nib.h"

namespace ink {

// Coverage is the covered share of a pixel, 0 to 255. A row is cut into 16 scan lines, and on each the swept
// disc's exact extent is taken in 1/256 pixel; the sum over the lines is the area.
class SmoothNib : public Nib {
  public:
    // `width` in pixels. Throws bad_alloc.
    explicit SmoothNib(double width);

    int32_t Reach() const override { return reach_; }
    bool HasSoftEdges() const override { return true; }
    bool Prepare(int32_t width) override;
    CoverSpan CoverRow(const Sweep& sweep, int64_t row, int64_t column, int32_t width, uint8_t* out) override;

  private:
    struct Edges;
    struct Extent;

    void AddDisc(int64_t line, int64_t centerX, Extent& extent) const;

    double radius_;
    int32_t reach_;
    std::vector<int32_t> halfWidths_;  // half the disc's width on each scan line, 1/256 pixel; -1 outside
    std::vector<int32_t> sums_;        // change of coverage from column to column; zero between calls
};

}  // namespace ink
