// One stroke, laid out in memory exactly as in the note file.
#pragma once

#include <cstddef>
#include <cstdint>

#include "ink/Color.h"
#include "ink/Geometry.h"

namespace ink {

// The head of a block of (count + 3) * 8 bytes; `count` points follow it directly. Records live in the
// page's StrokePool, aligned to 4 bytes, and are never copied by value: a copy would leave its points behind.
struct StrokeRecord {
    int32_t count;      // points; a record with less than 1 is kept but neither drawn nor erased
    int32_t yOffset;    // added to a stored y to give the page y
    int32_t colorLow;   // colour & 0xFFFF
    int32_t colorHigh;  // colour >> 16
    int32_t minY;       // smallest and largest page y of the points
    int32_t maxY;

    StrokeRecord(const StrokeRecord&) = delete;
    StrokeRecord& operator=(const StrokeRecord&) = delete;

    Point* Points() { return reinterpret_cast<Point*>(this + 1); }
    const Point* Points() const { return reinterpret_cast<const Point*>(this + 1); }

    ColorRef Color() const {
        return static_cast<uint32_t>(colorHigh) << 16 | static_cast<uint32_t>(colorLow);
    }
    void SetColor(ColorRef color) {
        colorLow = static_cast<int32_t>(color & 0xFFFF);
        colorHigh = static_cast<int32_t>(color >> 16);
    }

    // A file may hold any numbers: the sum can leave 32 bits.
    int64_t PageY(int32_t index) const { return static_cast<int64_t>(Points()[index].y) + yOffset; }

    static uint64_t ByteSize(int32_t count) { return (static_cast<uint64_t>(count) + 3) * 8; }
    size_t Bytes() const { return static_cast<size_t>(ByteSize(count)); }
};

static_assert(sizeof(StrokeRecord) == 24 && sizeof(Point) == 8, "the record is the file's image");

}  // namespace ink
