#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>

#include "ink/InkPainter.h"
#include "tests/ink/Sketch.h"

namespace {

using ink::InkPainter;
using ink::Rect;
using sketch::Picture;
using sketch::Points;

struct Pen {
    uint8_t style;
    double width;
};

std::vector<Pen> AllPens() {
    std::vector<Pen> pens{{1, 1.0}, {2, 0.0}, {2, 0.5}, {2, 2.5}, {2, 25.5}, {0, 0.0}, {0, 25.5}};
    for (int width = 1; width <= 10; ++width) {
        pens.push_back({0, static_cast<double>(width)});
        pens.push_back({2, static_cast<double>(width)});
    }
    return pens;
}

std::string Name(const Pen& pen) {
    return "style " + std::to_string(pen.style) + " width " + std::to_string(pen.width);
}

constexpr int32_t kWidth = 150;
constexpr int32_t kHeight = 130;
constexpr uint32_t kMark = 0x00C0FFEE;

// Strokes of every kind, some beyond the edges; none taller than two bands of kHeight.
std::vector<Points> SomeStrokes(std::mt19937& random) {
    std::vector<Points> strokes;
    for (const int step : {1, 3, 12, 70})
        strokes.push_back(sketch::Wander(random, 30, step, {0, 0, kWidth, kHeight}));
    strokes.push_back(sketch::Wander(random, 12, 90, {-60, 40, kWidth + 60, kHeight + 90}));
    strokes.push_back({{40, 20}, {41, 240}});
    strokes.push_back({{-500, 30}, {500, 31}, {-500, 32}});
    strokes.push_back({{70, 70}});
    strokes.push_back({{-1, kHeight}});
    strokes.push_back({{20, 20}, {30, 20}, {20, 20}, {30, 20}, {20, 20}});
    return strokes;
}

void Fill(ink::InkPage& page, const std::vector<Points>& strokes) {
    page.bandHeight = kHeight;
    page.background = 0x00E0F0FF;
    uint32_t color = 0x203040;
    for (const Points& stroke : strokes) sketch::Add(page, stroke, color += 0x151911);
}

TEST(InkPainter, StripsAndTilesFitTogether) {
    std::mt19937 random(1);
    for (const Pen& pen : AllPens()) {
        SCOPED_TRACE(Name(pen));
        ink::InkPage page;
        Fill(page, SomeStrokes(random));
        InkPainter painter;
        ASSERT_TRUE(painter.SetPen(ink::PenStyleOf(pen.style), pen.width));
        for (const int32_t scroll : {0, 37, kHeight}) {
            Picture whole(kWidth, kHeight, kMark);
            painter.Repaint(whole.surface, page, scroll, whole.surface.Bounds());
            Picture tiles(kWidth, kHeight, kMark);
            for (int32_t y = 0; y < kHeight; y += 17) {
                for (int32_t x = -3; x < kWidth; x += 43) {
                    painter.Repaint(tiles.surface, page, scroll, {x, y, x + 43, y + 17});
                }
            }
            EXPECT_TRUE(tiles == whole) << "scroll " << scroll;
        }
    }
}

TEST(InkPainter, NothingOutsideTheClipIsTouched) {
    std::mt19937 random(2);
    ink::InkPage page;
    Fill(page, SomeStrokes(random));
    for (const Pen& pen : AllPens()) {
        InkPainter painter;
        painter.SetPen(ink::PenStyleOf(pen.style), pen.width);
        const Rect clip{33, 21, 90, 77};
        Picture picture(kWidth, kHeight, kMark);
        painter.Repaint(picture.surface, page, 0, clip);
        for (int32_t y = 0; y < kHeight; ++y) {
            for (int32_t x = 0; x < kWidth; ++x) {
                ASSERT_EQ(picture.At(x, y) == kMark, !clip.Contains({x, y}))
                    << Name(pen) << " " << x << "," << y;
            }
        }
    }
}

// Paints a stroke as the pen moves, in runs of `run` points, checking that only what is reported changes.
void PaintLive(InkPainter& painter, Picture& picture, const Points& points, size_t run, ink::ColorRef color) {
    ASSERT_TRUE(painter.BeginStroke(picture.surface, color));
    for (size_t first = 0; first + 1 < points.size() || first == 0;) {
        const size_t count = std::min(run, points.size() - first);
        const Picture before(picture);
        const Rect dirty = painter.PaintSegment(picture.surface, &points[first], count);
        ASSERT_EQ(Intersect(dirty, picture.surface.Bounds()), dirty);
        for (int32_t y = 0; y < picture.surface.height; ++y) {
            for (int32_t x = 0; x < picture.surface.width; ++x) {
                if (!dirty.Contains({x, y})) {
                    ASSERT_EQ(picture.At(x, y), before.At(x, y)) << x << "," << y;
                }
            }
        }
        first += std::max<size_t>(count - 1, 1);
    }
    painter.EndStroke();
}

TEST(InkPainter, LiveInkIsTheRepaintedInk) {
    std::mt19937 random(3);
    for (const Pen& pen : AllPens()) {
        SCOPED_TRACE(Name(pen));
        InkPainter painter;
        painter.SetPen(ink::PenStyleOf(pen.style), pen.width);
        for (const Points& points : SomeStrokes(random)) {
            ink::InkPage page;
            page.bandHeight = kHeight;
            sketch::Add(page, points, 0x2040C0);
            Picture live(kWidth, kHeight);
            const ink::InkPage empty;
            painter.Repaint(live.surface, empty, 0, live.surface.Bounds());
            Picture repainted(kWidth, kHeight);
            ASSERT_NO_FATAL_FAILURE(PaintLive(painter, live, points, 2 + random() % 5, 0x2040C0));
            painter.Repaint(repainted.surface, page, 0, repainted.surface.Bounds());
            EXPECT_TRUE(live == repainted);
        }
    }
}

TEST(InkPainter, AnEndDotChangesNothing) {
    std::mt19937 random(4);
    for (const Pen& pen : AllPens()) {
        InkPainter painter;
        painter.SetPen(ink::PenStyleOf(pen.style), pen.width);
        const Points points = sketch::Wander(random, 40, 8, {0, 0, kWidth, kHeight});
        Picture picture(kWidth, kHeight);
        painter.BeginStroke(picture.surface, 0x2040C0);
        painter.PaintSegment(picture.surface, points.data(), points.size());
        const Picture before(picture);
        painter.PaintSegment(picture.surface, &points.back(), 1);
        painter.PaintSegment(picture.surface, &points.front(), 1);
        EXPECT_TRUE(picture == before) << Name(pen);
    }
}

Picture Draw(const Pen& pen, const Points& points) {
    Picture picture(kWidth, kHeight);
    InkPainter painter;
    painter.SetPen(ink::PenStyleOf(pen.style), pen.width);
    painter.BeginStroke(picture.surface, 0);
    painter.PaintSegment(picture.surface, points.data(), points.size());
    return picture;
}

TEST(InkPainter, LinesAreTheSameFromEitherEnd) {
    std::mt19937 random(5);
    for (const Pen& pen : AllPens()) {
        for (int i = 0; i < 40; ++i) {
            const Points there =
                sketch::Wander(random, 3, i < 20 ? 20 : 200, {-50, -50, kWidth + 50, kHeight + 50});
            EXPECT_TRUE(Draw(pen, there) == Draw(pen, {there.rbegin(), there.rend()})) << Name(pen);
        }
    }
}

// Surfaces narrower than what is painted at once, or parts of wider pictures, in turns with one painter.
TEST(InkPainter, NarrowSurfacesAndLongRowsShowTheSameInk) {
    std::mt19937 random(7);
    for (const Pen& pen : AllPens()) {
        ink::InkPage page;
        Fill(page, SomeStrokes(random));
        InkPainter painter;
        painter.SetPen(ink::PenStyleOf(pen.style), pen.width);
        Picture whole(kWidth, kHeight);
        painter.Repaint(whole.surface, page, ink::kHeadRows, whole.surface.Bounds());
        for (const int32_t width : {1, 2, 3, 4, 5, 40}) {
            for (const int32_t gap : {0, 3, 100}) {
                const size_t stride = static_cast<size_t>(width + gap);
                // Exactly as much memory as rows need, so that a sanitizer sees what goes beyond.
                std::vector<uint32_t> pixels(stride * (kHeight - 1) + static_cast<size_t>(width), kMark);
                ink::PixelSurface part{pixels.data(), width, kHeight, width + gap};
                painter.Repaint(part, page, ink::kHeadRows, {-9, -9, kWidth, kHeight + 9});
                for (size_t i = 0; i < pixels.size(); ++i) {
                    const int32_t x = static_cast<int32_t>(i % stride);
                    const int32_t y = static_cast<int32_t>(i / stride);
                    ASSERT_EQ(pixels[i], x < width ? whole.At(x, y) : kMark) << Name(pen) << " " << width;
                }
            }
        }
    }
}

// So many segments on so little room that painting them one by one would be more than the room.
TEST(InkPainter, ScribblesAreTheSameLiveAndRepainted) {
    std::mt19937 random(8);
    for (const Pen& pen : AllPens()) {
        const Points points = sketch::Wander(random, 900, 6, {60, 50, 90, 70});
        InkPainter painter;
        painter.SetPen(ink::PenStyleOf(pen.style), pen.width);
        Picture live(kWidth, kHeight);
        painter.BeginStroke(live.surface, 0x2040C0);
        for (size_t i = 0; i + 1 < points.size(); ++i) painter.PaintSegment(live.surface, &points[i], 2);
        painter.EndStroke();
        ink::InkPage page;
        sketch::Add(page, points, 0x2040C0);
        Picture repainted(kWidth, kHeight);
        page.VisitStrokes(0, kHeight, [&](const ink::StrokeRecord& record) {
            painter.PaintStroke(repainted.surface, record, 0, repainted.surface.Bounds());
        });
        EXPECT_TRUE(live == repainted) << Name(pen);
        EXPECT_EQ(live.At(0, 0), 0xFFFFFFu);
        // Nothing of it is left behind for the strokes after it.
        Picture next(kWidth, kHeight);
        painter.BeginStroke(next.surface, 0);
        painter.PaintSegment(next.surface, points.data(), 1);
        painter.EndStroke();
        EXPECT_TRUE(next == Draw(pen, {points[0]})) << Name(pen);
    }
}

// Splitting a straight line must neither darken nor thin it.
TEST(InkPainter, JointsAreInvisible) {
    for (const double width : {1.0, 2.0, 3.0, 4.5, 10.0}) {
        for (const ink::Point& step : {ink::Point{5, 0}, {3, 1}, {4, 4}, {2, 7}, {0, 6}, {-6, 5}, {1, 1}}) {
            const ink::Point start{75, 20};
            Points many{start};
            for (int i = 0; i < 9; ++i) many.push_back({many.back().x + step.x, many.back().y + step.y});
            const Picture split = Draw({2, width}, many);
            const Picture whole = Draw({2, width}, {start, many.back()});
            for (size_t i = 0; i < whole.pixels.size(); ++i) {
                const int a = static_cast<int>(split.pixels[i] & 255);
                const int b = static_cast<int>(whole.pixels[i] & 255);
                ASSERT_NEAR(a, b, 3) << "width " << width << " step " << step.x << "," << step.y;
            }
        }
    }
}

// The area of smooth ink is that of the shape: length times width, and a disc's for the caps.
TEST(InkPainter, SmoothInkHasTheShapesArea) {
    for (const double width : {1.0, 1.5, 3.0, 6.2, 10.0}) {
        for (const ink::Point& to : {ink::Point{75, 40}, {100, 40}, {130, 100}, {80, 110}, {31, 55}}) {
            const Picture picture = Draw({2, width}, {{75, 40}, to});
            double area = 0;
            for (const uint32_t pixel : picture.pixels)
                area += (255 - static_cast<double>(pixel & 255)) / 255;
            const double length = std::hypot(to.x - 75, to.y - 40);
            const double wanted = length * width + 3.14159265 * width * width / 4;
            EXPECT_NEAR(area, wanted, wanted * 0.01 + 0.05) << width << " to " << to.x << "," << to.y;
        }
    }
}

TEST(InkPainter, RetracingALineDoesNotDarkenIt) {
    const Points there{{20, 20}, {33, 27}, {60, 31}};
    Points again = there;
    for (int i = 0; i < 3; ++i) {
        again.insert(again.end(), there.rbegin() + 1, there.rend());
        again.insert(again.end(), there.begin() + 1, there.end());
    }
    for (const Pen& pen : AllPens()) EXPECT_TRUE(Draw(pen, there) == Draw(pen, again)) << Name(pen);
}

TEST(InkPainter, ClassicInkIsACoreOverALighterRim) {
    const Picture picture = Draw({1, 1.0}, {{20, 20}, {60, 20}});
    const uint32_t rim = ink::PixelOf(ink::Shade(0, 0.39f));
    EXPECT_EQ(picture.At(40, 20), 0u);
    EXPECT_EQ(picture.At(40, 19), rim);
    EXPECT_EQ(picture.At(40, 21), 0xFFFFFFu);
}

TEST(InkPainter, WildCoordinatesCostNoMoreThanThePicture) {
    constexpr int32_t kLow = std::numeric_limits<int32_t>::min();
    constexpr int32_t kHigh = std::numeric_limits<int32_t>::max();
    ink::InkPage page;
    page.bandHeight = kHeight;
    for (const char* name : {"far-away", "offset-overflow"}) {
        ink::InkPage loaded;
        loaded.bandHeight = 268;
        ASSERT_TRUE(sketch::Load(sketch::ReadFixture(name), loaded).Ok());
        loaded.VisitStrokes(0, 300, [&](const ink::StrokeRecord& record) {
            page.AddStroke(record.Points(), record.count, 0, 129, 0xFF);
        });
    }
    std::mt19937 random(6);
    Points wild;
    for (int i = 0; i < 3000; ++i)
        wild.push_back({static_cast<int32_t>(random()), static_cast<int32_t>(random())});
    page.AddStroke(wild.data(), 3000, 0, 129, 0x40FF);
    for (const Pen& pen : AllPens()) {
        InkPainter painter;
        painter.SetPen(ink::PenStyleOf(pen.style), pen.width);
        const auto start = std::chrono::steady_clock::now();
        Picture picture(kWidth, kHeight);
        for (const int32_t scroll : {0, 60, kLow, kHigh}) {
            painter.Repaint(picture.surface, page, scroll, picture.surface.Bounds());
            painter.Repaint(picture.surface, page, scroll, {kLow, kLow, kHigh, kHigh});
        }
        painter.BeginStroke(picture.surface, 0);
        const Rect dirty = painter.PaintSegment(picture.surface, wild.data(), wild.size());
        EXPECT_EQ(Intersect(dirty, picture.surface.Bounds()), dirty);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)) << Name(pen);
    }
}

TEST(InkPainter, HeadScrollsWithThePageAndStrokesGoOverIt) {
    for (const ink::ColorRef background : {0xFFFFFFu, 0x000000u, 0x803010u, 0x808080u}) {
        ink::InkPage page;
        page.bandHeight = kHeight;
        page.background = background;
        InkPainter painter;
        Picture top(kWidth, kHeight);
        painter.Repaint(top.surface, page, 0, top.surface.Bounds());
        Picture scrolled(kWidth, kHeight);
        painter.Repaint(scrolled.surface, page, 20, scrolled.surface.Bounds());
        const uint32_t paper = ink::PixelOf(background);
        EXPECT_NE(top.At(5, ink::kHeadRows - 1), paper);
        EXPECT_EQ(top.At(5, ink::kHeadRows), paper);
        for (int32_t y = 0; y + 20 < kHeight; ++y) ASSERT_EQ(scrolled.At(60, y), top.At(60, y + 20)) << y;

        // The head alone, over a hole in it, makes it whole again.
        Picture patched(top);
        const Rect hole{30, 30, 44, 60};
        for (int32_t y = hole.top; y < hole.bottom; ++y) std::fill_n(patched.surface.Row(y) + 30, 14, paper);
        InkPainter::PaintHead(patched.surface, background, 0, hole);
        EXPECT_TRUE(patched == top);
    }
}

}  // namespace
