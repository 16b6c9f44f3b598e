#pragma once

#include <QPainter>

#include "ink/LineCanvas.h"

namespace platform::qt {

// Draws a sheet with a painter whose origin is the corner of the paper. The painter is left as it was found.
class QtSheet : public ink::LineCanvas {
  public:
    // `paper` in points, `dots` of the painter's device to the inch.
    QtSheet(QPainter& painter, const QSizeF& paper, double dots);
    QtSheet(const QtSheet&) = delete;
    QtSheet& operator=(const QtSheet&) = delete;
    ~QtSheet() override;

    void FillPaper(ink::ColorRef color) override;
    void Show(const ink::SheetView& view) override;
    void Fill(const ink::Rect& area, ink::ColorRef color) override;
    void Draw(const ink::StrokeRecord& record, double width, ink::ColorRef color) override;

  private:
    QPainter& painter_;
    const QSizeF paper_;
};

}  // namespace platform::qt
