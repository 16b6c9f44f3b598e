#include "ink/StrokeTracer.h"

#include <cstring>
#include <exception>

#include "ink/Lanes.h"

namespace ink {
namespace {

Sweep Downwards(const TracePoint& direction, bool& turned) {
    turned = direction.y < 0 || (direction.y == 0 && direction.x < 0);
    return turned ? Sweep{-direction.x, -direction.y} : Sweep{direction.x, direction.y};
}

// Whether two directions differ by a right angle at most. Differences stay below 2^31, so the sum fits.
bool GoesOn(const TracePoint& a, const TracePoint& b) { return a.x * b.x + a.y * b.y >= 0; }

}  // namespace

StrokeTracer::StrokeTracer(std::unique_ptr<Nib> nib, Scale scale)
    : nib_(std::move(nib)),
      reach_(nib_->Reach()),
      softEdges_(nib_->HasSoftEdges()),
      stamps_(*nib_, scale),
      joint_(stamps_.RimBatches()),
      endRoom_(stamps_.RimBatches()),
      startRoom_(stamps_.RimBatches()),
      square_(static_cast<size_t>((2 * reach_ + 1) * (2 * reach_ + 1))) {}

bool StrokeTracer::Begin(const Rect& area, int32_t stride) {
    hasPoint_ = false;
    try {
        if (row_.size() < static_cast<size_t>(area.Width())) row_.resize(static_cast<size_t>(area.Width()));
    } catch (const std::exception&) {
        return false;
    }
    stamps_.SetStride(stride);
    return nib_->Prepare(area.Width()) && mask_.Prepare(area, stride);
}

void StrokeTracer::Trace(const Point* points, size_t count, const TraceShift& shift, bool inside) {
    const TracePoint first = shift(points[0]);
    if (!hasPoint_ || !(walk_.last == first)) walk_ = {first, {}, stamps_.Rim().batches};
    hasPoint_ = true;
    // Where a line goes on its tip is there already, but joining changes what has to be painted around it.
    AddTip(first);
    for (size_t done = 1; done < count;) {
        done += TraceStamps(points + done, count - done, shift, inside);
        if (done < count) Step(shift(points[done++]));
    }
}

// Nearly all of the work: segments whose stamps are made and lie inside. Returns how many points that were.
size_t StrokeTracer::TraceStamps(const Point* points, size_t count, const TraceShift& shift, bool inside) {
    const QuadList rim = stamps_.Rim();
    QuadFeed feed(mask_);
    Walk walk = walk_;
    size_t done = 0;
    for (; done < count; ++done) {
        const TracePoint point = shift(points[done]);
        const TracePoint direction = point - walk.last;
        if (!stamps_.Fits(direction.x, direction.y)) break;
        const Stamp stamp = stamps_.Find(direction.x, direction.y);
        if (!stamp.IsMade() || !(inside || LiesInside(walk.last, direction))) break;
        const uint32_t place = mask_.PlaceOf(walk.last.x, walk.last.y);
        if (softEdges_) feed.Joint(place, rim, Before(walk, direction), stamps_.StartRim(stamp));
        feed.Body(place, stamps_.Body(stamp));
        walk = {point, direction, stamps_.EndRim(stamp)};
    }
    walk_ = walk;
    feed.End();
    return done;
}

// Any other segment.
void StrokeTracer::Step(const TracePoint& point) {
    const TracePoint direction = point - walk_.last;
    if (direction == TracePoint{}) {
        AddTip(point);
    } else if (stamps_.Fits(direction.x, direction.y)) {
        ShortStep(point, direction);
    } else {
        LongStep(point, direction);
    }
}

void StrokeTracer::ShortStep(const TracePoint& point, const TracePoint& direction) {
    const Stamp stamp = stamps_.Get(direction.x, direction.y);
    // Making it may have ended the last segment's stamp.
    const TracePoint& last = walk_.direction;
    if (!(last == TracePoint{}) && stamps_.Fits(last.x, last.y)) {
        walk_.before = stamps_.EndRim(stamps_.Get(last.x, last.y));
    }
    if (Touches(walk_.last, direction)) {
        if (softEdges_) AddJoint(direction, stamps_.StartRim(stamp));
        mask_.RaiseClipped(walk_.last.x, walk_.last.y, stamps_.Body(stamp));
    }
    walk_ = {point, direction, stamps_.EndRim(stamp)};
}

void StrokeTracer::LongStep(const TracePoint& point, const TracePoint& direction) {
    if (Touches(walk_.last, direction)) {
        AddLong(walk_.last, direction);
        if (softEdges_) AddJoint(direction, LongRim(direction, false, startRoom_));
    }
    // Only now may the room that the last segment's end may lie in be used anew.
    walk_ = {point, direction, softEdges_ ? LongRim(direction, true, endRoom_) : nullptr};
}

bool StrokeTracer::LiesInside(const TracePoint& from, const TracePoint& direction) const {
    const Rect& area = mask_.Area();
    const TracePoint to{from.x + direction.x, from.y + direction.y};
    return std::min(from.x, to.x) - reach_ >= area.left &&
           std::max(from.x, to.x) + reach_ + kQuadOverhang < area.right &&
           std::min(from.y, to.y) - reach_ >= area.top && std::max(from.y, to.y) + reach_ < area.bottom;
}

bool StrokeTracer::Touches(const TracePoint& from, const TracePoint& direction) const {
    const Rect& area = mask_.Area();
    const TracePoint to{from.x + direction.x, from.y + direction.y};
    return std::max(from.x, to.x) + reach_ >= area.left && std::min(from.x, to.x) - reach_ < area.right &&
           std::max(from.y, to.y) + reach_ >= area.top && std::min(from.y, to.y) - reach_ < area.bottom;
}

void StrokeTracer::AddTip(const TracePoint& at) {
    if (LiesInside(at, {})) {
        QuadFeed feed(mask_);
        feed.Body(mask_.PlaceOf(at.x, at.y), stamps_.Tip());
        feed.End();
    } else if (Touches(at, {})) {
        mask_.RaiseClipped(at.x, at.y, stamps_.Tip());
    }
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
        if (span.IsEmpty()) continue;
        mask_.RaiseRow(static_cast<int32_t>(left) + span.first, static_cast<int32_t>(y),
                       row_.data() + span.first, span.end - span.first);
    }
}

const QuadBatch* StrokeTracer::LongRim(const TracePoint& direction, bool atEnd,
                                       std::vector<QuadBatch>& room) {
    bool turned = false;
    const Sweep sweep = Downwards(direction, turned);
    const bool atSweepEnd = atEnd != turned;
    const int64_t left = (atSweepEnd ? sweep.dx : 0) - reach_;
    const int64_t top = (atSweepEnd ? sweep.dy : 0) - reach_;
    const size_t side = 2 * static_cast<size_t>(reach_) + 1;
    std::fill(square_.begin(), square_.end(), uint8_t{0});
    for (size_t y = 0; y < side; ++y) {
        nib_->CoverRow(sweep, top + static_cast<int64_t>(y), left, static_cast<int32_t>(side),
                       &square_[y * side]);
    }
    const QuadList rim = stamps_.Rim();
    for (size_t i = 0; i < rim.count; ++i) {
        const int32_t right = rim.places[i].x + reach_;
        const int32_t down = rim.places[i].y + reach_;
        const size_t x = static_cast<size_t>(right);
        const size_t y = static_cast<size_t>(down);
        uint8_t bytes[kQuadPixels] = {};
        std::copy_n(&square_[y * side + x], std::min<size_t>(side - x, kQuadPixels), bytes);
        std::memcpy(&room[i / kQuadsPerBatch].shares[i % kQuadsPerBatch], bytes, kQuadPixels);
    }
    return room.data();
}

// Two segments that go on in about the same direction share the tip at their joint and nothing else, so the
// area they cover together is the sum less the tip. The larger of the two alone would leave a thin line
// paler at every joint. On sharp turns the segments overlap more, and the larger is right: the one before is
// raised already, so the tip stands for it in the sum.
inline const QuadBatch* StrokeTracer::Before(const Walk& walk, const TracePoint& direction) const {
    return GoesOn(walk.direction, direction) ? walk.before : stamps_.Rim().batches;
}

void StrokeTracer::AddJoint(const TracePoint& direction, const QuadBatch* after) {
    QuadList joint = stamps_.Rim();
    const QuadBatch* before = Before(walk_, direction);
    for (size_t i = 0; i < joint_.size(); ++i) {
        StoreBytes(joint_[i].shares, JoinShares(before[i], after[i], joint.batches[i]));
    }
    joint.batches = joint_.data();
    mask_.RaiseClipped(walk_.last.x, walk_.last.y, joint);
}

}  // namespace ink
