// The painter against the plain one: equal to the pixel, whatever is painted and in whatever order.
#include <gtest/gtest.h>

#include <cstdlib>

#include "ink/InkPainter.h"
#include "ink/Nib.h"
#include "tests/ink/PlainPainter.h"

namespace {

using ink::InkPainter;
using ink::PenStyle;
using ink::Rect;
using sketch::Dice;
using sketch::Picture;
using sketch::Points;

constexpr uint32_t kMark = 0x00C0FFEE;  // of pixels that nobody may touch
constexpr int32_t kBand = 40;
constexpr int kDots[] = {96, 120, 144, 192, 288};
constexpr PenStyle kStyles[] = {PenStyle::Smooth, PenStyle::Simple, PenStyle::Classic};

ink::ColorRef Color(Dice& dice) { return static_cast<ink::ColorRef>(dice(0, 0xFFFFFF)); }

// Live ink, in runs of points, that tells of all it changes.
void Write(InkPainter& painter, Picture& picture, const Points& line, ink::ColorRef color, int32_t scroll,
           Dice& dice) {
    ASSERT_TRUE(painter.BeginStroke(picture.surface, color, scroll));
    size_t first = 0;
    do {
        const size_t count = static_cast<size_t>(dice(0, 9) == 0 ? 1000 : dice(1, 5));
        const size_t last = std::min(first + count, line.size() - 1);
        const Picture before = picture;
        const Rect dirty = painter.PaintSegment(picture.surface, &line[first], last - first + 1);
        EXPECT_EQ(Intersect(dirty, picture.surface.Bounds()), dirty);
        for (int i = 0; i < static_cast<int>(before.pixels.size()); ++i) {
            const bool isSame = picture.surface.pixels[i] == before.surface.pixels[i];
            const div_t place = std::div(i, picture.surface.stride);
            EXPECT_TRUE(isSame || dirty.Contains({place.rem, place.quot})) << i;
        }
        first = last;
    } while (first + 1 < line.size());
    painter.PaintSegment(picture.surface, &line.back(), 1);
    if (dice(0, 1) == 0) painter.EndStroke();  // or whatever comes next ends it
}

TEST(InkPainter, PaintsWhatThePlainPainterDoes) {
    InkPainter painter;  // one for all pictures
    for (uint32_t seed = 1; seed <= 100; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        Picture painted(dice(0, 3) == 0 ? dice(1, 6) : dice(20, 70), dice(1, 60), dice(0, 120), kMark);
        Picture wanted(painted);
        const Rect all = painted.surface.Bounds();
        // Some pens are so wide that their lines have more kinds of segments than stamps are kept of.
        const sketch::Pen pen{kStyles[std::max(0, dice(-2, 2))],
                              dice(0, 4) == 0 ? dice(0, 255) * 0.1 : dice(1, 45) * 0.1, kDots[dice(0, 4)]};
        ASSERT_TRUE(painter.SetPen(pen.style, pen.width, ink::Scale(pen.dots)));
        EXPECT_LE(painter.Reach(), ink::kWidestReach);
        // Partly beyond the picture, and no taller than a band.
        const auto line = [&](int32_t count, int32_t step) {
            const int32_t top = dice(-kBand, all.bottom);
            const int32_t beyond = dice(0, 9) == 0 ? 300 : 25;
            return dice.Line(count, beyond > 25 ? 300 : step,
                             {-beyond, top, all.right + beyond, top + kBand});
        };
        ink::InkPage page;
        page.bandHeight = kBand;
        page.background = Color(dice);
        for (int i = dice(0, 5); i >= 0; --i) {
            sketch::Stroke stroke{0, dice(0, 2) * 20, Color(dice), line(dice(1, 12), dice(1, 40))};
            sketch::File(page, stroke.MeasureRows());
        }
        Rect clip = all;
        for (int round = 0; round < 6; ++round) {
            const int32_t scroll = dice(0, 1) * dice(-20, 60);
            EXPECT_TRUE(painter.Repaint(painted.surface, page, scroll, clip));
            PlainPaper(wanted, pen, page.background, scroll, clip, false);
            for (const sketch::Stroke& stroke : sketch::StrokesOf(page, true))
                PlainInk(wanted, pen, stroke.points, stroke.color, scroll, clip);
            ASSERT_TRUE(painted.pixels == wanted.pixels) << "painted";

            Points written =
                dice(0, 24) == 0 ? line(600, pen.width > 15 ? 24 : 4) : line(dice(1, 20), dice(1, 90));
            // Some begin where the stroke painted last ends, and are not joined to it.
            const ink::Point last = sketch::StrokesOf(page, true).back().points.back();
            if (dice(0, 1) == 0) written.front() = {last.x, last.y - scroll};
            const ink::ColorRef color = Color(dice);
            Write(painter, painted, written, color, scroll, dice);
            for (ink::Point& point : written) point.y += scroll;
            PlainInk(wanted, pen, written, color, scroll, all);
            ASSERT_TRUE(painted.pixels == wanted.pixels) << "written";

            clip.left = dice(-9, all.right);
            clip.top = dice(-9, all.bottom);
            clip.right = clip.left + dice(0, 80);
            clip.bottom = clip.top + dice(0, 20);
            const ink::StrokeRecord& record = page.Band(page.SlotCount() - 1)->At(0);
            EXPECT_TRUE(painter.PaintStroke(painted.surface, record, scroll, clip));
            PlainInk(wanted, pen, sketch::StrokeOf(0, record).points, record.Color(), scroll, clip);
            painter.PaintHead(painted.surface, page.background, scroll, clip);
            PlainPaper(wanted, pen, page.background, scroll, clip, true);
        }
    }
}

TEST(InkPainter, PaintsInkThatGoesOnForEver) {
    ink::InkPage page;
    page.bandHeight = INT32_MAX;
    sketch::Add(page, {{INT32_MIN, 50}, {INT32_MAX, 50}, {7, INT32_MAX}, {7, INT32_MIN}});
    for (int i = 0; i < 15; ++i) {
        const ink::Scale scale(96 + 32 * i);
        InkPainter painter;
        ASSERT_TRUE(painter.SetPen(kStyles[i % 3], 1, scale));
        Picture picture(40, 40);
        for (const int32_t scroll : {INT32_MIN, INT32_MAX, 45})
            painter.Repaint(picture.surface, page, scroll, picture.surface.Bounds());
        const Rect cross = scale.ToSurface({7, 5, 7, 5}, 45);
        for (int32_t k = 0; k < 40; ++k)
            EXPECT_EQ(picture.surface.Row(cross.top)[k] + picture.surface.Row(k)[cross.left], 0u) << i;
    }
}

// A page pixel lies at the nearest screen pixel, and is what is shown up to the next one.
TEST(Scale, RoundsAndTurnsBack) {
    for (int i = 0; i < 400 * 70; ++i) {
        const ink::Scale scale(90 + i / 70);
        const int64_t v = i % 70 == 0 ? INT32_MIN : i % 70 == 1 ? INT32_MAX : i % 70 - 35;
        const int64_t off = v * scale.Dots() - scale.ToScreen(v) * 96;
        EXPECT_TRUE(off >= -48 && off < 48) << v << " at " << scale.Dots();
        EXPECT_EQ(scale.ToPage(scale.ToScreen(v)), v);
        EXPECT_EQ(scale.ToPage(scale.ToScreen(v + 1) - 1), v);
        const Rect there = scale.ToSurface({3, 70, 4, 71}, 61);
        EXPECT_EQ(scale.ToView({there.right - 1, there.bottom - 1}, 61), (ink::Point{3, 70}));
    }
}

}  // namespace
