#include "pictures/Sheets.h"

#include <algorithm>
#include <cmath>

#include "ink/PageHead.h"

namespace pictures {

namespace {

constexpr double kMargin = 42.52;           // points: 15 mm
constexpr double kLeastPart = 0.25;         // of the paper that margins leave, whatever a printer says
constexpr double kPointsPerPixel = 0.75;    // of a page pixel of 1/96 inch
constexpr uint64_t kFreeRepeats = 1 << 20;  // points told on more than one sheet

double MarginOf(const Paper& paper, double least) {
    return std::min(std::max(kMargin, least), std::min(paper.width, paper.height) * (1 - kLeastPart) / 2);
}

}  // namespace

Sheets::Sheets(const ink::InkPage& page, const PictureSize& size, const PictureOptions& options,
               double leastMargin)
    : page_(page),
      size_(size),
      paper_(options.paper),
      lines_(LinesOf(options.style, options.size)),
      margin_(MarginOf(options.paper, leastMargin)),
      unit_(std::min(kPointsPerPixel * options.scale, (paper_.width - 2 * margin_) / size.width)),
      rows_(Break()) {}

std::vector<RowSpan> Sheets::Break() const {
    const int64_t capacity =
        std::max<int64_t>(static_cast<int64_t>((paper_.height - 2 * margin_) / unit_), 1);
    uint64_t points = kFreeRepeats;
    uint64_t repeats = 0;
    const int64_t reach = static_cast<int64_t>(std::ceil(lines_.front().width / 2));
    std::vector<RowSpan> strokes{{0, ink::kHeadRows}};
    page_.VisitStrokes(0, size_.height, [&](const ink::StrokeRecord& record) {
        int64_t top = record.PageY(0);
        int64_t bottom = top;
        for (int32_t i = 1; i < record.count; ++i) {
            top = std::min(top, record.PageY(i));
            bottom = std::max(bottom, record.PageY(i));
        }
        if (bottom < 0) return;
        points += static_cast<uint64_t>(record.count);
        repeats += static_cast<uint64_t>(record.count) *
                   static_cast<uint64_t>(
                       (std::min<int64_t>(bottom, size_.height) - std::max<int64_t>(top, 0)) / capacity);
        strokes.push_back({top - reach, bottom + reach + 1});
    });
    if (repeats > points) return {};
    return BreakPages(std::move(strokes), size_.height, capacity);
}

void Sheets::Draw(size_t sheet, ink::LineCanvas& canvas) const {
    const RowSpan& rows = rows_[sheet];
    const double height = static_cast<double>(rows.end - rows.first) * unit_;
    canvas.FillPaper(page_.background);
    canvas.Show(
        {unit_, margin_, margin_ - static_cast<double>(rows.first) * unit_, margin_, margin_ + height});
    if (rows.first < ink::kHeadRows) {
        for (const HeadBar& bar : HeadBarsOf(page_.background, size_.width))
            canvas.Fill({bar.left, bar.top, bar.left + bar.width, bar.top + bar.height}, bar.color);
    }
    const int64_t reach = static_cast<int64_t>(std::ceil(lines_.front().width));
    page_.VisitStrokes(rows.first - reach, rows.end + reach, [&](const ink::StrokeRecord& record) {
        for (const PenLine& line : lines_) canvas.Draw(record, line.width, ColorOf(line, record.Color()));
    });
}

}  // namespace pictures
