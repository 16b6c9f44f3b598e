#include "ink/InkPainter.h"

#include <algorithm>
#include <exception>
#include <vector>

#include "ink/Blend.h"
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
    void Trace(const StrokeRecord& record, int32_t scroll);
    void Compose(const PixelSurface& to, const PixelSurface& from, const Rect& box);
    void PaintRecord(PixelSurface& surface, const StrokeRecord& record, ColorRef color, int32_t scroll);
};

void InkPainter::Impl::Trace(const StrokeRecord& record, int32_t scroll) {
    const Point* points = record.Points();
    const auto at = [&](int32_t i) {
        return TracePoint{Bounded(points[i].x), Bounded(record.PageY(i)) - scroll};
    };
    tracer->Lift();
    if (record.count == 1) tracer->Dot(at(0));
    for (int32_t i = 0; i < record.count && record.count > 1; ++i) {
        if (i == 0) {
            tracer->MoveTo(at(0));
        } else {
            tracer->LineTo(at(i));
        }
    }
}

void InkPainter::Impl::Compose(const PixelSurface& to, const PixelSurface& from, const Rect& box) {
    StrokeMask& mask = tracer->Mask();
    for (int32_t y = box.top; y < box.bottom; ++y) {
        const CoverSpan span = mask.RowSpan(y);
        const int32_t left = std::max(span.first, box.left);
        const int32_t right = std::min(span.end, box.right);
        if (left >= right) continue;
        const size_t count = static_cast<size_t>(right - left);
        uint32_t* out = to.Row(y) + left;
        const uint32_t* under = from.Row(y) + left;
        if (style == PenStyle::Classic) {
            ReplaceRow(out, under, mask.At(left, y), count, rimPixel, pixel);
        } else {
            BlendRow(out, under, mask.At(left, y), count, pixel);
        }
    }
}

void InkPainter::Impl::PaintRecord(PixelSurface& surface, const StrokeRecord& record, ColorRef color,
                                   int32_t scroll) {
    SetColor(color);
    Trace(record, scroll);
    Compose(surface, surface, tracer->TakeDirty());
    tracer->Mask().Clear();
}

InkPainter::InkPainter() : impl_(std::make_unique<Impl>()) {
    SetPen(2, 1.0);
}
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

int32_t InkPainter::Reach() const {
    return impl_->tracer ? impl_->tracer->Reach() : 0;
}

bool InkPainter::Repaint(PixelSurface& surface, const InkPage& page, int32_t scroll, const Rect& clip) {
    const Rect box = Intersect(clip, surface.Bounds());
    if (box.IsEmpty()) return true;
    for (int32_t y = box.top; y < box.bottom; ++y) {
        std::fill(surface.Row(y) + box.left, surface.Row(y) + box.right, PixelOf(page.background));
    }
    PaintHead(surface, page.background, scroll, box);

    impl_->EndLive();
    if (!impl_->tracer || !impl_->tracer->Begin(box)) return false;
    // Strokes that end outside the rows still reach into them by half the pen's width.
    const int64_t top = static_cast<int64_t>(scroll) + box.top - Reach();
    const int64_t bottom = static_cast<int64_t>(scroll) + box.bottom - 1 + Reach();
    page.VisitStrokes(top, bottom, [&](const StrokeRecord& record) {
        impl_->PaintRecord(surface, record, record.Color(), scroll);
    });
    return true;
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
    if (!impl_->tracer || !impl_->tracer->Begin(box)) return false;
    impl_->PaintRecord(surface, record, color, scroll);
    return true;
}

bool InkPainter::BeginStroke(PixelSurface& surface, ColorRef color) {
    impl_->EndLive();
    if (!impl_->tracer || surface.Bounds().IsEmpty() || !impl_->tracer->Begin(surface.Bounds())) return false;
    const size_t width = static_cast<size_t>(surface.width);
    try {
        impl_->below.resize(width * static_cast<size_t>(surface.height));
    } catch (const std::exception&) {
        return false;
    }
    for (int32_t y = 0; y < surface.height; ++y) {
        std::copy(surface.Row(y), surface.Row(y) + surface.width,
                  impl_->below.begin() + static_cast<std::ptrdiff_t>(static_cast<size_t>(y) * width));
    }
    impl_->SetColor(color);
    impl_->live = true;
    return true;
}

Rect InkPainter::PaintSegment(PixelSurface& surface, const Point* points, size_t count) {
    if (!impl_->live || count == 0) return Rect{};
    StrokeTracer& tracer = *impl_->tracer;
    const auto at = [points](size_t i) { return TracePoint{Bounded(points[i].x), Bounded(points[i].y)}; };
    if (count == 1) tracer.Dot(at(0));
    if (count > 1 && !tracer.IsAt(at(0))) tracer.MoveTo(at(0));
    for (size_t i = 1; i < count; ++i) tracer.LineTo(at(i));
    const Rect dirty = Intersect(tracer.TakeDirty(), surface.Bounds());
    const PixelSurface below{impl_->below.data(), surface.width, surface.height, surface.width};
    impl_->Compose(surface, below, dirty);
    return dirty;
}

void InkPainter::EndStroke() {
    impl_->EndLive();
}

}  // namespace ink
