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
struct TracePoint {
    int64_t x = 0;
    int64_t y = 0;
};

inline bool operator==(const TracePoint& a, const TracePoint& b) {
    return a.x == b.x && a.y == b.y;
}

// Points may be up to 2^31 away from the area. The mask depends on the sequence of points only: not on how it
// was split into calls, and inside the area not on the area.
class StrokeTracer {
  public:
    // Throws bad_alloc.
    explicit StrokeTracer(std::unique_ptr<Nib> nib);

    // Starts a new stroke on an area with nothing covered. False when memory is short.
    bool Begin(const Rect& area);
    // Forgets the last point: the next one starts a new line of the same stroke.
    void Lift() { hasPoint_ = false; }

    // Continues the stroke; its first point alone is a dot only if nothing follows (see Dot).
    void MoveTo(const TracePoint& point);
    void LineTo(const TracePoint& point);
    // The pen's tip without movement. Changes nothing on a line that has it as an end.
    void Dot(const TracePoint& point);

    bool IsAt(const TracePoint& point) const { return hasPoint_ && last_ == point; }
    int32_t Reach() const { return nib_->Reach(); }
    StrokeMask& Mask() { return mask_; }
    // Around all coverage added since the last call, inside the area.
    Rect TakeDirty();

  private:
    struct Piece;

    static Piece MakePiece(const TracePoint& from, const TracePoint& to);
    void AddPiece(const Piece& piece);
    void AddLong(const Piece& piece, const Rect& box);
    void Join(const Piece& before, const Piece& after, const TracePoint& at);
    void CopyWindow(const Piece& piece, const TracePoint& at, std::vector<uint8_t>& window);

    std::unique_ptr<Nib> nib_;
    StampCache stamps_;
    StrokeMask mask_;
    std::vector<uint8_t> row_;
    std::vector<uint8_t> before_;
    std::vector<uint8_t> after_;
    std::vector<uint8_t> tip_;
    TracePoint last_;
    TracePoint direction_;  // of the last piece; zero when there is none
    bool hasPoint_ = false;
    Rect dirty_;
};

}  // namespace ink
