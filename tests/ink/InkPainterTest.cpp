// The painter against the plain one: equal to the pixel, whatever is painted and in whatever order.
#include <gtest/gtest.h>

#include <cmath>
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
constexpr PenStyle kStyles[] = {PenStyle::Smooth, PenStyle::Simple, PenStyle::Classic};

ink::ColorRef Color(Dice& dice) { return static_cast<ink::ColorRef>(dice(0, 0xFFFFFF)); }

// Live ink, in runs of points, that tells of all it changes.
void Write(InkPainter& painter, Picture& picture, const Points& line, ink::ColorRef color, Dice& dice) {
    ASSERT_TRUE(painter.BeginStroke(picture.surface, color));
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
                              dice(0, 4) == 0 ? dice(0, 255) * 0.1 : dice(1, 45) * 0.1};
        ASSERT_TRUE(painter.SetPen(pen.style, pen.width));
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
        for (int round = 0; round < 4; ++round) {
            const int32_t scroll = dice(0, 1) * dice(-20, 60);
            EXPECT_TRUE(painter.Repaint(painted.surface, page, scroll, clip));
            PlainPaper(wanted, page.background, scroll, clip, false);
            for (const sketch::Stroke& stroke : sketch::StrokesOf(page, true))
                PlainInk(wanted, pen, stroke.points, stroke.color, scroll, clip);
            ASSERT_TRUE(painted.pixels == wanted.pixels) << "painted";

            Points written =
                dice(0, 24) == 0 ? line(600, pen.width > 15 ? 24 : 4) : line(dice(1, 20), dice(1, 90));
            // Some begin where the stroke painted last ends, and are not joined to it.
            const ink::Point last = sketch::StrokesOf(page, true).back().points.back();
            if (dice(0, 1) == 0) written.front() = {last.x, last.y - scroll};
            const ink::ColorRef color = Color(dice);
            Write(painter, painted, written, color, dice);
            PlainInk(wanted, pen, written, color, 0, all);
            ASSERT_TRUE(painted.pixels == wanted.pixels) << "written";

            clip.left = dice(-9, all.right);
            clip.top = dice(-9, all.bottom);
            clip.right = clip.left + dice(0, 80);
            clip.bottom = clip.top + dice(0, 70);
            const ink::StrokeRecord& record = page.Band(page.SlotCount() - 1)->At(0);
            EXPECT_TRUE(painter.PaintStroke(painted.surface, record, scroll, clip));
            PlainInk(wanted, pen, sketch::StrokeOf(0, record).points, record.Color(), scroll, clip);
            InkPainter::PaintHead(painted.surface, page.background, scroll, clip);
            PlainPaper(wanted, page.background, scroll, clip, true);
        }
    }
}

// Pictures that people have looked at. To take them anew after a change that is meant to look different, run
// this with INKWRIGHT_NEW_GOLDENS=1 in the environment; then look at them again.
TEST(InkPainter, EveryPenLooksAsInItsGolden) {
    const struct {
        const char* name;
        PenStyle style;
        double width;
        ink::ColorRef background, ink;
    } kScenes[] = {{"smooth-3-black", PenStyle::Smooth, 3.0, 0x000000, 0x40FF40},
                   {"smooth-10-blue", PenStyle::Smooth, 10.0, 0x803010, 0xE0FFFF},
                   {"classic-yellow", PenStyle::Classic, 1.0, 0xC0FFFF, 0xFF4040},
                   {"simple-4-grey", PenStyle::Simple, 4.0, 0x808080, 0x4040FF}};
    Points loops;
    for (int i = 0; i <= 44; ++i) {
        const double turn = i / 44.0 * 6.2831853 * 3;
        loops.push_back({static_cast<int32_t>(std::lround(14 + i * 1.4 + 9 * std::sin(turn))),
                         static_cast<int32_t>(std::lround(60 - 15 * std::cos(turn)))});
    }
    const Points zigzag{{10, 90}, {18, 82}, {22, 95}, {31, 83}, {35, 96}, {36, 85}};
    for (const auto& scene : kScenes) {
        ink::InkPage page;
        page.bandHeight = 120;
        page.background = scene.background;
        for (const Points& line : {loops, zigzag, {{44, 98}, {90, 84}}, {{88, 100}}})
            sketch::Add(page, line, scene.ink);
        InkPainter painter;
        painter.SetPen(scene.style, scene.width);
        Picture picture(96, page.bandHeight);
        painter.Repaint(picture.surface, page, 0, picture.surface.Bounds());
        std::string ppm = "P6\n96 120\n255\n";
        for (const uint32_t pixel : picture.pixels)
            for (const int shift : {16, 8, 0}) ppm += static_cast<char>(pixel >> shift & 255);
        const std::string path = std::string(GOLDENS "/") + scene.name + ".ppm";
        if (std::getenv("INKWRIGHT_NEW_GOLDENS") != nullptr) std::ofstream(path, std::ios::binary) << ppm;
        EXPECT_TRUE(sketch::ReadFile(path) == sketch::Bytes(ppm.begin(), ppm.end())) << path;
    }
}

}  // namespace
