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

// `width` in page pixels.
std::unique_ptr<Nib> MakeNib(PenStyle style, double width, Scale scale) {
    switch (style) {
        case PenStyle::Simple:
            return std::make_unique<SolidNib>(
                std::vector<BrushLayer>{{std::max(1, static_cast<int32_t>(scale.Length(width))), 255}});
        case PenStyle::Classic:
            return std::make_unique<SolidNib>(
                std::vector<BrushLayer>{{static_cast<int32_t>(scale.Length(2.0)), kRim},
                                        {static_cast<int32_t>(scale.Length(1.0)), kCore}});
        case PenStyle::Smooth:
            break;
    }
    return std::make_unique<SmoothNib>(scale.Length(width));
}

// What the ink of some points, at least one, can reach on the surface. Inclusive on all sides.
struct InkBox {
    int64_t left;
    int64_t top;
    int64_t right;
    int64_t bottom;

    Rect ClippedTo(const Rect& clip) const {
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

InkBox BoxOf(const Point* points, size_t count, const TraceShift& shift, int32_t reach) {
    Point low{std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::max()};
    Point high{std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::min()};
    for (size_t i = 0; i < count; ++i) {
        low.x = std::min(low.x, points[i].x);
        low.y = std::min(low.y, points[i].y);
        high.x = std::max(high.x, points[i].x);
        high.y = std::max(high.y, points[i].y);
    }
    const TracePoint first = shift(low);
    const TracePoint last = shift(high);
    return {first.x - reach, first.y - reach, last.x + reach, last.y + reach};
}

}  // namespace

struct InkPainter::Impl {
    std::unique_ptr<StrokeTracer> tracer;
    PenStyle style = PenStyle::Smooth;
    Scale scale;

    // The stroke in progress.
    bool live = false;
    TraceShift liveShift{0, 0, Scale()};
    uint32_t pixel = 0;
    uint32_t rimPixel = 0;
    std::vector<uint32_t> below;
    Rect inked;

    void SetColor(ColorRef color) {
        pixel = PixelOf(color);
        if (style == PenStyle::Classic) rimPixel = PixelOf(Shade(color, kClassicRimShade));
    }
    void EndLive() {
        if (live) tracer->Mask().Clear(inked);
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
    const size_t count = static_cast<size_t>(std::max(record.count, 0));
    if (count == 0) return true;
    const TraceShift shift(record.yOffset, scroll, scale);
    InkBox ink = BoxOf(record.Points(), count, shift, tracer->Reach());
    ink.right += kQuadOverhang;
    const Rect area = ink.ClippedTo(clip);
    if (area.IsEmpty()) return true;
    if (!tracer->Begin(area, surface.stride)) return false;

    tracer->Trace(record.Points(), count, shift, ink.LiesIn(area));
    SetColor(color);
    Compose({surface, surface.pixels, area, true});
    return true;
}

InkPainter::InkPainter() : impl_(std::make_unique<Impl>()) { SetPen(PenStyle::Smooth, 1.0); }
InkPainter::~InkPainter() = default;
InkPainter::InkPainter(InkPainter&&) noexcept = default;
InkPainter& InkPainter::operator=(InkPainter&&) noexcept = default;

bool InkPainter::SetPen(PenStyle style, double width, Scale scale) {
    EndStroke();
    try {
        impl_->tracer =
            std::make_unique<StrokeTracer>(MakeNib(style, std::clamp(width, 0.0, kWidestPen), scale), scale);
        impl_->style = style;
        impl_->scale = scale;
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

// Between points so far apart lie at least as many screen pixels as the tracer's reach, wherever they are.
int32_t InkPainter::Reach() const {
    if (!impl_->tracer) return 0;
    const int32_t dots = impl_->scale.Dots();
    return (impl_->tracer->Reach() * Scale::kPageDots + dots - 1) / dots;
}

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
    const int64_t first = impl_->scale.ToScreen(scroll);
    const int64_t top = impl_->scale.ToPage(first + box.top) - Reach();
    const int64_t bottom = impl_->scale.ToPage(first + box.bottom - 1) + Reach();
    page.VisitStrokes(top, bottom, [&](const StrokeRecord& record) {
        enough = impl_->PaintRecord(surface, record, record.Color(), scroll, box) && enough;
    });
    return enough;
}

void InkPainter::PaintHead(PixelSurface& surface, ColorRef background, int32_t scroll,
                           const Rect& clip) const {
    PaintPageHead(surface, background, scroll, clip, impl_->scale);
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

bool InkPainter::BeginStroke(PixelSurface& surface, ColorRef color, int32_t scroll) {
    impl_->EndLive();
    if (!impl_->tracer || surface.Bounds().IsEmpty() ||
        !impl_->tracer->Begin(surface.Bounds(), surface.stride)) {
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
    impl_->inked = Rect{};
    impl_->liveShift = TraceShift(scroll, scroll, impl_->scale);
    impl_->live = true;
    return true;
}

Rect InkPainter::PaintSegment(PixelSurface& surface, const Point* points, size_t count) {
    if (!impl_->live || count == 0) return Rect{};
    StrokeTracer& tracer = *impl_->tracer;
    const TraceShift shift = impl_->liveShift;
    InkBox ink = BoxOf(points, count, shift, tracer.Reach());
    const Rect dirty = ink.ClippedTo(surface.Bounds());
    ink.right += kQuadOverhang;
    tracer.Trace(points, count, shift, ink.LiesIn(surface.Bounds()));
    if (dirty.IsEmpty()) return dirty;
    impl_->Compose({surface, impl_->below.data(), dirty, false});
    tracer.Mask().ForgetNotes();
    impl_->inked = Unite(impl_->inked, dirty);
    return dirty;
}

void InkPainter::EndStroke() { impl_->EndLive(); }

}  // namespace ink
