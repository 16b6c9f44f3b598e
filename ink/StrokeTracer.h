// Turns the points of a stroke into coverage.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "ink/Geometry.h"
#include "ink/Nib.h"
#include "ink/Scale.h"
#include "ink/StampCache.h"
#include "ink/StrokeMask.h"

namespace ink {

// A point in surface coordinates, which a page's coordinates may leave far behind.
struct TracePoint {
    int64_t x = 0;
    int64_t y = 0;
};

inline bool operator==(const TracePoint& a, const TracePoint& b) { return a.x == b.x && a.y == b.y; }
inline TracePoint operator-(const TracePoint& a, const TracePoint& b) { return {a.x - b.x, a.y - b.y}; }

// Where a stroke's points lie on the surface.
class TraceShift {
  public:
    // `down` from the stroke to the page; page row `scroll` at the surface's top.
    TraceShift(int64_t down, int32_t scroll, Scale scale)
        : down_(down), scale_(scale), top_(scale.ToScreen(scroll)) {}

    TracePoint operator()(const Point& point) const {
        return {OnScreen(point.x), OnScreen(point.y + down_) - top_};
    }

  private:
    // Ink hundreds of millions of rows away can't be told from ink farther away. Differences stay below 2^31,
    // and twice the product of two within 64 bits.
    static constexpr int64_t kMostPage = int64_t{1} << 29;
    static constexpr int64_t kMostScreen = (int64_t{1} << 30) - 1;

    int64_t OnScreen(int64_t page) const {
        const int64_t bounded = std::clamp(page, -kMostPage, kMostPage);
        if (scale_ == Scale()) return bounded;
        return std::clamp(scale_.ToScreen(bounded), -kMostScreen, kMostScreen);
    }

    int64_t down_;
    Scale scale_;
    int64_t top_;
};

// Points are the page's, and may be up to 2^34 screen pixels away from the area. The mask depends on the
// sequence of points only: not on how it was split into calls, and inside the area not on the area.
class StrokeTracer {
  public:
    // Throws bad_alloc.
    explicit StrokeTracer(std::unique_ptr<Nib> nib, Scale scale = Scale());

    // Starts a new stroke on an area with nothing covered, of a picture with that many pixels from row to
    // row. False when memory is short.
    bool Begin(const Rect& area, int32_t stride);

    // Goes through at least one point: on from where the tracer stands, if the first one is there, or else as
    // a new line. One point is a dot, which changes nothing on a line that has it as an end. `inside`
    // promises that all of the ink lies in the area, with kQuadOverhang columns to spare on its right.
    void Trace(const Point* points, size_t count, const TraceShift& shift, bool inside);

    int32_t Reach() const { return reach_; }
    StrokeMask& Mask() { return mask_; }

  private:
    // Where the pen is; a value of its own, so that it stays in registers from point to point.
    struct Walk {
        TracePoint last;
        TracePoint direction;               // of the last segment; zero when there is none
        const QuadBatch* before = nullptr;  // what the last segment covers around its end
    };

    size_t TraceStamps(const Point* points, size_t count, const TraceShift& shift, bool inside);
    void Step(const TracePoint& point);
    void ShortStep(const TracePoint& point, const TracePoint& direction);
    void LongStep(const TracePoint& point, const TracePoint& direction);
    bool LiesInside(const TracePoint& from, const TracePoint& direction) const;
    bool Touches(const TracePoint& from, const TracePoint& direction) const;
    void AddTip(const TracePoint& at);
    void AddLong(const TracePoint& from, const TracePoint& direction);
    const QuadBatch* LongRim(const TracePoint& direction, bool atEnd, std::vector<QuadBatch>& room);
    const QuadBatch* Before(const Walk& walk, const TracePoint& direction) const;
    void AddJoint(const TracePoint& direction, const QuadBatch* after);

    std::unique_ptr<Nib> nib_;
    const int32_t reach_;
    const bool softEdges_;
    StampCache stamps_;
    StrokeMask mask_;

    Walk walk_;
    bool hasPoint_ = false;

    std::vector<uint8_t> row_;
    // The rim around a joint and around the ends of long segments, and what those cover row by row.
    std::vector<QuadBatch> joint_;
    std::vector<QuadBatch> endRoom_;
    std::vector<QuadBatch> startRoom_;
    std::vector<uint8_t> square_;
};

}  // namespace ink
