#include "pictures/PageBreaks.h"

#include <algorithm>

namespace pictures {

namespace {

// Rows that strokes cover without a gap, in order.
std::vector<RowSpan> Unite(std::vector<RowSpan> spans) {
    std::sort(spans.begin(), spans.end(),
              [](const RowSpan& a, const RowSpan& b) { return a.first < b.first; });
    std::vector<RowSpan> united;
    for (const RowSpan& span : spans) {
        if (united.empty() || span.first >= united.back().end) {
            united.push_back(span);
        } else {
            united.back().end = std::max(united.back().end, span.end);
        }
    }
    return united;
}

}  // namespace

std::vector<RowSpan> BreakPages(std::vector<RowSpan> strokes, int64_t height, int64_t capacity) {
    const std::vector<RowSpan> lines = Unite(std::move(strokes));
    std::vector<RowSpan> sheets;
    auto line = lines.begin();
    int64_t first = 0;
    while (first + capacity < height) {
        int64_t end = first + capacity;
        while (line != lines.end() && line->end <= end) ++line;
        // This line and all after it go on below the sheet, or lie there.
        const bool isCut = line != lines.end() && line->first < end;
        if (isCut && line->first - first >= capacity / 4 && line->first > first) end = line->first;
        sheets.push_back({first, end});
        first = end;
        if (line == lines.end()) return sheets;
        if (line->first >= first + capacity) first = line->first;
    }
    sheets.push_back({first, height});
    return sheets;
}

}  // namespace pictures
