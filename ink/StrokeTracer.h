// Turns the points of a stroke into coverage.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "ink/Geometry.h"
#include "ink/Nib.h"
#include "ink/StampCache.h"
#include "ink/StrokeMask.h"

namespace ink {

// A point in surface coordinates, which a page's coordinates may leave far behind.
// Without initial values: runs of points are converted in a buffer that clearing would cost more than filling.
struct TracePoint {
    int64_t x;
    int64_t y;
};

inline bool operator==(const TracePoint& a, const TracePoint& b) { return a.x == b.x && a.y == b.y; }
inline TracePoint operator-(const TracePoint& a, const TracePoint& b) { return {a.x - b.x, a.y - b.y}; }

// Points may be up to 2^31 away from the area. The mask depends on the sequence of points only: not on how it
// was split into calls, and inside the area not on the area.
class StrokeTracer {
  public:
    // Throws bad_alloc.
    explicit StrokeTracer(std::unique_ptr<Nib> nib);

    // Starts a new stroke on an area with nothing covered. `inside` promises that all of the stroke's ink
    // lies in the area. False when memory is short.
    bool Begin(const Rect& area, bool inside);

    // Starts a new line of the stroke; it shows only once something follows.
    void MoveTo(const TracePoint& point);
    // Goes on through the points, from the last one.
    void Lines(const TracePoint* points, size_t count);
    // The pen's tip without movement. Changes nothing on a line that has it as an end.
    void Dot(const TracePoint& point);

    bool IsAt(const TracePoint& point) const { return hasPoint_ && walk_.last == point; }
    int32_t Reach() const { return reach_; }
    StrokeMask& Mask() { return mask_; }

  private:
    // The coverage of a segment in the square that the tip at one of its ends lies in.
    struct TipView {
        const uint8_t* bytes = nullptr;
        size_t stride = 0;
    };

    // Where the pen is; a value of its own, so that it stays in registers from point to point.
    struct Walk {
        TracePoint last{};
        TracePoint direction{};  // of the last segment; zero when there is none
        TipView before;        // the last segment at its end
    };

    Walk ShortStep(Walk walk, const TracePoint& point);
    Walk LongStep(Walk walk, const TracePoint& point);
    const Stamp& StampOf(const TracePoint& direction, Walk& walk);
    bool Touches(const TracePoint& from, const TracePoint& direction) const;
    void AddLong(const TracePoint& from, const TracePoint& direction);
    TipView LongTip(const TracePoint& direction, bool atEnd, std::vector<uint8_t>& room);
    void Join(const Walk& walk, const TracePoint& direction, const TipView& after);
    void JoinSquare(const TracePoint& at, const TipView& before, const TipView& after);

    std::unique_ptr<Nib> nib_;
    const int32_t reach_;
    const bool softEdges_;
    StampCache stamps_;
    StrokeMask mask_;
    bool inside_ = false;

    Walk walk_;
    bool hasPoint_ = false;

    std::vector<uint8_t> row_;
    std::vector<uint8_t> endRoom_;
    std::vector<uint8_t> startRoom_;
    // The tip's own coverage, which both segments at a joint contain, in rows of tipStride_; and 255 inside
    // its square, 0 behind it.
    size_t tipStride_;
    std::vector<uint8_t> tip_;
    std::vector<uint8_t> keep_;
};

}  // namespace ink
