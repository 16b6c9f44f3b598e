#include <algorithm>

#include "platform/Dialog.h"
#include "platform/Worker.h"
#include "res/resource.h"
#include "tests/contract/Recording.h"

namespace contract {

namespace {

using platform::Image;
using platform::Key;
using platform::Point;
using platform::Rect;
using platform::Screen;
using platform::ScrollCode;
using platform::ScrollState;
using testing::ElementsAre;
using TestScreen = Recording<Screen>;

constexpr auto kWithBar = Screen::ScrollBar::Vertical;
constexpr auto kWithoutBar = Screen::ScrollBar::None;

TEST_F(WindowContract, AModalRunAnswersWithItsResult) {
    TestScreen screen(kWithoutBar);
    bool existed = false;
    driver_.Then([&] {
        existed = screen.Exists();
        screen.PostCommand(42);
    });
    EXPECT_FALSE(screen.Exists());
    EXPECT_EQ(screen.RunModal(nullptr), 42);
    EXPECT_TRUE(existed);
    EXPECT_FALSE(screen.Exists());
    EXPECT_THAT(screen.log, ElementsAre("command 42", "destroy"));

    driver_.Then([&] { screen.EndModal(7); });
    EXPECT_EQ(screen.RunModal(nullptr), 7) << "a window object can run again";
}

TEST_F(WindowContract, AWindowMayRefuseToOpen) {
    TestScreen plain(kWithBar);
    plain.create = [] { return false; };
    EXPECT_EQ(plain.RunModal(nullptr), -1);
    EXPECT_THAT(plain.log, ElementsAre("destroy"));

    TestScreen withResult(kWithBar);
    withResult.create = [&] {
        withResult.EndModal(5);
        return false;
    };
    EXPECT_EQ(withResult.RunModal(nullptr), 5);
}

TEST_F(WindowContract, TheClosingButtonIsOk) {
    TestScreen screen(kWithBar);
    driver_.Then([&] { driver_.Close(screen); });
    EXPECT_EQ(screen.RunModal(nullptr), platform::kIdOk);
}

TEST_F(WindowContract, ScreensOpenOverScreens) {
    TestScreen outer(kWithBar);
    TestScreen inner(kWithoutBar);
    int innerResult = 0;
    inner.command = [&](int id) {
        inner.EndModal(id);
        outer.PostCommand(9);
    };
    outer.command = [&](int id) {
        if (id == 9) return outer.EndModal(id);
        innerResult = inner.RunModal(&outer);
    };
    driver_.Then([&] { outer.PostCommand(3); });
    driver_.Then([&] { inner.PostCommand(4); });
    EXPECT_EQ(outer.RunModal(nullptr), 9);
    EXPECT_EQ(innerResult, 4);
}

TEST_F(WindowContract, TheClientAreaIsTheHandheldsScreenLessItsBars) {
    const platform::ScreenSize handheld = platform::HandheldScreen();
    TestScreen wide(kWithoutBar);
    Run(wide, [&] {
        EXPECT_EQ(wide.ClientWidth(), handheld.width);
        EXPECT_EQ(wide.ClientHeight(), handheld.height - 2 * platform::kBarHeight);
    });
    TestScreen narrow(kWithBar);
    Run(narrow, [&] {
        EXPECT_LT(narrow.ClientWidth(), handheld.width);
        EXPECT_GT(narrow.ClientWidth(), handheld.width - 40);
        EXPECT_EQ(narrow.ClientHeight(), handheld.height - 2 * platform::kBarHeight);
    });
}

TEST_F(WindowContract, TitlesAreKept) {
    TestScreen screen(kWithBar);
    Run(screen, [&] {
        screen.SetTitle(L"[new] - Inkwright \u00BB");
        EXPECT_EQ(screen.Title(), L"[new] - Inkwright \u00BB");
        screen.SetTitle(L"");
        EXPECT_EQ(screen.Title(), L"");
    });
}

TEST_F(WindowContract, PostedEventsComeLaterAndInOrder) {
    TestScreen screen(kWithBar);
    screen.command = [&](int id) {
        if (id != 1) return;
        screen.PostCommand(2);
        screen.PostScroll(ScrollCode::PageDown);
        screen.PostCommand(3);
        screen.log.emplace_back("posted");
    };
    Run(screen, [&] { screen.PostCommand(1); });
    EXPECT_THAT(screen.log,
                ElementsAre("command 1", "posted", "command 2", "scroll 3 0", "command 3", "destroy"));
}

TEST_F(WindowContract, KeysArriveOneByOne) {
    const Key keys[] = {Key::Left,     Key::Up,   Key::Right, Key::Down,  Key::PageUp,
                        Key::PageDown, Key::Home, Key::End,   Key::Enter, Key::Escape,
                        Key::Delete,   Key::F2,   Key::Other};
    TestScreen screen(kWithBar);
    std::vector<std::string> expected;
    for (const Key key : keys) {
        driver_.Then([this, &screen, key] { driver_.Press(screen, key); });
        expected.push_back("key " + std::to_string(static_cast<int>(key)));
    }
    expected.emplace_back("destroy");
    Run(screen);
    EXPECT_EQ(screen.log, expected);
}

TEST_F(WindowContract, ShortcutsAndTheWheel) {
    TestScreen screen(kWithBar);
    Run(
        screen, [&] { driver_.PressShortcut(screen, L'E'); }, [&] { driver_.PressShortcut(screen, L'Z'); },
        [&] { driver_.Press(screen, Key::Home); }, [&] { driver_.TurnWheel(screen, 2); },
        [&] { driver_.TurnWheel(screen, -1); });
    std::vector<std::string> expected{"shortcut E", "shortcut Z", "key 6"};
    for (int i = 0; i < 2 * driver_.WheelLines(); ++i) expected.emplace_back("scroll 0 0");
    for (int i = 0; i < driver_.WheelLines(); ++i) expected.emplace_back("scroll 1 0");
    expected.emplace_back("destroy");
    // A real keyboard tells of the Ctrl key, too.
    auto& log = screen.log;
    const std::string other = "key " + std::to_string(static_cast<int>(Key::Other));
    log.erase(std::remove(log.begin(), log.end(), other), log.end());
    EXPECT_EQ(log, expected);
}

TEST_F(WindowContract, ScrollRequestsFromOutside) {
    TestScreen screen(kWithBar);
    screen.create = [&] {
        screen.SetScroll({0, 100000, 101, 40000});
        return true;
    };
    const ScrollCode codes[] = {ScrollCode::LineUp,   ScrollCode::LineDown, ScrollCode::PageUp,
                                ScrollCode::PageDown, ScrollCode::Top,      ScrollCode::Bottom,
                                ScrollCode::Other};
    for (const ScrollCode code : codes) {
        driver_.Then([this, &screen, code] { driver_.SendScroll(screen, code, 0); });
    }
    Run(screen, [&] { driver_.SendScroll(screen, ScrollCode::ThumbPosition, 1234); });
    EXPECT_THAT(screen.log, ElementsAre("scroll 0 0", "scroll 1 0", "scroll 2 0", "scroll 3 0", "scroll 5 0",
                                        "scroll 6 0", "scroll 7 0", "scroll 4 1234", "destroy"));
}

TEST_F(WindowContract, ScrollPositionsStayInRange) {
    const struct {
        ScrollState set;
        int page;
        int position;
    } kCases[] = {{{0, 588, 589, 0}, 589, 0},      {{0, 588, 589, 100}, 589, 0},
                  {{0, 1176, 589, 588}, 589, 588}, {{0, 1176, 589, 900}, 589, 588},
                  {{0, 1176, 589, -5}, 589, 0},    {{0, 100000, 101, 99900}, 101, 99900},
                  {{0, 10, 50, 3}, 11, 0},         {{0, 100, 0, 100}, 0, 100}};
    TestScreen screen(kWithBar);
    Run(screen, [&] {
        for (const auto& each : kCases) {
            screen.SetScroll(each.set);
            const ScrollState got = screen.GetScroll();
            EXPECT_EQ(got.minimum, each.set.minimum);
            EXPECT_EQ(got.maximum, each.set.maximum);
            EXPECT_EQ(got.page, each.page) << each.set.maximum << " " << each.set.page;
            EXPECT_EQ(got.position, each.position) << each.set.maximum << " " << each.set.position;
        }
        screen.SetScroll({0, 1000, 101, 0});
        screen.SetScrollPosition(2000);
        EXPECT_EQ(screen.GetScroll().position, 900);
        screen.SetScrollPosition(50);
        EXPECT_EQ(screen.GetScroll().position, 50);
    });
}

TEST_F(WindowContract, TimersGoOnUntilStopped) {
    TestScreen screen(kWithBar);
    screen.command = [&](int id) {
        EXPECT_EQ(id, -1);
        if (screen.timers == 3) screen.StopTimer(1);
    };
    driver_.Then([&] { EXPECT_TRUE(screen.StartTimer(1, 20)); });
    for (int i = 0; i < 20; ++i) driver_.Then([this] { driver_.LetTimePass(25); });
    Run(screen);
    EXPECT_EQ(screen.timers, 3);
    EXPECT_FALSE(screen.StartTimer(1, 20)) << "the window is gone";
}

TEST_F(WindowContract, PrivateMessages) {
    TestScreen screen(kWithBar);
    Run(screen, [&] { driver_.SendPrivateMessage(screen, 100, 77); });
    EXPECT_THAT(screen.log, ElementsAre("private 100 77", "destroy"));
}

// The window on top hears of it first, and each below when the one above has gone; one that stays keeps the
// rest.
TEST_F(WindowContract, AnotherCopyTakesOver) {
    TestScreen screen(kWithBar);
    Recording<platform::Dialog> dialog(IDD_SAVE_AS);
    screen.command = [&](int) { screen.log.push_back("gave " + std::to_string(dialog.RunModal(&screen))); };
    const auto takeOver = [&] { driver_.SendPrivateMessage(dialog, platform::kTakeOver, 0); };
    dialog.leaves = screen.leaves = false;
    driver_.Then([&] { screen.PostCommand(1); });
    driver_.Then(takeOver);
    driver_.Then([&] { dialog.leaves = true; });
    driver_.Then(takeOver);
    driver_.Then([&] {
        EXPECT_THAT(dialog.log, ElementsAre("take over", "take over", "destroy"));
        screen.leaves = true;
        screen.PostCommand(1);
    });
    driver_.Then(takeOver);
    EXPECT_EQ(screen.RunModal(nullptr), 9);
    EXPECT_THAT(screen.log, ElementsAre("command 1", "gave 9", "take over", "command 1", "gave 9",
                                        "take over", "destroy"));
}

TEST_F(WindowContract, NothingReachesAWindowAfterItsEnd) {
    TestScreen screen(kWithBar);
    driver_.Then([&] {
        for (int i = 0; i < 3; ++i) screen.PostCommand(platform::kIdOk);
        screen.PostScroll(ScrollCode::PageDown);
    });
    screen.RunModal(nullptr);
    EXPECT_THAT(screen.log, ElementsAre("command 1", "destroy"));
}

TEST_F(WindowContract, ShownPixels) {
    TestScreen screen(kWithBar);
    Image image = Image::Make(64, 64);
    ASSERT_TRUE(image.IsValid());
    for (int y = 0; y < 64; ++y)
        std::fill_n(image.Surface().Row(y), 64, 0x00102000u + static_cast<uint32_t>(y));
    Run(screen, [&] {
        screen.Show(image, {10, 10, 30, 30});
        EXPECT_EQ(driver_.PixelAt(screen, {10, 10}), 0x0010200Au);
        EXPECT_EQ(driver_.PixelAt(screen, {29, 29}), 0x0010201Du);
        screen.Show(image, {0, 0, 500, 500});
        EXPECT_EQ(driver_.PixelAt(screen, {63, 63}), 0x0010203Fu);
        screen.ScrollPixels(-8);
        EXPECT_EQ(driver_.PixelAt(screen, {0, 0}), 0x00102008u);
        screen.ScrollPixels(3);
        EXPECT_EQ(driver_.PixelAt(screen, {0, 3}), 0x00102008u);
        screen.InvertPixels({0, 3, 2, 4});
        EXPECT_EQ(driver_.PixelAt(screen, {1, 3}), 0x00EFDFF7u);
        EXPECT_EQ(driver_.PixelAt(screen, {2, 3}), 0x00102008u) << "the right side lies outside";
        screen.InvertPixels({0, 3, 2, 4});
        EXPECT_EQ(driver_.PixelAt(screen, {0, 3}), 0x00102008u);
    });
}

TEST_F(WindowContract, ImagesBeginBlackAndCanBeMoved) {
    Image image = Image::Make(3, 2);
    ASSERT_TRUE(image.IsValid());
    EXPECT_EQ(image.Surface().Row(1)[2], 0u);
    image.Surface().Row(1)[2] = 5;
    const Image moved = std::move(image);
    EXPECT_EQ(moved.Surface().Row(1)[2], 5u);
    EXPECT_EQ(moved.Width(), 3);
    EXPECT_EQ(moved.Height(), 2);
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {1 << 20, 1 << 20}}) {
        EXPECT_FALSE(Image::Make(width, height).IsValid()) << width << " x " << height;
    }
    EXPECT_FALSE(Image::FromResource(9999).IsValid());
}

TEST_F(WindowContract, WindowsThatDoNotExist) {
    TestScreen screen(kWithBar);
    const Image image = Image::Make(8, 8);
    screen.Invalidate();
    screen.Show(image, {0, 0, 8, 8});
    screen.ScrollPixels(3);
    screen.InvertPixels({0, 0, 8, 8});
    screen.SetScroll({0, 100, 10, 5});
    screen.CapturePen();
    screen.ReleasePen();
    screen.StopTimer(1);
    Point point;
    EXPECT_FALSE(screen.HasPen());
    EXPECT_EQ(screen.PenSamples(&point, 1), 0u);
    EXPECT_EQ(screen.ClientWidth(), 0);
    EXPECT_FALSE(screen.CreateMenuBar({}));
    EXPECT_TRUE(screen.log.empty());
}

TEST_F(WindowContract, WorkersReachAWindowByItsPrivateMessages) {
    TestScreen screen(Screen::ScrollBar::None);
    platform::Worker worker;
    EXPECT_FALSE(worker.Exists());
    worker.Wait();
    std::vector<std::string> afterSending;
    Run(
        screen,
        [&] {
            ASSERT_TRUE(worker.Create([&] {
                screen.PostPrivateMessage(7, 10);
                screen.SendPrivateMessage(2, 20);
                afterSending = screen.log;
                screen.SendPrivateMessage(3, 30);
            }));
            EXPECT_FALSE(worker.Create([] {}));
            EXPECT_TRUE(screen.log.empty()) << "it has not been resumed";
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
        });
    EXPECT_THAT(afterSending, testing::Contains("private 2 20"));
    EXPECT_THAT(screen.log, testing::UnorderedElementsAre("private 7 10", "private 2 20", "private 3 30",
                                                          "private 4 40", "destroy"));
    screen.SendPrivateMessage(5, 50);
    EXPECT_EQ(screen.log.back(), "destroy");
}

}  // namespace

}  // namespace contract
