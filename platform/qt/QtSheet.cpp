#include "platform/qt/QtSheet.h"

namespace platform::qt {

namespace {

constexpr double kPointsPerInch = 72;

QColor Toned(ink::ColorRef color) { return {ink::Red(color), ink::Green(color), ink::Blue(color)}; }

}  // namespace

QtSheet::QtSheet(QPainter& painter, const QSizeF& paper, double dots) : painter_(painter), paper_(paper) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.scale(dots / kPointsPerInch, dots / kPointsPerInch);
}

QtSheet::~QtSheet() { painter_.restore(); }

void QtSheet::FillPaper(ink::ColorRef color) { painter_.fillRect(QRectF({0, 0}, paper_), Toned(color)); }

void QtSheet::Show(const ink::SheetView& view) {
    painter_.setClipRect(QRectF(0, view.clipTop, paper_.width(), view.clipBottom - view.clipTop));
    painter_.translate(view.left, view.top);
    painter_.scale(view.unit, view.unit);
}

void QtSheet::Fill(const ink::Rect& area, ink::ColorRef color) {
    painter_.fillRect(QRectF(area.left, area.top, area.Width(), area.Height()), Toned(color));
}

void QtSheet::Draw(const ink::StrokeRecord& record, double width, ink::ColorRef color) {
    painter_.setPen(QPen(Toned(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPolygonF line;
    line.reserve(record.count);
    for (int32_t i = 0; i < record.count; ++i)
        line.append({record.Points()[i].x + 0.5, static_cast<double>(record.PageY(i)) + 0.5});
    record.count == 1 ? painter_.drawPoint(line.front()) : painter_.drawPolyline(line);
}

}  // namespace platform::qt
