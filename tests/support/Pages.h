// Notes for tests, and what is on their pages.
#pragma once

#include <string>
#include <vector>

#include "tests/support/DeskTest.h"

namespace testing_support {

using ink::Point;
using Trace = std::vector<Point>;

constexpr int kNoStroke = -1;

// The file of a note on white paper: in each slot one dot in column 100 of this page row, or none.
inline std::string NoteOfDots(const std::vector<int32_t>& rows, int32_t bandHeight) {
    std::string note = Words({5, 0xFFFFFF, static_cast<int32_t>(rows.size()), bandHeight});
    for (const int32_t y : rows) note += y == kNoStroke ? Words({0}) : Words({1, 1, 0, 0, 0, y, y, 100, y});
    return note;
}

// The records as they are drawn: from the highest slot to the lowest.
inline std::vector<const ink::StrokeRecord*> Records(const ink::InkPage& page) {
    std::vector<const ink::StrokeRecord*> records;
    for (size_t slot = page.SlotCount(); slot-- > 0;) {
        const ink::StrokeBand* band = page.Band(slot);
        for (size_t i = 0; band != nullptr && i < band->Count(); ++i) records.push_back(&band->At(i));
    }
    return records;
}

inline std::vector<int> Rows(const ink::InkPage& page) {
    std::vector<int> rows;
    for (const ink::StrokeRecord* record : Records(page)) rows.push_back(record->minY);
    return rows;
}

inline std::vector<Trace> Traces(const ink::InkPage& page) {
    std::vector<Trace> traces;
    for (const ink::StrokeRecord* record : Records(page)) traces.push_back(PointsOf(*record));
    return traces;
}

inline Trace Line(Point from, int steps) {
    Trace line;
    for (int i = 0; i <= steps; ++i) line.push_back({from.x + 4 * i, from.y});
    return line;
}

}  // namespace testing_support
