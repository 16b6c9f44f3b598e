#include "ink/InkPainter.h"
#include "tests/support/DeskTest.h"

namespace {

using ink::Point;
using testing::ElementsAre;
using testing_support::PointsOf;
using testing_support::Words;

const wchar_t kNote[] = L"\\a.ikw";

class PenInput : public testing_support::DeskTest {
  protected:
    PenInput() { device.files.Put(kNote, Words({5, 0xFFFFFF, 0, 268})); }

    // Runs the script on an empty note and gives what was saved.
    std::unique_ptr<ink::InkPage> Written(const std::function<void()>& script) {
        Then(script);
        Then(Close());
        Run(kNote);
        return ReadBack(kNote);
    }
    // What a repaint of the whole view would show.
    std::vector<uint32_t> Repainted(const ink::InkPage& page, ink::PenStyle style, double width) {
        std::vector<uint32_t> pixels(224 * 268);
        ink::PixelSurface surface{pixels.data(), 224, 268, 224};
        ink::InkPainter painter;
        painter.SetPen(style, width);
        painter.Repaint(surface, page, 0, surface.Bounds());
        return pixels;
    }
    std::vector<uint32_t> ShownPixels() {
        const ink::PixelSurface shown = Shown();
        return {shown.pixels, shown.pixels + shown.width * shown.height};
    }
};

TEST_F(PenInput, ATapIsADot) {
    const auto page = Written([this] {
        const auto before = ShownPixels();
        Desk().PenDown({50, 100});
        EXPECT_EQ(before, ShownPixels()) << "ink comes with the first movement or the lift";
        Desk().PenUp({50, 100});
        EXPECT_NE(before, ShownPixels());
    });
    ASSERT_EQ(page->Band(0)->Count(), 1u);
    EXPECT_THAT(PointsOf(page->Band(0)->At(0)), ElementsAre(Point{50, 100}));
}

TEST_F(PenInput, ALongTraceIsCutIntoRecordsThatShareTheirEnds) {
    const auto page = Written([this] {
        std::vector<Point> trace;
        for (int i = 0; i < 300; ++i) trace.push_back({10 + i % 200, 60 + i / 2});
        Desk().Stroke(trace);
    });
    const ink::StrokeBand& band = *page->Band(0);
    ASSERT_EQ(band.Count(), 3u);
    EXPECT_EQ(band.At(0).count, 126);
    EXPECT_EQ(band.At(1).count, 126);
    EXPECT_EQ(band.At(2).count, 50);
    for (size_t i = 0; i + 1 < band.Count(); ++i) {
        EXPECT_EQ(PointsOf(band.At(i)).back(), PointsOf(band.At(i + 1)).front());
    }
    EXPECT_EQ(band.At(1).minY, PointsOf(band.At(1)).front().y) << "each record's rows are its own";
    EXPECT_EQ(band.At(1).maxY, PointsOf(band.At(1)).back().y);
}

TEST_F(PenInput, SamplesBetweenTwoEventsAreTakenInOrderOnceEach) {
    const auto page = Written([this] {
        Desk().PenDown({50, 100});
        Desk().PenMove({54, 100}, {{51, 100}, {51, 100}, {52, -3}, {53, 100}});
        Desk().PenMove({54, 100});
        Desk().PenUp({56, 100}, {{55, 100}});
    });
    EXPECT_THAT(PointsOf(page->Band(0)->At(0)), ElementsAre(Point{50, 100}, Point{51, 100}, Point{53, 100},
                                                            Point{54, 100}, Point{55, 100}, Point{56, 100}));
}

TEST_F(PenInput, ALiftAboveTheViewStillEndsTheStrokeThere) {
    const auto page = Written([this] {
        Desk().PenDown({50, 20});
        Desk().PenMove({50, -5});
        Desk().PenUp({50, -10});
    });
    EXPECT_THAT(PointsOf(page->Band(0)->At(0)), ElementsAre(Point{50, 20}, Point{50, -10}));
    EXPECT_EQ(page->Band(0)->At(0).minY, -10);
}

TEST_F(PenInput, AnInterruptedStrokeIsKept) {
    const auto page = Written([this] {
        Desk().PenDown({50, 100});
        Desk().PenMove({60, 100});
        Desk().TakePenAway();
        Desk().PenMove({70, 100});
        Desk().PenUp({70, 100});
    });
    ASSERT_EQ(page->Band(0)->Count(), 1u);
    EXPECT_THAT(PointsOf(page->Band(0)->At(0)), ElementsAre(Point{50, 100}, Point{60, 100}));
}

TEST_F(PenInput, MovesWithoutContactAreNoInk) {
    const auto page = Written([this] {
        Desk().PenMove({70, 100});
        Desk().PenUp({70, 100});
    });
    EXPECT_FALSE(page->HasInk());
}

TEST_F(PenInput, LiveInkIsTheInkOfARepaint) {
    for (const uint32_t style : {0u, 1u, 2u}) {
        for (const uint32_t size : {10u, 35u, 100u}) {
            device.files.Put(kNote, Words({5, 0xFFFFFF, 0, 268}));
            device.SetSetting(L"PenInfo", style << 16 | size);
            std::vector<uint32_t> live;
            const auto page = Written([this, &live] {
                std::vector<Point> curl;
                for (int i = 0; i < 260; ++i) curl.push_back({20 + i / 2 + i * 7 % 30, 10 + i * i % 251});
                Desk().Stroke(curl);
                Desk().Stroke({{40, 40}});
                Desk().Stroke({{0, 0}, {223, 267}, {5, 200}, {-4, 100}, {230, 30}});
                live = ShownPixels();
            });
            EXPECT_TRUE(live == Repainted(*page, ink::PenStyleOf(style), size * 0.1)) << style << " " << size;
        }
    }
}

TEST_F(PenInput, AStrokeInProgressFollowsAScroll) {
    const auto page = Written([this] {
        Desk().Stroke({{10, 100}});
        Desk().Scroll(platform::ScrollCode::PageDown);  // makes room: 187 rows down
        EXPECT_EQ(Desk().Top()->GetScroll().position, 187);
        Desk().PenDown({50, 100});
        Desk().PenMove({60, 100});
        Desk().Scroll(platform::ScrollCode::LineUp);  // 26 rows
        Desk().PenUp({70, 126});
    });
    const ink::StrokeRecord& record = page->Band(2)->At(0);
    EXPECT_THAT(PointsOf(record), ElementsAre(Point{50, 287}, Point{60, 287}, Point{70, 287}));
    EXPECT_EQ(record.minY, 287);
    EXPECT_EQ(record.maxY, 287);
}

TEST_F(PenInput, WritingNearTheBottomMovesThePageOnAfterAPause) {
    struct Case {
        int row;
        bool scrolls;
    };
    for (const Case& c : {Case{248, false}, Case{249, true}}) {
        Written([this, &c] {
            Desk().Stroke({{10, c.row}});
            Desk().PassTime(540);  // the second tick comes exactly 540 ms after the lift
            EXPECT_EQ(Desk().Top()->GetScroll().position, c.scrolls ? 187 : 0);
            Desk().PassTime(3000);
            EXPECT_EQ(Desk().Top()->GetScroll().position, c.scrolls ? 187 : 0) << "once only";
        });
    }
}

TEST_F(PenInput, TheWaitHoldsWhileThePenIsDownAndEndsWithAScroll) {
    Written([this] {
        Desk().Stroke({{10, 260}});
        Desk().PassTime(300);
        Desk().PenDown({20, 100});
        Desk().PassTime(2000);
        EXPECT_EQ(Desk().Top()->GetScroll().position, 0);
        Desk().PenUp({20, 100});
        Desk().PassTime(500);
        EXPECT_EQ(Desk().Top()->GetScroll().position, 0);
        Desk().PassTime(400);
        EXPECT_EQ(Desk().Top()->GetScroll().position, 187);
        Desk().Stroke({{10, 260}});
        Desk().Scroll(platform::ScrollCode::Top);
        Desk().PassTime(3000);
        EXPECT_EQ(Desk().Top()->GetScroll().position, 0);
    });
}

}  // namespace
