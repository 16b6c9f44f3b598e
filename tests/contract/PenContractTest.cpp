#include "tests/contract/Recording.h"

namespace contract {

namespace {

using platform::Point;
using platform::Screen;
using testing::ElementsAre;
using testing::IsEmpty;
using TestScreen = Recording<Screen>;

class PenContract : public WindowContract {
  protected:
    PenContract() : screen_(Screen::ScrollBar::Vertical) {
        screen_.capturesPen = true;
        screen_.penMove = [this] {
            Point samples[64];
            const size_t count = screen_.PenSamples(samples, 64);
            samples_.insert(samples_.end(), samples, samples + count);
        };
    }

    TestScreen screen_;
    std::vector<Point> samples_;
};

TEST_F(PenContract, AStroke) {
    Run(
        screen_,
        [&] {
            driver_.PenDown(screen_, {50, 60});
        },
        [&] { EXPECT_TRUE(screen_.HasPen()); },
        [&] {
            driver_.PenMove(screen_, {55, 61});
        },
        [&] {
            driver_.PenMove(screen_, {70, 100});
        },
        [&] {
            driver_.PenUp(screen_, {70, 100});
        },
        [&] {
            EXPECT_TRUE(screen_.HasPen()) << "kept until it is released";
            screen_.ReleasePen();
            EXPECT_FALSE(screen_.HasPen());
        });
    EXPECT_THAT(screen_.log,
                ElementsAre("down 50 60", "move 55 61", "move 70 100", "up 70 100", "lost", "destroy"));
    EXPECT_THAT(samples_, IsEmpty());
}

TEST_F(PenContract, PositionsOutsideTheWindow) {
    Run(
        screen_,
        [&] {
            driver_.PenDown(screen_, {50, 5});
        },
        [&] {
            driver_.PenMove(screen_, {50, -4});
        },
        [&] {
            driver_.PenMove(screen_, {-6, -4});
        },
        [&] {
            driver_.PenUp(screen_, {-6, -4});
        },
        [&] { screen_.ReleasePen(); });
    EXPECT_THAT(screen_.log,
                ElementsAre("down 50 5", "move 50 -4", "move -6 -4", "up -6 -4", "lost", "destroy"));
}

TEST_F(PenContract, SamplesOfAMergedMove) {
    Run(
        screen_,
        [&] {
            driver_.PenDown(screen_, {50, 60});
        },
        [&] {
            driver_.PenMoveAtOnce(screen_, {{60, 60}, {70, 65}, {60, 60}, {80, 70}});
        },
        [&] {
            EXPECT_THAT(samples_, ElementsAre(Point{60, 60}, Point{70, 65}, Point{60, 60}));
        },
        [&] {
            driver_.PenMoveAtOnce(screen_, {{90, 70}, {100, 70}});
        },
        [&] {
            driver_.PenUp(screen_, {100, 70});
        },
        [&] { screen_.ReleasePen(); });
    EXPECT_THAT(samples_, ElementsAre(Point{60, 60}, Point{70, 65}, Point{60, 60}, Point{90, 70}))
        << "positions handled once don't come back";
    EXPECT_THAT(screen_.log,
                ElementsAre("down 50 60", "move 80 70", "move 100 70", "up 100 70", "lost", "destroy"));
}

TEST_F(PenContract, NothingFromBeforeThePress) {
    Run(
        screen_,
        [&] {
            driver_.PenMoveAtOnce(screen_, {{10, 10}, {20, 20}, {30, 30}});
        },
        [&] { samples_.clear(); },
        [&] {
            driver_.PenDown(screen_, {50, 60});
        },
        [&] {
            driver_.PenMove(screen_, {60, 60});
        },
        [&] {
            driver_.PenUp(screen_, {60, 60});
        },
        [&] { screen_.ReleasePen(); });
    EXPECT_THAT(samples_, IsEmpty());
}

TEST_F(PenContract, NoMoreSamplesThanThereIsRoom) {
    std::vector<size_t> counts;
    screen_.penMove = [&] {
        Point samples[2];
        counts.push_back(screen_.PenSamples(samples, 2));
    };
    Run(
        screen_,
        [&] {
            driver_.PenDown(screen_, {50, 60});
        },
        [&] {
            driver_.PenMoveAtOnce(screen_, {{60, 60}, {70, 60}, {80, 60}, {90, 60}});
        },
        [&] {
            driver_.PenUp(screen_, {90, 60});
        },
        [&] { screen_.ReleasePen(); });
    EXPECT_THAT(counts, ElementsAre(2u));
}

TEST_F(PenContract, AnotherWindowTakesThePen) {
    Run(
        screen_,
        [&] {
            driver_.PenDown(screen_, {50, 60});
        },
        [&] { driver_.TakePenAway(screen_); },
        [&] {
            EXPECT_THAT(screen_.log, ElementsAre("down 50 60", "lost"));
            EXPECT_FALSE(screen_.HasPen());
            screen_.ReleasePen();
            EXPECT_EQ(screen_.log.size(), 2u) << "it was lost already";
        },
        [&] {
            driver_.PenUp(screen_, {50, 60});
        });
}

}  // namespace

}  // namespace contract
