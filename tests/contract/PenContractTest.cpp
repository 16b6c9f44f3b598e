#include "tests/contract/Recording.h"

namespace contract {

namespace {

using platform::Point;
using testing_support::Hand;

class PenContract : public Contract {
  protected:
    PenContract() {
        screen_.capturesPen = true;
        screen_.penMove = [this] {
            Point samples[64];
            const size_t count = screen_.PenSamples(samples, room_);
            samples_.insert(samples_.end(), samples, samples + count);
        };
    }
    Step MoveAtOnce(const std::vector<Point>& places) { return Do(&Hand::PenMove, places); }
    Step Release() {
        return [this] { screen_.ReleasePen(); };
    }

    TestScreen screen_{platform::Screen::ScrollBar::Vertical};
    std::vector<Point> samples_;
    size_t room_ = 64;
};

TEST_F(PenContract, AStrokeThatLeavesTheWindow) {
    Run(screen_, {Down({50, 5}), [&] { EXPECT_TRUE(screen_.HasPen()); }, Move({55, 6}), Move({-6, -4}),
                  Up({-6, -4}), [&] { EXPECT_TRUE(screen_.HasPen()) << "kept until it is released"; },
                  Release(), [&] { EXPECT_FALSE(screen_.HasPen()); }});
    EXPECT_THAT(screen_.log,
                ElementsAre("down 50 5", "move 55 6", "move -6 -4", "up -6 -4", "lost", "destroy"));
    EXPECT_THAT(samples_, IsEmpty());
}

TEST_F(PenContract, SamplesOfMergedMoves) {
    Run(screen_, {MoveAtOnce({{10, 10}, {20, 20}, {30, 30}}), [&] { samples_.clear(); }, Down({50, 60}),
                  MoveAtOnce({{60, 60}, {70, 65}, {60, 60}, {80, 70}}), MoveAtOnce({{90, 70}, {100, 70}}),
                  [&] { room_ = 2; }, MoveAtOnce({{110, 70}, {120, 70}, {130, 70}, {140, 70}}), Up({140, 70}),
                  Release()});
    EXPECT_THAT(samples_, testing::SizeIs(6)) << "no more than there is room, none from before the press";
    samples_.resize(4);
    EXPECT_THAT(samples_, ElementsAre(Point{60, 60}, Point{70, 65}, Point{60, 60}, Point{90, 70}));
}

TEST_F(PenContract, AnotherWindowTakesThePen) {
    Run(screen_, {Down({50, 60}), Do(&Hand::TakePenAway), [&] { EXPECT_FALSE(screen_.HasPen()); }, Release(),
                  Up({50, 60})});
    EXPECT_THAT(screen_.log, ElementsAre("down 50 60", "lost", "up 50 60", "destroy")) << "lost once";
}

}  // namespace

}  // namespace contract
