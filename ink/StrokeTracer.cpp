#include "ink/StrokeTracer.h"

#include <algorithm>
#include <exception>

namespace ink {

// A segment turned so that it goes downwards.
struct StrokeTracer::Piece {
    TracePoint start;
    Sweep sweep;
};

StrokeTracer::StrokeTracer(std::unique_ptr<Nib> nib) : nib_(std::move(nib)), stamps_(*nib_) {
    const size_t side = 2 * static_cast<size_t>(nib_->Reach()) + 1;
    before_.resize(side * side);
    after_.resize(side * side);
    const int32_t widest = StampCache::kMaxDelta + static_cast<int32_t>(side);
    if (!nib_->Prepare(widest)) throw std::bad_alloc();
    // The tip's own coverage, which both pieces at a joint contain.
    const Stamp& stamp = stamps_.Get(Sweep{});
    tip_.reserve(side * side);
    for (size_t y = 0; y < side; ++y) {
        const uint8_t* row = stamp.bytes + y * static_cast<size_t>(stamp.stride);
        tip_.insert(tip_.end(), row, row + side);
    }
}

bool StrokeTracer::Begin(const Rect& area) {
    hasPoint_ = false;
    dirty_ = Rect{};
    try {
        if (row_.size() < static_cast<size_t>(area.Width())) row_.resize(static_cast<size_t>(area.Width()));
    } catch (const std::exception&) {
        return false;
    }
    const int32_t margin = StampCache::kMaxDelta + 2 * nib_->Reach() + 1;
    return nib_->Prepare(area.Width()) && mask_.Prepare(area, margin);
}

StrokeTracer::Piece StrokeTracer::MakePiece(const TracePoint& from, const TracePoint& to) {
    const int64_t dx = to.x - from.x;
    const int64_t dy = to.y - from.y;
    if (dy > 0 || (dy == 0 && dx >= 0)) return {from, {dx, dy}};
    return {to, {-dx, -dy}};
}

void StrokeTracer::MoveTo(const TracePoint& point) {
    last_ = point;
    direction_ = {};
    hasPoint_ = true;
}

void StrokeTracer::Dot(const TracePoint& point) {
    AddPiece({point, {}});
    if (!IsAt(point)) MoveTo(point);
}

void StrokeTracer::LineTo(const TracePoint& point) {
    if (!hasPoint_) MoveTo(point);
    const TracePoint direction{point.x - last_.x, point.y - last_.y};
    const Piece piece = MakePiece(last_, point);
    AddPiece(piece);
    if (direction == TracePoint{}) return;

    if (nib_->HasSoftEdges() && !(direction_ == TracePoint{})) {
        const double along = static_cast<double>(direction_.x) * static_cast<double>(direction.x) +
                             static_cast<double>(direction_.y) * static_cast<double>(direction.y);
        const Piece before = MakePiece({last_.x - direction_.x, last_.y - direction_.y}, last_);
        if (along >= 0.0) Join(before, piece, last_);
    }
    last_ = point;
    direction_ = direction;
}

void StrokeTracer::AddPiece(const Piece& piece) {
    const int64_t reach = nib_->Reach();
    const Rect& area = mask_.Area();
    const int64_t left =
        std::max<int64_t>(piece.start.x + std::min<int64_t>(piece.sweep.dx, 0) - reach, area.left);
    const int64_t right =
        std::min<int64_t>(piece.start.x + std::max<int64_t>(piece.sweep.dx, 0) + reach + 1, area.right);
    const int64_t top = std::max<int64_t>(piece.start.y - reach, area.top);
    const int64_t bottom = std::min<int64_t>(piece.start.y + piece.sweep.dy + reach + 1, area.bottom);
    if (left >= right || top >= bottom) return;
    const Rect box{static_cast<int32_t>(left), static_cast<int32_t>(top), static_cast<int32_t>(right),
                   static_cast<int32_t>(bottom)};
    dirty_ = Unite(dirty_, box);
    if (StampCache::Fits(piece.sweep)) {
        mask_.Raise(stamps_.Get(piece.sweep), static_cast<int32_t>(piece.start.x),
                    static_cast<int32_t>(piece.start.y));
    } else {
        AddLong(piece, box);
    }
}

void StrokeTracer::AddLong(const Piece& piece, const Rect& box) {
    for (int32_t y = box.top; y < box.bottom; ++y) {
        const CoverSpan span = nib_->CoverRow(piece.sweep, y - piece.start.y, box.left - piece.start.x,
                                              box.Width(), row_.data());
        if (span.end > span.first) {
            mask_.RaiseRow(box.left + span.first, y, row_.data() + span.first, span.end - span.first);
        }
    }
}

// Two pieces that go on in about the same direction share the tip at their joint and nothing else, so the
// area they cover together is the sum less the tip. The larger of the two alone would leave a thin line
// paler at every joint. On sharp turns the pieces overlap more, and the larger is right.
void StrokeTracer::Join(const Piece& before, const Piece& after, const TracePoint& at) {
    const int64_t reach = nib_->Reach();
    const Rect& area = mask_.Area();
    if (at.x + reach < area.left || at.x - reach >= area.right) return;
    if (at.y + reach < area.top || at.y - reach >= area.bottom) return;

    CopyWindow(before, at, before_);
    CopyWindow(after, at, after_);
    const int32_t side = 2 * static_cast<int32_t>(reach) + 1;
    size_t i = 0;
    for (int32_t y = 0; y < side; ++y) {
        uint8_t* to = mask_.At(static_cast<int32_t>(at.x - reach), static_cast<int32_t>(at.y - reach) + y);
        for (int32_t x = 0; x < side; ++x, ++i) {
            const int joined = std::min(before_[i] + after_[i] - tip_[i], 255);
            to[x] = static_cast<uint8_t>(std::max<int>(to[x], joined));
        }
    }
}

// The coverage of a piece in the square that the tip at one of its ends lies in.
void StrokeTracer::CopyWindow(const Piece& piece, const TracePoint& at, std::vector<uint8_t>& window) {
    const int64_t reach = nib_->Reach();
    const int64_t left = at.x - reach - piece.start.x;
    const int64_t top = at.y - reach - piece.start.y;
    const size_t side = 2 * static_cast<size_t>(reach) + 1;
    if (StampCache::Fits(piece.sweep)) {
        const Stamp& stamp = stamps_.Get(piece.sweep);
        const size_t stride = static_cast<size_t>(stamp.stride);
        const uint8_t* from = stamp.bytes + static_cast<size_t>(top - stamp.top) * stride +
                              static_cast<size_t>(left - stamp.left);
        uint8_t* to = window.data();
        for (size_t y = 0; y < side; ++y, from += stride) to = std::copy(from, from + side, to);
        return;
    }
    std::fill(window.begin(), window.end(), uint8_t{0});
    for (size_t y = 0; y < side; ++y) {
        nib_->CoverRow(piece.sweep, top + static_cast<int64_t>(y), left, static_cast<int32_t>(side),
                       window.data() + y * side);
    }
}

Rect StrokeTracer::TakeDirty() {
    const Rect dirty = dirty_;
    dirty_ = Rect{};
    return dirty;
}

}  // namespace ink
