// Prints what the rasteriser's stages hold of some small strokes, as panels of coloured cells for
// tools/draw_stages.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

#include "ink/InkPainter.h"
#include "ink/SmoothNib.h"
#include "ink/SolidNib.h"
#include "ink/StrokeTracer.h"

namespace {

using ink::Point;
using ink::QuadList;
using Points = std::vector<Point>;

constexpr uint32_t kRimColor = 0x2060D0;
constexpr uint32_t kBodyColor = 0xD06010;
constexpr uint32_t kInnerColor = 0x209040;

// A part of a picture: cells, outlines of quads, and points of the pen.
class Panel {
  public:
    Panel(int32_t columns, int32_t rows)
        : columns_(columns), cells_(static_cast<size_t>(columns * rows), 0xFFFFFF) {}

    void Cell(int32_t x, int32_t y, uint32_t color) { cells_[static_cast<size_t>(y * columns_ + x)] = color; }
    void Share(int32_t x, int32_t y, uint32_t share) { Cell(x, y, (255 - share) * 0x010101); }
    void Quads(const QuadList& list, size_t first, Point at, uint32_t color) {
        for (size_t i = first; i < list.count; ++i) {
            const int32_t x = at.x + list.places[i].x;
            const int32_t y = at.y + list.places[i].y;
            const uint32_t& shares = list.batches[i / ink::kQuadsPerBatch].shares[i % ink::kQuadsPerBatch];
            std::array<uint8_t, ink::kQuadPixels> bytes{};
            std::memcpy(bytes.data(), &shares, bytes.size());
            for (int32_t k = 0; k < ink::kQuadPixels; ++k) {
                if (bytes[static_cast<size_t>(k)] != 0) Share(x + k, y, bytes[static_cast<size_t>(k)]);
            }
            boxes_.push_back({x, y, color});
        }
    }
    void Dots(const Points& points) { dots_ = points; }

    // A cell's side in the drawing; 0 is the usual one, with a grid.
    void Print(const char* picture, int32_t cell = 0) const {
        std::printf("panel %s %d %d\n", picture, columns_, cell);
        for (const uint32_t color : cells_) std::printf("%06X ", color);
        std::printf("\n");
        for (const Box& box : boxes_) std::printf("%d %d %06X ", box.x, box.y, box.color);
        std::printf("\n");
        for (const Point& dot : dots_) std::printf("%d %d ", dot.x, dot.y);
        std::printf("\n");
    }

  private:
    struct Box {
        int32_t x;
        int32_t y;
        uint32_t color;
    };
    int32_t columns_;
    std::vector<uint32_t> cells_;
    std::vector<Box> boxes_;
    Points dots_;
};

// A segment's coverage by each of the pens; levels of 1 and 2 are shown as greys.
void PrintSegment(ink::Nib& nib, uint32_t scale) {
    const Point from{3, 3};
    const Point to{13, 8};
    Panel panel(17, 12);
    nib.Prepare(17);
    for (int32_t y = 0; y < 12; ++y) {
        std::array<uint8_t, 17> row{};
        nib.CoverRow({to.x - from.x, to.y - from.y}, y - from.y, -from.x, 17, row.data());
        for (int32_t x = 0; x < 17; ++x) panel.Share(x, y, row[static_cast<size_t>(x)] * scale);
    }
    panel.Dots({from, to});
    panel.Print("segment");
}

void PrintStamp() {
    ink::SmoothNib nib(10.0);
    ink::StampCache stamps(nib);
    stamps.SetStride(32);
    const Point from{6, 6};
    const Point to{17, 12};

    Panel tip(16, 19);
    tip.Quads(stamps.Tip(), stamps.Rim().count, from, kInnerColor);
    tip.Quads(stamps.Rim(), 0, from, kRimColor);
    tip.Dots({from});
    tip.Print("stamp");

    const ink::Stamp stamp = stamps.Get(to.x - from.x, to.y - from.y);
    Panel rims(27, 19);
    QuadList rim = stamps.Rim();
    rim.batches = stamps.StartRim(stamp);
    rims.Quads(rim, 0, from, kRimColor);
    rim.batches = stamps.EndRim(stamp);
    rims.Quads(rim, 0, to, kRimColor);
    rims.Dots({from, to});
    rims.Print("stamp");

    Panel body(27, 19);
    body.Quads(stamps.Body(stamp), 0, from, kBodyColor);
    body.Dots({from, to});
    body.Print("stamp");
}

std::vector<uint8_t> MaskOf(double width, const std::vector<Points>& lines, const ink::Rect& area) {
    ink::StrokeTracer tracer(std::make_unique<ink::SmoothNib>(width));
    tracer.Begin(area, area.Width());
    for (const Points& line : lines) tracer.Trace(line.data(), line.size(), {0, 0, ink::Scale()}, false);
    const uint8_t* bytes = tracer.Mask().Bytes();
    return {bytes, bytes + area.Width() * area.Height()};
}

void PrintMask(const std::vector<uint8_t>& mask, const ink::Rect& area, const Points& dots,
               const char* picture) {
    Panel panel(area.Width(), area.Height());
    for (int32_t i = 0; i < area.Width() * area.Height(); ++i)
        panel.Share(i % area.Width(), i / area.Width(), mask[static_cast<size_t>(i)]);
    panel.Dots(dots);
    panel.Print(picture);
}

// The same points as two strokes, of which each pixel takes the larger coverage, and as one; then by how much
// these differ, four times as dark.
void PrintJoint() {
    const ink::Rect area{0, 0, 20, 10};
    const Points line{{3, 2}, {10, 5}, {16, 7}};
    const std::vector<uint8_t> larger = MaskOf(1.0, {{line[0], line[1]}, {line[2], line[1]}}, area);
    const std::vector<uint8_t> joined = MaskOf(1.0, {line}, area);
    std::vector<uint8_t> difference;
    for (size_t i = 0; i < joined.size(); ++i)
        difference.push_back(static_cast<uint8_t>(std::min(255, 4 * (joined[i] - larger[i]))));
    for (const auto& mask : {larger, joined, difference}) PrintMask(mask, area, line, "joint");
}

void PrintPixels(const ink::PixelSurface& surface, const char* picture, int32_t cell = 0) {
    Panel panel(surface.width, surface.height);
    for (int32_t y = 0; y < surface.height; ++y) {
        for (int32_t x = 0; x < surface.width; ++x) panel.Cell(x, y, surface.Row(y)[x]);
    }
    panel.Print(picture, cell);
}

void PrintCompose() {
    const ink::Rect area{0, 0, 20, 16};
    const Points below{{2, 13}, {17, 5}};
    const Points line{{3, 4}, {8, 3}, {12, 7}, {9, 12}, {6, 9}, {16, 12}};
    std::vector<uint32_t> pixels(static_cast<size_t>(area.Width() * area.Height()), 0xFFFFF0);
    ink::PixelSurface surface{pixels.data(), area.Width(), area.Height(), area.Width()};
    ink::InkPainter painter;
    painter.SetPen(ink::PenStyle::Smooth, 2.5);
    for (const Points* stroke : {&below, &line}) {
        if (stroke == &line) {
            PrintMask(MaskOf(2.5, {line}, area), area, line, "compose");
            PrintPixels(surface, "compose");
        }
        painter.BeginStroke(surface, stroke == &line ? 0x802010 : 0x40A0FF);
        painter.PaintSegment(surface, stroke->data(), stroke->size());
        painter.EndStroke();
    }
    PrintPixels(surface, "compose");
}

// One page on four screens, drawn as large as each other.
void PrintScales() {
    const Points line{{3, 9}, {5, 4}, {8, 2}, {10, 4}, {9, 8}, {7, 10}, {11, 8}, {16, 7}};
    for (const int32_t dots : {96, 144, 192, 288}) {
        const ink::Scale scale(dots);
        const ink::Rect bounds = scale.ToSurface({0, 0, 20, 38}, 0);
        std::vector<uint32_t> pixels(static_cast<size_t>(bounds.right * bounds.bottom), 0xFFFFF0);
        ink::PixelSurface surface{pixels.data(), bounds.right, bounds.bottom, bounds.right};
        ink::InkPainter painter;
        Points stroke = line;
        for (const uint32_t style : {2, 0, 1}) {
            painter.SetPen(ink::PenStyleOf(style), 2.0, scale);
            painter.BeginStroke(surface, 0x802010);
            painter.PaintSegment(surface, stroke.data(), stroke.size());
            painter.EndStroke();
            for (Point& point : stroke) point.y += 13;
        }
        PrintPixels(surface, "scales", 12 * ink::Scale::kPageDots / dots);
    }
}

}  // namespace

int main() {
    ink::SmoothNib smooth(3.0);
    ink::SolidNib simple({{3, 255}});
    ink::SolidNib classic({{2, 1}, {1, 2}});
    PrintSegment(smooth, 1);
    PrintSegment(simple, 1);
    PrintSegment(classic, 120);
    PrintStamp();
    PrintJoint();
    PrintCompose();
    PrintScales();
    return 0;
}
