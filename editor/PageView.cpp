#include "editor/PageView.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "platform/MessageBox.h"

namespace editor {

namespace {

constexpr int32_t kEdgeMarkWidth = 3;
constexpr int32_t kEdgeMarkReach = 3;  // rows above and below the ink, for that of a level line to be seen

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
    image_ = platform::Image::Make(page_.canvasWidth, page_.canvasHeight);
    return image_.IsValid() && painter_.SetPen(page_.penStyle, page_.PenWidth());
}

bool PageView::Resize(int32_t width, int32_t height) {
    Unmark();
    platform::Image fresh = platform::Image::Make(width, height);
    if (!fresh.IsValid()) return false;
    image_ = std::move(fresh);
    page_.canvasWidth = width;
    page_.canvasHeight = height;
    return true;
}

void PageView::Redraw() {
    DrawRows(0, page_.canvasHeight);
    window_.Invalidate();
}

void PageView::MoveTo(int32_t top) {
    Unmark();
    const int64_t dy = int64_t{page_.scroll} - top;
    page_.scroll = top;
    if (std::llabs(dy) >= page_.canvasHeight) {
        const platform::WaitCursor wait;
        Redraw();
        return;
    }
    const auto rows = static_cast<int32_t>(dy);
    MoveImageRows(rows);
    window_.ScrollPixels(rows);
    const int32_t stripTop = rows > 0 ? 0 : page_.canvasHeight + rows;
    const int32_t stripBottom = rows > 0 ? rows : page_.canvasHeight;
    DrawRows(stripTop, stripBottom);
    window_.Show(image_, {0, stripTop, page_.canvasWidth, stripBottom});
}

void PageView::Wipe(const ink::Rect& area) {
    const ink::Rect inside = Intersect(area, Bounds());
    ink::PixelSurface surface = image_.Surface();
    for (int32_t y = inside.top; y < inside.bottom; ++y) {
        std::fill(surface.Row(y) + inside.left, surface.Row(y) + inside.right,
                  ink::PixelOf(page_.background));
    }
    painter_.PaintHead(surface, page_.background, page_.scroll, inside);
    window_.Show(image_, inside);
}

void PageView::BeginStroke() {
    ink::PixelSurface surface = image_.Surface();
    painter_.BeginStroke(surface, page_.penColors[0], page_.scroll);
}

void PageView::PaintSegment(const ink::Point* points, size_t count) {
    ink::PixelSurface surface = image_.Surface();
    window_.Show(image_, painter_.PaintSegment(surface, points, count));
}

void PageView::FinishStroke(const ink::Rect& box) {
    const int32_t reach = Reach();
    ink::Rect inked = Inflate(box, reach, reach);
    if (marksInkBeyond_ && box.right > page_.canvasWidth) {
        inked = Inflate(inked, 0, kEdgeMarkReach);
        inked.left = std::min(inked.left, page_.canvasWidth - kEdgeMarkWidth);
    }
    const ink::Rect area = Intersect(inked, Bounds());
    Repaint(area);
    window_.Show(image_, area);
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
    const ink::Rect square{place.x - reach, place.y - reach, place.x + reach, place.y + reach};
    ink::PixelSurface surface = image_.Surface();
    const ink::Rect inside = Intersect(square, Bounds());
    for (int32_t y = inside.top; y < inside.bottom; ++y) {
        const bool isEdge = y == square.top || y == square.bottom - 1;
        for (int32_t x = inside.left; x < inside.right; ++x) {
            if (isEdge || x == square.left || x == square.right - 1) surface.Row(y)[x] ^= 0x00FFFFFF;
        }
    }
    ShowMark(inside);
}

void PageView::Unmark() {
    if (!mark_.IsEmpty()) window_.Show(image_, mark_);
    mark_ = {};
}

// The page image does not keep the mark.
void PageView::ShowMark(const ink::Rect& area) {
    window_.Show(image_, area);
    Repaint(area);
    mark_ = area;
}

void PageView::Repaint(const ink::Rect& area) {
    ink::PixelSurface surface = image_.Surface();
    painter_.Repaint(surface, page_, page_.scroll, area);
    const ink::Rect inside = Intersect(area, Bounds());
    if (!marksInkBeyond_ || inside.IsEmpty() || inside.right < page_.canvasWidth) return;
    const int64_t top = int64_t{page_.scroll} + inside.top - kEdgeMarkReach;
    page_.VisitStrokes(top, top + inside.Height() + 2 * kEdgeMarkReach,
                       [&](const ink::StrokeRecord& stroke) { MarkRowsBeyond(inside, stroke); });
}

// The rows of what lies to the right of the view, of lines that cross its edge from there on. In floating
// point: a damaged file may hold any number.
void PageView::MarkRowsBeyond(const ink::Rect& area, const ink::StrokeRecord& stroke) {
    const ink::PixelSurface surface = image_.Surface();
    const double edge = page_.canvasWidth;
    const int32_t left = std::max(area.left, page_.canvasWidth - kEdgeMarkWidth);
    for (int32_t i = 0; i < stroke.count; ++i) {
        double x = stroke.Points()[i].x;
        double y = static_cast<double>(stroke.PageY(i) - page_.scroll);
        double fromX = i == 0 ? x : stroke.Points()[i - 1].x;
        double fromY = i == 0 ? y : static_cast<double>(stroke.PageY(i - 1) - page_.scroll);
        if (std::max(x, fromX) < edge) continue;
        if (fromX > x) std::swap(x, fromX), std::swap(y, fromY);
        if (fromX < edge) fromY += (y - fromY) * (edge - fromX) / (x - fromX);
        const auto [low, high] = std::minmax(fromY, y);
        const auto top =
            static_cast<int32_t>(std::clamp<double>(low - kEdgeMarkReach, area.top, area.bottom));
        const auto bottom =
            static_cast<int32_t>(std::clamp<double>(high + kEdgeMarkReach + 1, area.top, area.bottom));
        for (int32_t row = top; row < bottom; ++row)
            std::fill(surface.Row(row) + left, surface.Row(row) + area.right, EdgeMarkOn(page_.background));
    }
}

void PageView::DrawRows(int32_t top, int32_t bottom) { Repaint({0, top, page_.canvasWidth, bottom}); }

void PageView::MoveImageRows(int32_t dy) {
    const ink::PixelSurface surface = image_.Surface();
    const int32_t kept = surface.height - std::abs(dy);
    const size_t bytes = static_cast<size_t>(kept) * static_cast<size_t>(surface.stride) * sizeof(uint32_t);
    std::memmove(surface.Row(std::max(dy, 0)), surface.Row(std::max(-dy, 0)), bytes);
}

}  // namespace editor
