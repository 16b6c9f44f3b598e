#include "platform/windows/GdiSheet.h"

#include <algorithm>
#include <cmath>

#include "platform/windows/Guards.h"

namespace platform::windows {

namespace {

constexpr double kPointsPerInch = 72;

using OwnedBrush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, DeleteGdiObject>;
using OwnedPen = std::unique_ptr<std::remove_pointer_t<HPEN>, DeleteGdiObject>;

LONG Rounded(double value) { return static_cast<LONG>(std::lround(value)); }

}  // namespace

GdiSheet::GdiSheet(HDC dc, const GdiPaper& paper)
    : dc_(dc), paper_(paper), saved_(SaveDC(dc)), isGood_(saved_ != 0) {}

GdiSheet::~GdiSheet() {
    if (saved_ != 0) RestoreDC(dc_, saved_);
}

POINT GdiSheet::On(double x, double y) const {
    return {Rounded((view_.left + x * view_.unit) * paper_.dotsX / kPointsPerInch) - paper_.left,
            Rounded((view_.top + y * view_.unit) * paper_.dotsY / kPointsPerInch) - paper_.top};
}

void GdiSheet::FillPixels(const RECT& pixels, ink::ColorRef color) {
    const OwnedBrush brush(CreateSolidBrush(color));
    isGood_ = brush && FillRect(dc_, &pixels, brush.get()) != 0 && isGood_;
}

void GdiSheet::FillPaper(ink::ColorRef color) {
    FillPixels({-paper_.left, -paper_.top, paper_.width - paper_.left, paper_.height - paper_.top}, color);
}

void GdiSheet::Show(const ink::SheetView& view) {
    view_ = view;
    const auto row = [this](double points) {
        return Rounded(points * paper_.dotsY / kPointsPerInch) - paper_.top;
    };
    IntersectClipRect(dc_, -paper_.left, row(view.clipTop), paper_.width - paper_.left, row(view.clipBottom));
}

// A line of the page is one on paper, however thin.
void GdiSheet::Fill(const ink::Rect& area, ink::ColorRef color) {
    const POINT from = On(area.left, area.top);
    const POINT to = On(area.right, area.bottom);
    FillPixels({from.x, from.y, std::max(to.x, from.x + 1), std::max(to.y, from.y + 1)}, color);
}

void GdiSheet::Draw(const ink::StrokeRecord& record, double width, ink::ColorRef color) {
    const LONG dots = std::max(Rounded(width * view_.unit * paper_.dotsX / kPointsPerInch), 1L);
    std::vector<POINT> points;
    for (int32_t i = 0; i < record.count; ++i) {
        const POINT place = On(record.Points()[i].x + 0.5, static_cast<double>(record.PageY(i)) + 0.5);
        const bool isNew = points.empty() || place.x != points.back().x || place.y != points.back().y;
        if (isNew) points.push_back(place);
    }
    points.size() == 1 ? DrawDot(points.front(), dots, color) : DrawLine(points, dots, color);
}

void GdiSheet::DrawLine(const std::vector<POINT>& points, LONG width, COLORREF color) {
    const LOGBRUSH brush{BS_SOLID, color, 0};
    const OwnedPen pen(ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                                    static_cast<DWORD>(width), &brush, 0, nullptr));
    const Selection selected(dc_, pen.get());
    isGood_ = pen && Polyline(dc_, points.data(), static_cast<int>(points.size())) != FALSE && isGood_;
}

// Not every device draws the ends of a line of no length.
void GdiSheet::DrawDot(POINT middle, LONG width, COLORREF color) {
    const OwnedBrush brush(CreateSolidBrush(color));
    const Selection filled(dc_, brush.get());
    const Selection unframed(dc_, GetStockObject(NULL_PEN));
    const LONG left = middle.x - width / 2;
    const LONG top = middle.y - width / 2;
    // Without a frame an ellipse ends a pixel before its right and lower edge.
    isGood_ = brush && Ellipse(dc_, left, top, left + width + 1, top + width + 1) != FALSE && isGood_;
}

}  // namespace platform::windows
