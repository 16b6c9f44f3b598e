#include "editor/PageView.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "platform/MessageBox.h"

namespace editor {

namespace {

// Page pixels.
constexpr int32_t kEdgeMarkWidth = 3;
constexpr int32_t kEdgeMarkReach = 3;  // above and below the ink, for that of a level line to be seen

// Quiet on paper of any colour.
uint32_t EdgeMarkOn(ink::ColorRef paper) {
    constexpr uint32_t kStep = 72;
    uint32_t mark = 0;
    for (const int shift : {0, 8, 16}) {
        const uint32_t channel = paper >> shift & 0xFF;
        mark |= (channel < 128 ? channel + kStep : channel - kStep) << shift;
    }
    return ink::PixelOf(mark);
}

}  // namespace

bool PageView::Create() {
    image_ = platform::Image::Make(page_.canvasWidth, page_.canvasHeight, window_.PageScale());
    return image_.IsValid() && painter_.SetPen(page_.penStyle, page_.PenWidth(), image_.PageScale());
}

bool PageView::Resize(int32_t width, int32_t height) {
    Unmark();
    platform::Image fresh = platform::Image::Make(width, height, window_.PageScale());
    if (!fresh.IsValid() || !painter_.SetPen(page_.penStyle, page_.PenWidth(), fresh.PageScale()))
        return false;
    image_ = std::move(fresh);
    page_.canvasWidth = width;
    page_.canvasHeight = height;
    return true;
}

void PageView::Redraw() {
    Repaint(Bounds());
    window_.Invalidate();
}

void PageView::MoveTo(int32_t top) {
    Unmark();
    const ink::Scale scale = image_.PageScale();
    const int64_t dy = scale.ToScreen(page_.scroll) - scale.ToScreen(top);
    const ink::Rect all = Bounds();
    page_.scroll = top;
    if (std::llabs(dy) >= all.bottom) {
        const platform::WaitCursor wait;
        Redraw();
        return;
    }
    const auto rows = static_cast<int32_t>(dy);
    MoveImageRows(rows);
    window_.ScrollPixels(rows);
    const ink::Rect strip{0, rows > 0 ? 0 : all.bottom + rows, all.right, rows > 0 ? rows : all.bottom};
    Repaint(strip);
    window_.ShowPixels(image_, strip);
}

void PageView::Wipe(const ink::Rect& area) {
    const ink::Rect inside = Intersect(InImage(area), Bounds());
    ink::PixelSurface surface = image_.Surface();
    for (int32_t y = inside.top; y < inside.bottom; ++y) {
        std::fill(surface.Row(y) + inside.left, surface.Row(y) + inside.right,
                  ink::PixelOf(page_.background));
    }
    painter_.PaintHead(surface, page_.background, page_.scroll, inside);
    window_.ShowPixels(image_, inside);
}

void PageView::BeginStroke() {
    ink::PixelSurface surface = image_.Surface();
    painter_.BeginStroke(surface, page_.penColors[0], page_.scroll);
}

void PageView::PaintSegment(const ink::Point* points, size_t count) {
    ink::PixelSurface surface = image_.Surface();
    window_.ShowPixels(image_, painter_.PaintSegment(surface, points, count));
}

void PageView::FinishStroke(const ink::Rect& box) {
    const int32_t reach = Reach();
    ink::Rect inked = Inflate(box, reach, reach);
    if (marksInkBeyond_ && box.right > page_.canvasWidth) {
        inked = Inflate(inked, 0, kEdgeMarkReach);
        inked.left = std::min(inked.left, page_.canvasWidth - kEdgeMarkWidth);
    }
    const ink::Rect area = Intersect(InImage(inked), Bounds());
    Repaint(area);
    window_.ShowPixels(image_, area);
}

void PageView::MarkDot(ink::Point place) {
    Unmark();
    ink::PixelSurface surface = image_.Surface();
    if (!painter_.BeginStroke(surface, page_.penColors[0], page_.scroll)) return;
    const ink::Rect dot = painter_.PaintSegment(surface, &place, 1);
    painter_.EndStroke();
    ShowMark(dot);
}

void PageView::MarkSquare(ink::Point place, int32_t reach) {
    Unmark();
    const ink::Rect square = InImage({place.x - reach, place.y - reach, place.x + reach, place.y + reach});
    const int32_t width = ScreenPixels(1);
    const ink::Rect hollow = Inflate(square, -width, -width);
    ink::PixelSurface surface = image_.Surface();
    const ink::Rect inside = Intersect(square, Bounds());
    for (int32_t y = inside.top; y < inside.bottom; ++y) {
        for (int32_t x = inside.left; x < inside.right; ++x) {
            if (!hollow.Contains({x, y})) surface.Row(y)[x] ^= 0x00FFFFFF;
        }
    }
    ShowMark(inside);
}

void PageView::Unmark() {
    if (!mark_.IsEmpty()) window_.ShowPixels(image_, mark_);
    mark_ = {};
}

void PageView::InvertRows(int32_t top, int32_t bottom) {
    window_.InvertPixels(Intersect(InImage({0, top, page_.canvasWidth, bottom}), Bounds()));
}

ink::Rect PageView::InImage(const ink::Rect& view) const {
    return image_.PageScale().ToSurface(view, page_.scroll);
}

int32_t PageView::ScreenPixels(int32_t pagePixels) const {
    return static_cast<int32_t>(image_.PageScale().ToScreen(pagePixels));
}

// The page image does not keep the mark.
void PageView::ShowMark(const ink::Rect& area) {
    window_.ShowPixels(image_, area);
    Repaint(area);
    mark_ = area;
}

void PageView::Repaint(const ink::Rect& area) {
    ink::PixelSurface surface = image_.Surface();
    painter_.Repaint(surface, page_, page_.scroll, area);
    const ink::Rect inside = Intersect(area, Bounds());
    if (!marksInkBeyond_ || inside.IsEmpty() || inside.right < Bounds().right) return;
    const ink::Scale scale = image_.PageScale();
    const int64_t first = scale.ToScreen(page_.scroll) + inside.top;
    const int64_t top = scale.ToPage(first) - kEdgeMarkReach;
    const int64_t bottom = scale.ToPage(first + inside.Height() - 1) + 1 + kEdgeMarkReach;
    page_.VisitStrokes(top, bottom, [&](const ink::StrokeRecord& stroke) { MarkRowsBeyond(inside, stroke); });
}

// The rows of what lies to the right of the view, of lines that cross its edge from there on. In floating
// point: a damaged file may hold any number.
void PageView::MarkRowsBeyond(const ink::Rect& area, const ink::StrokeRecord& stroke) {
    const ink::PixelSurface surface = image_.Surface();
    const ink::Scale scale = image_.PageScale();
    const double edge = page_.canvasWidth;
    const int32_t left = std::max(area.left, surface.width - ScreenPixels(kEdgeMarkWidth));
    const auto row = [&](double y) {
        return static_cast<int32_t>(std::clamp<double>(scale.Length(y), area.top, area.bottom));
    };
    for (int32_t i = 0; i < stroke.count; ++i) {
        double x = stroke.Points()[i].x;
        double y = static_cast<double>(stroke.PageY(i) - page_.scroll);
        double fromX = i == 0 ? x : stroke.Points()[i - 1].x;
        double fromY = i == 0 ? y : static_cast<double>(stroke.PageY(i - 1) - page_.scroll);
        if (std::max(x, fromX) < edge) continue;
        if (fromX > x) std::swap(x, fromX), std::swap(y, fromY);
        if (fromX < edge) fromY += (y - fromY) * (edge - fromX) / (x - fromX);
        const auto [low, high] = std::minmax(fromY, y);
        const int32_t bottom = row(high + kEdgeMarkReach + 1);
        for (int32_t at = row(low - kEdgeMarkReach); at < bottom; ++at)
            std::fill(surface.Row(at) + left, surface.Row(at) + area.right, EdgeMarkOn(page_.background));
    }
}

void PageView::MoveImageRows(int32_t dy) {
    const ink::PixelSurface surface = image_.Surface();
    const int32_t kept = surface.height - std::abs(dy);
    const size_t bytes = static_cast<size_t>(kept) * static_cast<size_t>(surface.stride) * sizeof(uint32_t);
    std::memmove(surface.Row(std::max(dy, 0)), surface.Row(std::max(-dy, 0)), bytes);
}

}  // namespace editor
