// The painter against the plain one: equal to the pixel, whatever is painted and in whatever order.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <limits>
#include <map>

#include "ink/InkPainter.h"
#include "ink/Nib.h"
#include "tests/ink/PlainPainter.h"

namespace {

using ink::InkPainter;
using ink::PenStyle;
using ink::Point;
using ink::Rect;
using sketch::Pen;
using sketch::Points;

constexpr uint32_t kMark = 0x00C0FFEE;  // of pixels that nobody may touch
constexpr int32_t kBand = 40;
constexpr int32_t kPageRows = 5 * kBand;

// A surface with a page behind it, painted by both painters in the same random steps.
class Script {
  public:
    Script(uint32_t seed, InkPainter& painter) : random_(seed), painter_(painter) {
        width_ = Number(0, 3) == 0 ? Number(1, 6) : Number(20, 70);
        height_ = Number(1, 60);
        stride_ = width_ + Number(0, 2) * Number(0, 50);
        // Exactly as much memory as rows need, so that a sanitizer sees what goes beyond.
        pixels_.assign(static_cast<size_t>(stride_ * (height_ - 1) + width_), kMark);
        wanted_ = pixels_;
        surface_ = {pixels_.data(), width_, height_, stride_};
        page_.bandHeight = kBand;
        page_.background = random_() & 0xFFFFFF;
        scroll_ = Number(0, 1) * Number(-20, kPageRows);
        TakePen();
        Repaint({-5, -5, width_ + 5, height_ + 5});
    }

    void Step() {
        switch (Number(0, 7)) {
            case 0:
                return Write(Line(Number(1, 12), 3));
            case 1:
                return Write(Line(Number(2, 6), Number(1, 90)));
            case 2:
                return Number(0, 19) == 0 ? Scribble() : Write(Line(Number(1, 30), 30));
            case 3:
                return PaintOneStroke();
            case 4:
                return RepaintInStrips(SomeRect());
            case 5:
                return Scroll(Number(-30, 30));
            case 6:
                return Cut();
            default:
                return Number(0, 3) == 0 ? TakePen() : PaintHead(SomeRect());
        }
    }

    bool PaintedAlike() const { return pixels_ == wanted_; }

  private:
    int32_t Number(int32_t low, int32_t high) {
        return std::uniform_int_distribution<int32_t>(low, high)(random_);
    }
    Rect SomeRect() {
        const Rect r{Number(-9, width_), Number(-9, height_), 0, 0};
        return {r.left, r.top, r.left + Number(0, width_ + 12), r.top + Number(0, height_ + 12)};
    }
    // In surface coordinates; partly beyond it, and no taller than a band.
    Points Line(int32_t count, int32_t step) {
        const int32_t top = Number(-kBand, height_);
        const int32_t beyond = Number(0, 9) == 0 ? 3000 : 25;
        return sketch::Wander(random_, static_cast<size_t>(count), beyond > 25 ? 2000 : step,
                              {-beyond, top, width_ + beyond, top + (count > 99 ? 9 : kBand)});
    }
    // More ink than the surface has room for, or more kinds of segments than a wide pen keeps stamps of.
    void Scribble() {
        if (Number(0, 1) == 0) return Write(Line(900, 3));
        TakePen({PenStyle::Smooth, Number(200, 255)});
        Write(Line(800, 24));
    }
    void TakePen(const Pen& pen) {
        pen_ = pen;
        ASSERT_TRUE(painter_.SetPen(pen_.style, pen_.Width()));
        covers_.clear();
    }
    void TakePen() {
        const PenStyle styles[] = {PenStyle::Simple, PenStyle::Classic, PenStyle::Smooth, PenStyle::Smooth};
        TakePen({styles[Number(0, 3)], Number(0, 4) == 0 ? Number(0, 255) : Number(1, 45)});
    }

    const sketch::Bytes& CoverOf(const Points& line) {
        sketch::Bytes& cover =
            covers_[{reinterpret_cast<const char*>(line.data()), line.size() * sizeof(Point)}];
        if (cover.empty()) cover = sketch::PlainCover(pen_, line, surface_.Bounds());
        return cover;
    }
    template <typename Pixel>
    void Want(const Rect& clip, Pixel&& pixel) {
        const Rect box = Intersect(clip, surface_.Bounds());
        for (int32_t y = box.top; y < box.bottom; ++y) {
            for (int32_t x = box.left; x < box.right; ++x) {
                uint32_t& place = wanted_[static_cast<size_t>(y * stride_ + x)];
                place = pixel(x, y, place);
            }
        }
    }
    void WantInk(const Points& line, ink::ColorRef color, const Rect& clip) {
        const sketch::Bytes& cover = CoverOf(line);
        Want(clip, [&](int32_t x, int32_t y, uint32_t below) {
            return sketch::PlainInk(pen_, below, color, cover[static_cast<size_t>(y * width_ + x)]);
        });
    }
    // A record's line on the surface.
    Points Shown(const ink::StrokeRecord& record) const {
        Points line(record.Points(), record.Points() + record.count);
        for (Point& point : line) point.y += record.yOffset - scroll_;
        return line;
    }

    void Repaint(const Rect& clip) {
        EXPECT_TRUE(painter_.Repaint(surface_, page_, scroll_, clip));
        Want(clip, [&](int32_t x, int32_t y, uint32_t) {
            return sketch::PlainPaper(page_.background, x, int64_t{y} + scroll_, width_);
        });
        page_.VisitStrokes(-kPageRows, 3 * kPageRows, [&](const ink::StrokeRecord& record) {
            WantInk(Shown(record), record.Color(), clip);
        });
    }
    void RepaintInStrips(const Rect& clip) {
        for (int32_t y = clip.top; y < clip.bottom;) {
            const int32_t end = std::min(clip.bottom, y + Number(1, 30));
            Repaint({clip.left, y, clip.right, end});
            y = end;
        }
    }
    void PaintHead(const Rect& clip) {
        InkPainter::PaintHead(surface_, page_.background, scroll_, clip);
        Want(clip, [&](int32_t x, int32_t y, uint32_t below) {
            const int64_t row = int64_t{y} + scroll_;
            const bool inHead = row >= 0 && row < ink::kHeadRows;
            return inHead ? sketch::PlainPaper(page_.background, x, row, width_) : below;
        });
    }

    // Live ink in runs of points, which afterwards belongs to the page or is wiped by the next repaint.
    void Write(const Points& line) {
        const ink::ColorRef color = random_() & 0xFFFFFF;
        const std::vector<uint32_t> below = wanted_;
        ASSERT_TRUE(painter_.BeginStroke(surface_, color));
        const size_t most = line.size() > 99 ? line.size() : 5;
        for (size_t done = 0; done == 0 || done + 1 < line.size();) {
            const size_t count = std::min(1 + random_() % most, line.size() - done);
            const std::vector<uint32_t> before = pixels_;
            const Rect dirty = painter_.PaintSegment(surface_, &line[done], count);
            done += std::max<size_t>(count - 1, line.size() == 1 ? 1 : 0);
            wanted_ = below;
            WantInk({line.begin(), line.begin() + Offset(std::max<size_t>(done + 1, 1), line)}, color,
                    surface_.Bounds());
            CheckChanges(before, dirty);
            ASSERT_TRUE(PaintedAlike()) << "live";
        }
        painter_.PaintSegment(surface_, &line.back(), 1);
        ASSERT_TRUE(PaintedAlike()) << "a dot at the end";
        painter_.EndStroke();
        if (Number(0, 2) != 0 && line.size() < 99) Keep(line, color);
    }
    static std::ptrdiff_t Offset(size_t count, const Points& line) {
        return static_cast<std::ptrdiff_t>(std::min(count, line.size()));
    }
    void CheckChanges(const std::vector<uint32_t>& before, const Rect& dirty) const {
        EXPECT_EQ(Intersect(dirty, surface_.Bounds()), dirty);
        for (size_t i = 0; i < pixels_.size(); ++i) {
            if (pixels_[i] == before[i]) continue;
            const int32_t place = static_cast<int32_t>(i);
            EXPECT_TRUE(dirty.Contains({place % stride_, place / stride_})) << place;
        }
    }
    void Keep(Points line, ink::ColorRef color) {
        const Points shown = line;
        for (Point& point : line) point.y += scroll_;
        sketch::Add(page_, line, color);
        Repaint(Number(0, 1) == 0 ? SomeRect() : surface_.Bounds());
    }

    // With an offset, in a clip.
    void PaintOneStroke() {
        const Points line = Line(Number(1, 20), Number(1, 40));
        ink::InkPage page;
        page.bandHeight = 1 << 20;
        ink::StrokeRecord* record = page.Pool().Allocate(static_cast<int32_t>(line.size()));
        std::copy(line.begin(), line.end(), record->Points());
        record->yOffset = Number(0, 50);
        record->SetColor(random_() & 0xFFFFFF);
        const Rect clip = SomeRect();
        EXPECT_TRUE(painter_.PaintStroke(surface_, *record, scroll_, clip));
        WantInk(Shown(*record), record->Color(), clip);
    }
    void Scroll(int32_t rows) {
        for (std::vector<uint32_t>* picture : {&pixels_, &wanted_}) {
            const std::vector<uint32_t> before = *picture;
            for (int32_t i = 0; i < width_ * height_; ++i) {
                const int32_t x = i % width_;
                const int32_t y = i / width_;
                if (y + rows < 0 || y + rows >= height_) continue;
                (*picture)[static_cast<size_t>(y * stride_ + x)] =
                    before[static_cast<size_t>((y + rows) * stride_ + x)];
            }
        }
        scroll_ += rows;
        Repaint(rows > 0 ? Rect{0, height_ - rows, width_, height_} : Rect{0, 0, width_, -rows});
    }
    // Takes a stroke, or the middle of it, out of the page.
    void Cut() {
        for (size_t slot = 0; slot < page_.SlotCount(); ++slot) {
            if (page_.Band(slot) == nullptr || page_.Band(slot)->IsEmpty()) continue;
            const int32_t count = page_.Band(slot)->At(0).count;
            ink::BandCuts cuts{{{0, 0}}, {}};
            if (count > 2) cuts = {{{0, 2}}, {{0, 1}, {2, count - 2}}};
            ASSERT_TRUE(page_.CutRecords(slot, cuts));
            return RepaintInStrips(surface_.Bounds());
        }
    }

    std::mt19937 random_;
    InkPainter& painter_;
    Pen pen_;
    int32_t width_ = 0;
    int32_t height_ = 0;
    int32_t stride_ = 0;
    std::vector<uint32_t> pixels_;
    std::vector<uint32_t> wanted_;
    ink::PixelSurface surface_;
    ink::InkPage page_;
    int32_t scroll_ = 0;
    std::map<std::string, sketch::Bytes> covers_;  // of lines, by their bytes, with the pen
};

TEST(InkPainter, PaintsWhatThePlainPainterDoes) {
    InkPainter painter;  // one for all surfaces
    for (uint32_t seed = 1; seed <= 100; ++seed) {
        Script script(seed, painter);
        for (int step = 0; step < 12; ++step) {
            ASSERT_NO_FATAL_FAILURE(script.Step()) << "seed " << seed << " step " << step;
            ASSERT_TRUE(script.PaintedAlike()) << "seed " << seed << " step " << step;
        }
    }
}

sketch::Picture Draw(double width, const Points& points) {
    sketch::Picture picture(150, 130);
    InkPainter painter;
    EXPECT_TRUE(painter.SetPen(PenStyle::Smooth, width));
    EXPECT_TRUE(painter.BeginStroke(picture.surface, 0));
    painter.PaintSegment(picture.surface, points.data(), points.size());
    return picture;
}

// What joining by area is for: splitting a straight line neither darkens nor thins it, and going over it
// again changes nothing.
TEST(InkPainter, JointsAreInvisible) {
    constexpr int kTolerance = 3;  // each part's coverage is rounded to 1/255 before they are added
    for (const double width : {1.0, 2.0, 3.0, 4.5, 10.0}) {
        for (const Point& step : {Point{5, 0}, {3, 1}, {4, 4}, {2, 7}, {0, 6}, {-6, 5}, {1, 1}}) {
            Points many{{75, 20}};
            for (int i = 0; i < 9; ++i) many.push_back({many.back().x + step.x, many.back().y + step.y});
            const sketch::Picture split = Draw(width, many);
            const sketch::Picture whole = Draw(width, {many.front(), many.back()});
            for (size_t i = 0; i < whole.pixels.size(); ++i) {
                ASSERT_NEAR(static_cast<int>(split.pixels[i] & 255), static_cast<int>(whole.pixels[i] & 255),
                            kTolerance)
                    << "width " << width << " step " << step.x << "," << step.y;
            }
            many.insert(many.end(), many.rbegin() + 1, many.rend());
            EXPECT_TRUE(Draw(width, many) == split) << "width " << width;
        }
    }
}

TEST(InkPainter, WildCoordinatesCostNoMoreThanThePicture) {
    constexpr int32_t kLow = std::numeric_limits<int32_t>::min();
    constexpr int32_t kHigh = std::numeric_limits<int32_t>::max();
    std::mt19937 random(6);
    Points wild{{0, 0}, {0, kLow}, {5, kHigh}, {kLow, 9}, {kHigh, 8}, {kLow, kLow}, {kHigh, kHigh}};
    for (int i = 0; i < 3000; ++i)
        wild.push_back({static_cast<int32_t>(random()), static_cast<int32_t>(random())});
    ink::InkPage page;
    page.bandHeight = 130;
    page.AddStroke(wild.data(), static_cast<int32_t>(wild.size()), 0, 129, 0x40FF);
    const auto start = std::chrono::steady_clock::now();
    for (const PenStyle style : {PenStyle::Simple, PenStyle::Classic, PenStyle::Smooth}) {
        for (const double width : {0.0, 1.0, 10.0, ink::kWidestPen, 1e9}) {
            InkPainter painter;
            ASSERT_TRUE(painter.SetPen(style, width));
            EXPECT_LE(painter.Reach(), ink::kWidestReach);
            sketch::Picture picture(150, 130);
            for (const int32_t scroll : {0, 60, kLow, kHigh})
                EXPECT_TRUE(painter.Repaint(picture.surface, page, scroll, {kLow, kLow, kHigh, kHigh}));
            ASSERT_TRUE(painter.BeginStroke(picture.surface, 0));
            const Rect dirty = painter.PaintSegment(picture.surface, wild.data(), wild.size());
            EXPECT_EQ(dirty, picture.surface.Bounds());
        }
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

}  // namespace
