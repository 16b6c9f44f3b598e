#include "ink/StrokeTracer.h"

#include <algorithm>
#include <exception>
#include <new>

namespace ink {
namespace {

constexpr size_t kTipStep = sizeof(Bytes16);  // bytes of a tip's row that are worked on at once

Sweep Downwards(const TracePoint& direction, bool& turned) {
    turned = direction.y < 0 || (direction.y == 0 && direction.x < 0);
    return turned ? Sweep{-direction.x, -direction.y} : Sweep{direction.x, direction.y};
}

// Whether two directions differ by a right angle at most. Differences stay below 2^31, so the sum fits.
bool GoesOn(const TracePoint& a, const TracePoint& b) { return a.x * b.x + a.y * b.y >= 0; }

}  // namespace

StrokeTracer::StrokeTracer(std::unique_ptr<Nib> nib)
    : nib_(std::move(nib)), reach_(nib_->Reach()), softEdges_(nib_->HasSoftEdges()), stamps_(*nib_) {
    const size_t side = 2 * static_cast<size_t>(reach_) + 1;
    tipStride_ = (side + kTipStep - 1) / kTipStep * kTipStep;
    if (!nib_->Prepare(StampCache::kMaxDelta + static_cast<int32_t>(side))) throw std::bad_alloc();
    tip_.assign(side * tipStride_, 0);
    keep_.assign(side * tipStride_, 0);
    endRoom_.resize(side * tipStride_);
    startRoom_.resize(side * tipStride_);
    const Stamp& stamp = stamps_.Get(0, 0);
    for (size_t y = 0; y < side; ++y) {
        const uint8_t* row = stamp.bytes + y * static_cast<size_t>(stamp.stride);
        std::copy(row, row + side, tip_.data() + y * tipStride_);
        std::fill_n(keep_.data() + y * tipStride_, side, uint8_t{255});
    }
}

bool StrokeTracer::Begin(const Rect& area, bool inside) {
    hasPoint_ = false;
    inside_ = inside;
    try {
        if (row_.size() < static_cast<size_t>(area.Width())) row_.resize(static_cast<size_t>(area.Width()));
    } catch (const std::exception&) {
        return false;
    }
    const int32_t margin = inside ? 0 : StampCache::kMaxDelta + 2 * reach_ + 1;
    return nib_->Prepare(area.Width()) && mask_.Prepare(area, margin);
}

void StrokeTracer::MoveTo(const TracePoint& point) {
    walk_ = {point, {}, {}};
    hasPoint_ = true;
}

void StrokeTracer::Dot(const TracePoint& point) {
    if (!IsAt(point)) MoveTo(point);
    if (Touches(point, {})) {
        mask_.Raise(stamps_.Get(0, 0), static_cast<int32_t>(point.x), static_cast<int32_t>(point.y));
    }
}

void StrokeTracer::Lines(const TracePoint* points, size_t count) {
    if (count == 0) return;
    if (!hasPoint_) MoveTo(points[0]);
    Walk walk = walk_;
    for (size_t i = 0; i < count; ++i) {
        const bool isShort = StampCache::Fits(points[i].x - walk.last.x, points[i].y - walk.last.y);
        walk = isShort ? ShortStep(walk, points[i]) : LongStep(walk, points[i]);
    }
    walk_ = walk;
}

inline StrokeTracer::Walk StrokeTracer::ShortStep(Walk walk, const TracePoint& point) {
    const TracePoint direction = point - walk.last;
    const Stamp* stamp = stamps_.Find(direction.x, direction.y);
    if (stamp == nullptr) {
        Walk moved = walk;
        stamp = &StampOf(direction, moved);
        walk = moved;
    }
    if (inside_ || Touches(walk.last, direction)) {
        mask_.Raise(*stamp, static_cast<int32_t>(walk.last.x), static_cast<int32_t>(walk.last.y));
    }
    if (direction == TracePoint{}) return walk;
    const size_t stride = static_cast<size_t>(stamp->stride);
    if (softEdges_) Join(walk, direction, {stamp->bytes + stamp->startTip, stride});
    return {point, direction, {stamp->bytes + stamp->endTip, stride}};
}

StrokeTracer::Walk StrokeTracer::LongStep(Walk walk, const TracePoint& point) {
    const TracePoint direction = point - walk.last;
    if (Touches(walk.last, direction)) AddLong(walk.last, direction);
    if (!softEdges_) return {point, direction, {}};
    Join(walk, direction, LongTip(direction, false, startRoom_));
    // Only now may the room that the last segment's end may lie in be used anew.
    return {point, direction, LongTip(direction, true, endRoom_)};
}

// Makes a stamp. That may end the last segment's, to make room: then that one is made again as well.
const Stamp& StrokeTracer::StampOf(const TracePoint& direction, Walk& walk) {
    const Stamp& made = stamps_.Get(direction.x, direction.y);
    if (StampCache::Fits(walk.direction.x, walk.direction.y)) {
        const Stamp& last = stamps_.Get(walk.direction.x, walk.direction.y);
        walk.before = {last.bytes + last.endTip, static_cast<size_t>(last.stride)};
    }
    return made;
}

bool StrokeTracer::Touches(const TracePoint& from, const TracePoint& direction) const {
    const Rect& area = mask_.Area();
    const TracePoint to{from.x + direction.x, from.y + direction.y};
    return std::max(from.x, to.x) + reach_ >= area.left && std::min(from.x, to.x) - reach_ < area.right &&
           std::max(from.y, to.y) + reach_ >= area.top && std::min(from.y, to.y) - reach_ < area.bottom;
}

void StrokeTracer::AddLong(const TracePoint& from, const TracePoint& direction) {
    bool turned = false;
    const Sweep sweep = Downwards(direction, turned);
    const TracePoint start = turned ? TracePoint{from.x + direction.x, from.y + direction.y} : from;
    const Rect& area = mask_.Area();
    const int64_t left = std::max<int64_t>(start.x + std::min<int64_t>(sweep.dx, 0) - reach_, area.left);
    const int64_t right =
        std::min<int64_t>(start.x + std::max<int64_t>(sweep.dx, 0) + reach_ + 1, area.right);
    const int64_t top = std::max<int64_t>(start.y - reach_, area.top);
    const int64_t bottom = std::min<int64_t>(start.y + sweep.dy + reach_ + 1, area.bottom);
    for (int64_t y = top; y < bottom; ++y) {
        const CoverSpan span = nib_->CoverRow(sweep, y - start.y, left - start.x,
                                              static_cast<int32_t>(right - left), row_.data());
        if (span.end <= span.first) continue;
        mask_.RaiseRow(static_cast<int32_t>(left) + span.first, static_cast<int32_t>(y),
                       row_.data() + span.first, span.end - span.first);
    }
}

StrokeTracer::TipView StrokeTracer::LongTip(const TracePoint& direction, bool atEnd,
                                            std::vector<uint8_t>& room) {
    bool turned = false;
    const Sweep sweep = Downwards(direction, turned);
    const bool atSweepEnd = atEnd != turned;
    const int64_t left = (atSweepEnd ? sweep.dx : 0) - reach_;
    const int64_t top = (atSweepEnd ? sweep.dy : 0) - reach_;
    const int32_t side = 2 * reach_ + 1;
    std::fill(room.begin(), room.end(), uint8_t{0});
    for (int32_t y = 0; y < side; ++y) {
        nib_->CoverRow(sweep, top + y, left, side, room.data() + static_cast<size_t>(y) * tipStride_);
    }
    return {room.data(), tipStride_};
}

// Two segments that go on in about the same direction share the tip at their joint and nothing else, so the
// area they cover together is the sum less the tip. The larger of the two alone would leave a thin line
// paler at every joint. On sharp turns the segments overlap more, and the larger is right.
inline void StrokeTracer::Join(const Walk& walk, const TracePoint& direction, const TipView& after) {
    if (walk.direction == TracePoint{} || !GoesOn(walk.direction, direction)) return;
    if (!inside_ && !Touches(walk.last, {})) return;
    if (reach_ == 0) {
        uint8_t* to = mask_.At(static_cast<int32_t>(walk.last.x), static_cast<int32_t>(walk.last.y));
        *to = std::max(*to, static_cast<uint8_t>(std::min(*walk.before.bytes + *after.bytes - tip_[0], 255)));
    } else {
        JoinSquare(walk.last, walk.before, after);
    }
}

void StrokeTracer::JoinSquare(const TracePoint& at, const TipView& before, const TipView& after) {
    const uint8_t* a = before.bytes;
    const uint8_t* b = after.bytes;
    uint8_t* to = mask_.At(static_cast<int32_t>(at.x) - reach_, static_cast<int32_t>(at.y) - reach_);
    // Long segments note what they cover inside the area only; the square may hang over it.
    if (a == endRoom_.data() || b == startRoom_.data()) {
        for (int32_t y = -reach_; y <= reach_; ++y) {
            mask_.Touch(static_cast<int32_t>(at.x) - reach_, static_cast<int32_t>(at.y) + y, 2 * reach_ + 1);
        }
    }
    const uint8_t* tip = tip_.data();
    const uint8_t* keep = keep_.data();
    const uint8_t* const end = tip + tip_.size();
    for (; tip != end; tip += tipStride_, keep += tipStride_) {
        for (size_t column = 0; column < tipStride_; column += kTipStep) {
            const Bytes16 rest = LoadBytes(b + column) - LoadBytes(tip + column);
            const Bytes16 joined = AddClamped(LoadBytes(a + column), rest) & LoadBytes(keep + column);
            StoreBytes(to + column, Larger(LoadBytes(to + column), joined));
        }
        a += before.stride;
        b += after.stride;
        to += mask_.Stride();
    }
}

}  // namespace ink
