// The narrow door to whoever draws ink as lines on sheets of paper: a document, a printer.
#pragma once

#include "ink/Color.h"
#include "ink/Geometry.h"
#include "ink/StrokeRecord.h"

namespace ink {

// Where page pixels lie on a sheet. Points of 1/72 inch from the sheet's top left corner, downwards.
struct SheetView {
    double unit = 1;     // points that a page pixel measures
    double left = 0;     // of page column 0
    double top = 0;      // of page row 0, which may lie above the sheet
    double clipTop = 0;  // nothing is drawn above and below
    double clipBottom = 0;
};

// One sheet. What fails is remembered and told when the sheet ends, by whoever began it.
class LineCanvas {
  public:
    virtual ~LineCanvas() = default;

    // The whole sheet, first of all.
    virtual void FillPaper(ColorRef color) = 0;
    // From here on numbers are page pixels. Once.
    virtual void Show(const SheetView& view) = 0;
    virtual void Fill(const Rect& area, ColorRef color) = 0;
    // With round ends and joins; a record of one point is a dot. Points lie in the middle of their pixels.
    // `width` in page pixels.
    virtual void Draw(const StrokeRecord& record, double width, ColorRef color) = 0;
};

}  // namespace ink
