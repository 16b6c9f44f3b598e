#include <algorithm>

#include "platform/Canvas.h"
#include "platform/Worker.h"
#include "tests/contract/Recording.h"

using namespace contract;
using namespace platform;

namespace {

using WindowContract = Contract;

TEST_F(WindowContract, ScreensRunAndOpenOverScreens) {
    const ScreenSize handheld = HandheldScreen();
    TestScreen inner(Screen::ScrollBar::None);
    std::vector<int> results;
    const auto expectSizes = [&] {
        EXPECT_TRUE(inner.ClientWidth() == handheld.width && screen_.ClientWidth() < handheld.width);
        EXPECT_EQ(inner.ClientHeight(), handheld.height - 2 * kBarHeight);
    };
    screen_.command = [&](int) { results.push_back(inner.RunModal(&screen_)); };
    Run({Post(screen_, 3), Post(inner, 4), Post(screen_, 3), expectSizes, Do(&Hand::PressClose)});
    EXPECT_THAT(results, ElementsAre(4, kIdOk)) << "a window object can run again";
    inner.create = [&] { return inner.EndModal(5), false; };
    EXPECT_EQ(inner.RunModal(nullptr), 5) << "it refused to open";
}

// Whatever is posted comes later and in order, and nothing once the window has ended.
TEST_F(WindowContract, PostedEvents) {
    screen_.command = [&](int id) {
        if (id == 3) return screen_.EndModal(0);
        screen_.PostScroll(ScrollCode::PageDown);
        for (int i = 0; i < 3; ++i) screen_.PostCommand(3);
        screen_.PostScroll(ScrollCode::PageUp);
        screen_.log.emplace_back("posted");
    };
    Play({Post(screen_, 1)});
    screen_.RunModal(nullptr);
    EXPECT_THAT(screen_.log, ElementsAre("command 1", "posted", "scroll 3 0", "command 3", "destroy"));
}

TEST_F(WindowContract, KeysShortcutsAndTheWheel) {
    std::vector<std::string> expected;
    for (int key = 0; key < static_cast<int>(Key::Other); ++key) {
        hand_.Then(Press(static_cast<Key>(key)));
        expected.push_back("key " + std::to_string(key));
    }
    Run({Shortcut(L'E'), Shortcut(L'z'), Do(&Hand::TurnWheel, 2), Do(&Hand::TurnWheel, -1)});
    expected.insert(expected.end(),
                    {"shortcut 69", "shortcut 122", "scroll 0 0", "scroll 0 0", "scroll 1 0", "destroy"});
    EXPECT_EQ(screen_.log, expected);
}

TEST_F(WindowContract, ScrollBars) {
    const std::pair<ScrollState, ScrollState> states[] = {{{0, 588, 589, 100}, {0, 588, 589, 0}},
                                                          {{0, 1176, 589, 900}, {0, 1176, 589, 588}},
                                                          {{0, 1176, 589, -5}, {0, 1176, 589, 0}},
                                                          {{0, 10, 50, 3}, {0, 10, 11, 0}},
                                                          {{0, 100000, 101, 99900}, {0, 100000, 101, 99900}}};
    std::vector<std::string> expected;
    const auto scroll = [&] {
        for (const auto& [set, wanted] : states) {
            screen_.SetScroll(set);
            const ScrollState got = screen_.GetScroll();
            EXPECT_TRUE(got.maximum == wanted.maximum && got.page == wanted.page) << got.page;
            EXPECT_EQ(got.position, wanted.position);
        }
        screen_.SetScrollPosition(200000);
        EXPECT_EQ(screen_.GetScroll().position, 99900);
        for (int code = 0; code <= static_cast<int>(ScrollCode::Other); ++code) {
            screen_.PostScroll(static_cast<ScrollCode>(code));
            expected.push_back("scroll " + std::to_string(code) + " 0");
        }
    };
    Run({scroll, Do(&Hand::DropThumb, 1234)});
    expected.insert(expected.end(), {"scroll 4 1234", "destroy"});
    EXPECT_EQ(screen_.log, expected);
}

TEST_F(WindowContract, TimersGoOnUntilStopped) {
    const Step wait = [&] {
        hand_.PassTime(25);
        if (screen_.log.size() == 2) screen_.StopTimer(1);
    };
    Run({[&] { EXPECT_TRUE(screen_.StartTimer(1, 20)); }, wait, wait, wait, wait, wait, wait});
    EXPECT_THAT(screen_.log, ElementsAre("timer 1", "timer 1", "destroy"));
}

// The window on top first, and each below when the one above has gone; one that stays keeps the rest.
TEST_F(WindowContract, AnotherCopyTakesOver) {
    TestDialog dialog(IDD_SAVE_AS);
    screen_.command = [&](int) { dialog.RunModal(&screen_); };
    dialog.leaves = screen_.leaves = false;
    Play({Post(screen_, 1), TakeOver(), [&] { dialog.leaves = true; }, TakeOver(),
          [&] { screen_.leaves = true; }, Post(screen_, 1), TakeOver()});
    EXPECT_EQ(screen_.RunModal(nullptr), 9);
    EXPECT_THAT(dialog.log, ElementsAre("take over", "take over", "destroy", "take over", "destroy"));
    EXPECT_THAT(screen_.log, ElementsAre("command 1", "take over", "command 1", "take over", "destroy"));
}

TEST_F(WindowContract, ShownPixels) {
    const Image image = Image::Make(64, 64);
    for (int y = 0; y < 64; ++y)
        std::fill_n(image.Surface().Row(y), 64, 0x00102000u + static_cast<uint32_t>(y));
    const Step showPart = [&] { screen_.ShowPixels(image, {10, 10, 500, 500}); };
    const Step showAt = [&] { screen_.ShowAt(image, {40, -1}); };
    const Step invert = [&] { screen_.InvertPixels({10, 13, 12, 14}); };
    Run({showPart, ExpectPixel({10, 10}, 0x0010200A), ExpectPixel({63, 63}, 0x0010203F),
         [&] { screen_.ScrollPixels(-8); }, ExpectPixel({10, 10}, 0x00102012),
         [&] { screen_.ScrollPixels(3); }, ExpectPixel({10, 13}, 0x00102012), invert,
         ExpectPixel({11, 13}, 0x00EFDFED), ExpectPixel({12, 13}, 0x00102012), showAt,
         ExpectPixel({40, 0}, 0x00102001), ExpectPixel({39, 13}, 0x00102012)});
    for (const auto& [width, height] : {std::pair{0, 5}, {-1, 5}, {1 << 20, 1 << 20}})
        EXPECT_FALSE(Image::Make(width, height).IsValid()) << width << " x " << height;
}

struct SizedScreen : TestScreen {
    using TestScreen::TestScreen;
    void OnSize() override { ++sizes; }
    int sizes = 0;
};

// In page pixels all stays what it was, and is shown as fine as the scale says.
TEST_F(WindowContract, AMonitorOfAnotherScale) {
    SizedScreen screen(Screen::ScrollBar::Vertical);
    screen.penSamples = 64;
    int width = 0;
    const auto come = [&](int dots) {
        return [&, dots] {
            hand_.ChangeScale(ink::Scale(dots));
            EXPECT_EQ(screen.PageScale().Dots(), dots);
            EXPECT_NEAR(screen.ClientWidth(), width, 20) << "frames and scroll bars need not grow";
            const Image image = Image::Make(64, 64, screen.PageScale());
            Canvas canvas(image);
            canvas.Fill({10, 20, 30, 40}, 0x0000FF);
            screen.ShowAt(image, {8, 8});
        };
    };
    Play({[&] { width = screen.ClientWidth(); }, come(192), ExpectPixel({18, 28}, 0xFF0000),
          ExpectPixel({37, 47}, 0xFF0000), ExpectPixel({38, 47}, 0), ExpectPixel({17, 28}, 0), Down({50, 60}),
          Move({{60, 61}, {70, 65}, {80, 70}}), Up({80, 70}), come(120), ExpectPixel({37, 47}, 0xFF0000),
          ExpectPixel({38, 48}, 0), ExpectPixel({71, 71}, 0), Post(screen, kIdOk)});
    screen.RunModal(nullptr);
    EXPECT_EQ(screen.sizes, 2);
    EXPECT_THAT(screen.log, ElementsAre("down 50 60", "up 80 70", "command 1", "destroy"));
    EXPECT_THAT(screen.samples, testing::Contains(Point{70, 65}));
}

TEST_F(WindowContract, WorkersReachAWindowByItsPrivateMessages) {
    Worker worker;
    std::vector<std::string> afterSending;
    const auto work = [&] {
        screen_.PostPrivateMessage(7, 10);
        screen_.SendPrivateMessage(2, 20);
        afterSending = screen_.log;
    };
    Run({[&] {
        ASSERT_TRUE(worker.Create(work) && !worker.Create(work));
        EXPECT_THAT(screen_.log, IsEmpty()) << "it has not been resumed";
        worker.Resume();
        worker.Wait();  // what it sends is handled all the same
    }});
    EXPECT_THAT(afterSending, testing::Contains("private 2 20"));
    EXPECT_THAT(screen_.log, testing::UnorderedElementsAre("private 7 10", "private 2 20", "destroy"));
}

TEST_F(WindowContract, AStrokeThatLeavesTheWindowAndOneThatIsTakenAway) {
    const auto expectPen = [&](bool isHeld) { return [=] { EXPECT_EQ(screen_.HasPen(), isHeld); }; };
    const Step release = [&] { screen_.ReleasePen(); };
    screen_.penSamples = 64;
    Run({Move({{10, 10}, {20, 20}, {30, 30}}), Down({50, 60}), Move({{60, 60}, {70, 65}, {60, 60}, {80, 70}}),
         [&] { screen_.penSamples = 1; }, Move({{110, 70}, {120, 70}, {-6, -4}}), Up({-6, -4}),
         expectPen(true), release, expectPen(false), Down({50, 60}), TakePenAway(), expectPen(false), release,
         Up({50, 60})});
    EXPECT_THAT(screen_.log,
                ElementsAre("down 50 60", "up -6 -4", "lost", "down 50 60", "lost", "up 50 60", "destroy"));
    EXPECT_THAT(screen_.moves, testing::Contains(Point{-6, -4}));
    EXPECT_THAT(screen_.samples, testing::SizeIs(4))
        << "no more than there is room, none from before the press";
    screen_.samples.resize(3);
    EXPECT_THAT(screen_.samples, ElementsAre(Point{60, 60}, Point{70, 65}, Point{60, 60}));
}

}  // namespace
