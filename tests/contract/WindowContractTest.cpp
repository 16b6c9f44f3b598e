// Screens: how they run, what reaches them, what they show.
#include <algorithm>

#include "platform/Worker.h"
#include "tests/contract/Recording.h"

namespace contract {

namespace {

using platform::Image;
using platform::Key;
using platform::Screen;
using platform::ScrollCode;
using platform::ScrollState;
using testing_support::Hand;

constexpr auto kWithBar = Screen::ScrollBar::Vertical;
constexpr auto kWithoutBar = Screen::ScrollBar::None;

class WindowContract : public Contract {};

TEST_F(WindowContract, ScreensRunAndOpenOverScreens) {
    const platform::ScreenSize handheld = platform::HandheldScreen();
    TestScreen outer(kWithBar);
    TestScreen inner(kWithoutBar);
    std::vector<int> results;
    outer.command = [&](int id) {
        if (id == 9) return outer.EndModal(id);
        results.push_back(inner.RunModal(&outer));
    };
    Play({Post(outer, 3), Post(inner, 4), Post(outer, 3),
          [&] {
              EXPECT_EQ(inner.ClientWidth(), handheld.width);
              EXPECT_LT(outer.ClientWidth(), handheld.width);
              for (const Screen* screen : {&inner, &outer})
                  EXPECT_EQ(screen->ClientHeight(), handheld.height - 2 * platform::kBarHeight);
          },
          Do(&Hand::PressClose), Post(outer, 9)});
    EXPECT_EQ(outer.RunModal(nullptr), 9);
    EXPECT_THAT(results, ElementsAre(4, platform::kIdOk)) << "a window object can run again";

    inner.create = [&] { return inner.EndModal(5), false; };
    EXPECT_EQ(inner.RunModal(nullptr), 5) << "it refused to open";
    EXPECT_FALSE(inner.Exists());
}

// Whatever is posted comes later and in order, and nothing once the window has ended.
TEST_F(WindowContract, PostedEvents) {
    TestScreen screen(kWithBar);
    screen.command = [&](int id) {
        if (id == 3) return screen.EndModal(0);
        if (id != 1) return;
        screen.PostCommand(2);
        screen.PostScroll(ScrollCode::PageDown);
        for (int i = 0; i < 3; ++i) screen.PostCommand(3);
        screen.PostScroll(ScrollCode::PageUp);
        screen.log.emplace_back("posted");
    };
    Play({Post(screen, 1)});
    screen.RunModal(nullptr);
    EXPECT_THAT(screen.log,
                ElementsAre("command 1", "posted", "command 2", "scroll 3 0", "command 3", "destroy"));
}

TEST_F(WindowContract, KeysShortcutsAndTheWheel) {
    TestScreen screen(kWithBar);
    std::vector<std::string> expected;
    for (int key = 0; key < static_cast<int>(Key::Other); ++key) {
        hand_.Then(Press(static_cast<Key>(key)));
        expected.push_back("key " + std::to_string(key));
    }
    Run(screen, {Do(&Hand::PressShortcut, L'E'), Do(&Hand::PressShortcut, L'Z'), Do(&Hand::TurnWheel, 2),
                 Do(&Hand::TurnWheel, -1)});
    expected.insert(expected.end(), {"shortcut 69", "shortcut 90"});
    expected.insert(expected.end(), static_cast<size_t>(2 * device_.WheelLines()), "scroll 0 0");
    expected.insert(expected.end(), static_cast<size_t>(device_.WheelLines()), "scroll 1 0");
    expected.emplace_back("destroy");
    EXPECT_EQ(screen.log, expected);
}

TEST_F(WindowContract, ScrollBars) {
    const struct {
        ScrollState set;
        int page;
        int position;
    } kCases[] = {{{0, 588, 589, 0}, 589, 0},      {{0, 588, 589, 100}, 589, 0},
                  {{0, 1176, 589, 588}, 589, 588}, {{0, 1176, 589, 900}, 589, 588},
                  {{0, 1176, 589, -5}, 589, 0},    {{0, 100000, 101, 99900}, 101, 99900},
                  {{0, 10, 50, 3}, 11, 0},         {{0, 100, 0, 100}, 0, 100}};
    TestScreen screen(kWithBar);
    Script script{[&] {
        for (const auto& each : kCases) {
            screen.SetScroll(each.set);
            const ScrollState got = screen.GetScroll();
            EXPECT_EQ(got.maximum, each.set.maximum);
            EXPECT_EQ(got.page, each.page) << each.set.maximum << " " << each.set.page;
            EXPECT_EQ(got.position, each.position) << each.set.maximum << " " << each.set.position;
        }
        screen.SetScroll({0, 100000, 101, 40000});
        screen.SetScrollPosition(200000);
        EXPECT_EQ(screen.GetScroll().position, 99900);
    }};
    std::vector<std::string> expected;
    for (int code = 0; code <= static_cast<int>(ScrollCode::Other); ++code) {
        const int position = code == static_cast<int>(ScrollCode::ThumbPosition) ? 1234 : 0;
        script.push_back(Do(&Hand::Scroll, static_cast<ScrollCode>(code), position));
        expected.push_back("scroll " + std::to_string(code) + " " + std::to_string(position));
    }
    Run(screen, script);
    screen.log.pop_back();
    EXPECT_EQ(screen.log, expected);
}

TEST_F(WindowContract, TimersGoOnUntilStopped) {
    TestScreen screen(kWithBar);
    Script script{[&] { EXPECT_TRUE(screen.StartTimer(1, 20)); }};
    for (int i = 0; i < 20; ++i) {
        script.push_back([&] {
            hand_.PassTime(25);
            if (screen.log.size() >= 3) screen.StopTimer(1);
        });
    }
    Run(screen, script);
    EXPECT_THAT(screen.log, ElementsAre("timer 1", "timer 1", "timer 1", "destroy"));
}

// The window on top hears of it first, and each below when the one above has gone; one that stays keeps the
// rest.
TEST_F(WindowContract, AnotherCopyTakesOver) {
    TestScreen screen(kWithBar);
    TestDialog dialog(IDD_SAVE_AS);
    screen.command = [&](int) { screen.log.push_back("gave " + std::to_string(dialog.RunModal(&screen))); };
    const Step takeOver = Do(&Hand::SendPrivateMessage, platform::kTakeOver, intptr_t{0});
    dialog.leaves = screen.leaves = false;
    Play({Post(screen, 1), takeOver, [&] { dialog.leaves = true; }, takeOver, [&] { screen.leaves = true; },
          Post(screen, 1), takeOver});
    EXPECT_EQ(screen.RunModal(nullptr), 9);
    EXPECT_THAT(dialog.log, ElementsAre("take over", "take over", "destroy", "take over", "destroy"));
    EXPECT_THAT(screen.log, ElementsAre("command 1", "gave 9", "take over", "command 1", "gave 9",
                                        "take over", "destroy"));
}

TEST_F(WindowContract, ShownPixels) {
    TestScreen screen(kWithBar);
    const Image image = Image::Make(64, 64);
    ASSERT_TRUE(image.IsValid());
    for (int y = 0; y < 64; ++y)
        std::fill_n(image.Surface().Row(y), 64, 0x00102000u + static_cast<uint32_t>(y));
    Run(screen,
        {[&] {
             screen.Show(image, {10, 10, 30, 30});
         },
         ExpectPixel({10, 10}, 0x0010200A), ExpectPixel({29, 29}, 0x0010201D),
         [&] {
             screen.Show(image, {0, 0, 500, 500});
         },
         ExpectPixel({63, 63}, 0x0010203F), [&] { screen.ScrollPixels(-8); }, ExpectPixel({0, 0}, 0x00102008),
         [&] { screen.ScrollPixels(3); }, ExpectPixel({0, 3}, 0x00102008),
         [&] {
             screen.InvertPixels({0, 3, 2, 4});
         },
         ExpectPixel({1, 3}, 0x00EFDFF7), ExpectPixel({2, 3}, 0x00102008),
         [&] {
             screen.ShowAt(image, {40, -1});
         },
         ExpectPixel({40, 0}, 0x00102001), ExpectPixel({39, 3}, 0x00102008)});
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {1 << 20, 1 << 20}})
        EXPECT_FALSE(Image::Make(width, height).IsValid()) << width << " x " << height;
}

TEST_F(WindowContract, WorkersReachAWindowByItsPrivateMessages) {
    TestScreen screen(kWithoutBar);
    platform::Worker worker;
    std::vector<std::string> afterSending;
    Run(screen, {Do(&Hand::SendPrivateMessage, 100u, intptr_t{77}),
                 [&] {
                     ASSERT_TRUE(worker.Create([&] {
                         screen.PostPrivateMessage(7, 10);
                         screen.SendPrivateMessage(2, 20);
                         afterSending = screen.log;
                         screen.SendPrivateMessage(3, 30);
                     }));
                     EXPECT_FALSE(worker.Create([] {}));
                     EXPECT_EQ(screen.log.size(), 1u) << "it has not been resumed";
                     worker.Resume();
                 },
                 [&] {
                     worker.Wait();
                     EXPECT_FALSE(worker.Exists());
                 },
                 [&] {
                     // Waited for at once: what it sends is handled all the same.
                     ASSERT_TRUE(worker.Create([&] { screen.SendPrivateMessage(4, 40); }));
                     worker.Resume();
                     worker.Wait();
                 }});
    EXPECT_THAT(afterSending, testing::Contains("private 2 20"));
    EXPECT_THAT(screen.log, testing::UnorderedElementsAre("private 100 77", "private 7 10", "private 2 20",
                                                          "private 3 30", "private 4 40", "destroy"));
    screen.SendPrivateMessage(5, 50);
    EXPECT_EQ(screen.log.back(), "destroy");
}

}  // namespace

}  // namespace contract
