#include "ink/InkPainter.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <vector>

#include "ink/Compose.h"
#include "ink/PageHead.h"
#include "ink/SmoothNib.h"
#include "ink/SolidNib.h"
#include "ink/StrokeTracer.h"

namespace ink {
namespace {

// Mask levels of the classic pen.
constexpr uint8_t kRim = 1;
constexpr uint8_t kCore = 2;
constexpr float kRimShade = 0.39f;

constexpr double kWidest = 25.5;

PenStyle StyleOf(uint8_t style) {
    if (style == 0) return PenStyle::Simple;
    return style == 1 ? PenStyle::Classic : PenStyle::Smooth;
}

std::unique_ptr<Nib> MakeNib(PenStyle style, double width) {
    switch (style) {
        case PenStyle::Simple:
            return std::make_unique<SolidNib>(
                std::vector<BrushLayer>{{std::max(1, static_cast<int32_t>(width)), 255}});
        case PenStyle::Classic:
            return std::make_unique<SolidNib>(std::vector<BrushLayer>{{2, kRim}, {1, kCore}});
        case PenStyle::Smooth:
            break;
    }
    return std::make_unique<SmoothNib>(width);
}

// Ink half a billion rows away can't be told from ink farther away, and differences stay far from overflow.
int64_t Bounded(int64_t coordinate) {
    constexpr int64_t kLimit = int64_t{1} << 29;
    return std::clamp(coordinate, -kLimit, kLimit);
}

// What the ink of some points can reach; empty (right < left) without points. Inclusive on all sides.
struct InkBox {
    int64_t left;
    int64_t top;
    int64_t right;
    int64_t bottom;

    Rect Inside(const Rect& clip) const {
        const int64_t l = std::max<int64_t>(left, clip.left);
        const int64_t t = std::max<int64_t>(top, clip.top);
        const int64_t r = std::min<int64_t>(right + 1, clip.right);
        const int64_t b = std::min<int64_t>(bottom + 1, clip.bottom);
        if (l >= r || t >= b) return Rect{};
        return Rect{static_cast<int32_t>(l), static_cast<int32_t>(t), static_cast<int32_t>(r),
                    static_cast<int32_t>(b)};
    }
    bool LiesIn(const Rect& area) const {
        return left >= area.left && right < area.right && top >= area.top && bottom < area.bottom;
    }
};

InkBox BoxOf(const Point* points, size_t count, int32_t reach) {
    int32_t left = std::numeric_limits<int32_t>::max();
    int32_t top = left;
    int32_t right = std::numeric_limits<int32_t>::min();
    int32_t bottom = right;
    for (size_t i = 0; i < count; ++i) {
        left = std::min(left, points[i].x);
        top = std::min(top, points[i].y);
        right = std::max(right, points[i].x);
        bottom = std::max(bottom, points[i].y);
    }
    return {static_cast<int64_t>(left) - reach, static_cast<int64_t>(top) - reach,
            static_cast<int64_t>(right) + reach, static_cast<int64_t>(bottom) + reach};
}

// Connected points, moved `down` to page coordinates and then to the surface; one point is a dot. Goes on
// where the tracer stands, or starts a new line elsewhere.
void TraceAll(StrokeTracer& tracer, const Point* points, size_t count, int64_t down, int64_t scroll) {
    constexpr size_t kPart = 128;
    TracePoint part[kPart];
    for (size_t done = 0; done < count;) {
        const size_t size = std::min(kPart, count - done);
        for (size_t i = 0; i < size; ++i) {
            part[i] = {Bounded(points[done + i].x), Bounded(points[done + i].y + down) - scroll};
        }
        if (count == 1) {
            tracer.Dot(part[0]);
        } else if (done == 0) {
            if (!tracer.IsAt(part[0])) tracer.MoveTo(part[0]);
            tracer.Lines(part + 1, size - 1);
        } else {
            tracer.Lines(part, size);
        }
        done += size;
    }
}

}  // namespace

struct InkPainter::Impl {
    std::unique_ptr<StrokeTracer> tracer;
    PenStyle style = PenStyle::Smooth;

    // The stroke in progress.
    bool live = false;
    uint32_t pixel = 0;
    uint32_t rimPixel = 0;
    std::vector<uint32_t> below;

    void SetColor(ColorRef color) {
        pixel = PixelOf(color);
        if (style == PenStyle::Classic) rimPixel = PixelOf(Shade(color, kRimShade));
    }
    void EndLive() {
        if (live) tracer->Mask().Clear();
        live = false;
    }
    void Compose(const ComposeJob& job);
    bool PaintRecord(PixelSurface& surface, const StrokeRecord& record, ColorRef color, int32_t scroll,
                     const Rect& clip);
};

void InkPainter::Impl::Compose(const ComposeJob& job) {
    if (style == PenStyle::Classic) {
        ComposeLevels(job, tracer->Mask(), rimPixel, pixel);
    } else {
        ComposeShares(job, tracer->Mask(), pixel);
    }
}

bool InkPainter::Impl::PaintRecord(PixelSurface& surface, const StrokeRecord& record, ColorRef color,
                                   int32_t scroll, const Rect& clip) {
    const Point* points = record.Points();
    const size_t count = static_cast<size_t>(std::max(record.count, 0));
    const int64_t down = static_cast<int64_t>(record.yOffset);
    InkBox ink = BoxOf(points, count, tracer->Reach());
    ink.top = Bounded(ink.top + down) - scroll;
    ink.bottom = Bounded(ink.bottom + down) - scroll;
    const Rect area = ink.Inside(clip);
    if (area.IsEmpty()) return true;
    const bool inside = ink.LiesIn(area);
    if (!tracer->Begin(area, inside)) return false;

    TraceAll(*tracer, points, count, down, scroll);
    SetColor(color);
    Compose({surface, surface.pixels, area, clip, true});
    if (inside) {
        tracer->Mask().SetTaken();
    } else {
        tracer->Mask().Clear();
    }
    return true;
}

InkPainter::InkPainter() : impl_(std::make_unique<Impl>()) { SetPen(2, 1.0); }
InkPainter::~InkPainter() = default;
InkPainter::InkPainter(InkPainter&&) noexcept = default;
InkPainter& InkPainter::operator=(InkPainter&&) noexcept = default;

bool InkPainter::SetPen(uint8_t style, double width) {
    EndStroke();
    try {
        const PenStyle wanted = StyleOf(style);
        impl_->tracer = std::make_unique<StrokeTracer>(MakeNib(wanted, std::clamp(width, 0.0, kWidest)));
        impl_->style = wanted;
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

int32_t InkPainter::Reach() const { return impl_->tracer ? impl_->tracer->Reach() : 0; }

bool InkPainter::Repaint(PixelSurface& surface, const InkPage& page, int32_t scroll, const Rect& clip) {
    const Rect box = Intersect(clip, surface.Bounds());
    if (box.IsEmpty()) return true;
    for (int32_t y = box.top; y < box.bottom; ++y) {
        std::fill(surface.Row(y) + box.left, surface.Row(y) + box.right, PixelOf(page.background));
    }
    PaintHead(surface, page.background, scroll, box);

    impl_->EndLive();
    if (!impl_->tracer) return false;
    bool enough = true;
    // Strokes that end outside the rows still reach into them by half the pen's width.
    const int64_t top = static_cast<int64_t>(scroll) + box.top - Reach();
    const int64_t bottom = static_cast<int64_t>(scroll) + box.bottom - 1 + Reach();
    page.VisitStrokes(top, bottom, [&](const StrokeRecord& record) {
        enough = impl_->PaintRecord(surface, record, record.Color(), scroll, box) && enough;
    });
    return enough;
}

void InkPainter::PaintHead(PixelSurface& surface, ColorRef background, int32_t scroll, const Rect& clip) {
    PaintPageHead(surface, background, scroll, clip);
}

bool InkPainter::PaintStroke(PixelSurface& surface, const StrokeRecord& record, int32_t scroll,
                             const Rect& clip) {
    return PaintStroke(surface, record, record.Color(), scroll, clip);
}

bool InkPainter::PaintStroke(PixelSurface& surface, const StrokeRecord& record, ColorRef color,
                             int32_t scroll, const Rect& clip) {
    const Rect box = Intersect(clip, surface.Bounds());
    if (box.IsEmpty()) return true;
    impl_->EndLive();
    return impl_->tracer && impl_->PaintRecord(surface, record, color, scroll, box);
}

bool InkPainter::BeginStroke(PixelSurface& surface, ColorRef color) {
    impl_->EndLive();
    if (!impl_->tracer || surface.Bounds().IsEmpty() || !impl_->tracer->Begin(surface.Bounds(), false)) {
        return false;
    }
    const size_t stride = static_cast<size_t>(surface.stride);
    try {
        impl_->below.resize(stride * static_cast<size_t>(surface.height));
    } catch (const std::exception&) {
        return false;
    }
    for (int32_t y = 0; y < surface.height; ++y) {
        std::copy(surface.Row(y), surface.Row(y) + surface.width,
                  impl_->below.data() + static_cast<size_t>(y) * stride);
    }
    impl_->SetColor(color);
    impl_->live = true;
    return true;
}

Rect InkPainter::PaintSegment(PixelSurface& surface, const Point* points, size_t count) {
    if (!impl_->live || count == 0) return Rect{};
    StrokeTracer& tracer = *impl_->tracer;
    TraceAll(tracer, points, count, 0, 0);
    const Rect dirty = BoxOf(points, count, tracer.Reach()).Inside(surface.Bounds());
    if (dirty.IsEmpty()) return dirty;
    impl_->Compose({surface, impl_->below.data(), dirty, surface.Bounds(), false});
    return dirty;
}

void InkPainter::EndStroke() { impl_->EndLive(); }

}  // namespace ink
