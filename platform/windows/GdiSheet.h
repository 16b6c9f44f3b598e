#pragma once

#include <vector>

#include "ink/LineCanvas.h"
#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

// What a device's pixels are to the paper's points.
struct GdiPaper {
    double dotsX = 72;  // to the inch
    double dotsY = 72;
    LONG left = 0;  // of the device's first column on the paper, in its pixels
    LONG top = 0;
    LONG width = 0;  // of the paper, likewise
    LONG height = 0;
};

// Draws a sheet on a device: a printer's page, a picture. The device context is left as it was found.
class GdiSheet : public ink::LineCanvas {
  public:
    GdiSheet(HDC dc, const GdiPaper& paper);
    GdiSheet(const GdiSheet&) = delete;
    GdiSheet& operator=(const GdiSheet&) = delete;
    ~GdiSheet() override;

    void FillPaper(ink::ColorRef color) override;
    void Show(const ink::SheetView& view) override;
    void Fill(const ink::Rect& area, ink::ColorRef color) override;
    void Draw(const ink::StrokeRecord& record, double width, ink::ColorRef color) override;

    // Whether all of it could be drawn so far.
    bool IsGood() const { return isGood_; }

  private:
    // Of a place in page pixels.
    POINT On(double x, double y) const;
    void FillPixels(const RECT& pixels, ink::ColorRef color);
    void DrawLine(const std::vector<POINT>& points, LONG width, COLORREF color);
    void DrawDot(POINT middle, LONG width, COLORREF color);

    HDC dc_;
    const GdiPaper paper_;
    ink::SheetView view_;
    const int saved_;
    bool isGood_;
};

}  // namespace platform::windows
