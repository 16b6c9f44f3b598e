// The eraser and the space tool in the editor, from the pen to the saved note.
#include "editor/EditorTools.h"
#include "ink/InkPainter.h"
#include "platform/host/HostWindow.h"
#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace {

using ink::Point;
using testing::ElementsAre;
using testing_support::PointsOf;
using testing_support::Words;
using Trace = std::vector<Point>;

const wchar_t kNote[] = L"\\a.ikw";
constexpr uint32_t kPaper = 0xFFFFFF;
constexpr int kViewHeight = 268;

Trace Line(Point from, int steps) {
    Trace line;
    for (int i = 0; i <= steps; ++i) line.push_back({from.x + 4 * i, from.y});
    return line;
}

class Eraser : public testing_support::DeskTest {
  protected:
    Eraser() { device.files.Put(kNote, Words({5, 0xFFFFFF, 0, kViewHeight})); }

    void Choose(int tool) { Desk().Command(tool); }
    std::unique_ptr<ink::InkPage> Edited(const std::function<void()>& script) {
        Then(script);
        Then(Close());
        Run(kNote);
        return ReadBack(kNote);
    }
    // Page rows of all strokes, as they are drawn.
    static std::vector<int> Rows(const ink::InkPage& page) {
        std::vector<int> rows;
        for (size_t slot = page.SlotCount(); slot-- > 0;) {
            const ink::StrokeBand* band = page.Band(slot);
            for (size_t i = 0; band != nullptr && i < band->Count(); ++i) rows.push_back(band->At(i).minY);
        }
        return rows;
    }
    bool InkAt(int x, int y) { return Shown().Row(y)[x] != kPaper; }
    platform::ScrollState ScrollBar() { return Desk().Top()->GetScroll(); }
    std::vector<uint32_t> ShownPixels() { return {Shown().pixels, Shown().pixels + 224 * kViewHeight}; }
};

TEST_F(Eraser, InkVanishesAtOnceAndTheStrokeFallsApartAtTheLift) {
    const auto page = Edited([this] {
        Desk().Stroke(Line({20, 100}, 20));
        Desk().Stroke({{20, 200}, {90, 200}});
        Choose(IDM_ERASER);
        Desk().PenDown({60, 130});
        Desk().PenMove({60, 103}, {{60, 120}, {60, -4}, {60, 110}});
        EXPECT_FALSE(InkAt(60, 100));
        EXPECT_TRUE(InkAt(52, 100) && InkAt(67, 100)) << "the square is 14 pixels wide";
        Desk().PenUp({60, 103});
        Desk().Stroke({{55, 200}});  // between the points of a stroke
        Desk().Settle();
        EXPECT_TRUE(InkAt(55, 200)) << "nothing of it was erased";
    });
    ASSERT_EQ(page->Band(0)->Count(), 3u);
    EXPECT_THAT(PointsOf(page->Band(0)->At(0)), testing::ElementsAreArray(Line({20, 100}, 8)));
    EXPECT_THAT(PointsOf(page->Band(0)->At(1)), testing::ElementsAreArray(Line({68, 100}, 8)));
    EXPECT_THAT(PointsOf(page->Band(0)->At(2)), ElementsAre(Point{20, 200}, Point{90, 200}));
}

TEST_F(Eraser, WhatIsShownIsWhatARepaintShows) {
    std::vector<uint32_t> shown;
    const auto page = Edited([this, &shown] {
        for (int y = 4; y < 260; y += 16) Desk().Stroke(Line({5, y}, 50));
        Choose(IDM_ERASER);
        Desk().Stroke({{30, 20}, {80, 30}, {120, 5}, {223, 250}, {-9, 266}, {40, 150}});
        EXPECT_NE(Shown().Row(30)[100], kPaper) << "the head's paper";
        Choose(IDM_SPACE_TOOL);
        Desk().Stroke({{100, 120}, {100, 150}});
        Desk().Settle();
        shown = ShownPixels();
    });
    std::vector<uint32_t> wanted(224 * kViewHeight);
    ink::PixelSurface surface{wanted.data(), 224, kViewHeight, 224};
    ink::InkPainter().Repaint(surface, *page, 0, surface.Bounds());
    EXPECT_TRUE(shown == wanted);
}

TEST_F(Eraser, ThePageShrinksToWhatIsLeft) {
    const auto page = Edited([this] {
        Desk().Stroke(Line({20, 100}, 10));
        Desk().Scroll(platform::ScrollCode::PageDown);
        Desk().Stroke(Line({20, 200}, 10));  // page row 387, band 1
        EXPECT_EQ(ScrollBar().position, 187);
        Choose(IDM_ERASER);
        Desk().Stroke(Line({20, 200}, 10));
        EXPECT_EQ(ScrollBar().maximum, kViewHeight);
        EXPECT_EQ(ScrollBar().position, 0);
        Desk().Settle();
        EXPECT_TRUE(InkAt(30, 100));
    });
    EXPECT_EQ(page->SlotCount(), 1u);
}

TEST_F(Eraser, ADragThatScrollsErasesWhereThePenWas) {
    const auto page = Edited([this] {
        for (const int y : {100, 126, 250}) Desk().Stroke(Line({20, y}, 10));
        Desk().Scroll(platform::ScrollCode::PageDown);  // 187 rows, then back by 26 in the middle of the drag
        Choose(IDM_ERASER);
        Desk().PenDown({30, 63});  // page row 250
        Desk().Scroll(platform::ScrollCode::LineUp);
        EXPECT_FALSE(InkAt(30, 89));
        EXPECT_TRUE(InkAt(50, 89));
        Desk().PenUp({30, 150});  // page row 311
    });
    EXPECT_THAT(Rows(*page), ElementsAre(100, 126, 250, 250));
}

// Strokes on rows 50, 100 and 240 and one from 90 to 130, in a view of 268 rows.
TEST_F(Eraser, SpaceOpensAndClosesRows) {
    struct Case {
        Trace drag;
        std::vector<int> rows;
        int maximum;  // of the scroll bar
    };
    const Case cases[] = {
        {{{5, 95}, {9, 125}}, {270, 50, 130, 90}, 2 * kViewHeight},
        {{{5, 90}, {9, 300}}, {278, 418, 268, 50}, 2 * kViewHeight},  // no further than the view's end
        {{{5, 200}, {9, 150}}, {50, 100, 190, 90}, kViewHeight},
        {{{5, 200}, {9, -40}}, {50, 100, 131, 90}, kViewHeight},  // up to the row below the ink above
        {{{5, 95}, {9, 60}}, {50, 100, 240, 90}, kViewHeight},    // no gap: a tall stroke stands beside
        {{{5, 20}, {9, 0}}, {30, 80, 220, 70}, kViewHeight},
        {{{5, 250}, {9, 20}}, {50, 100, 240, 90}, kViewHeight},  // nothing below
        {{{5, 20}}, {50, 100, 240, 90}, kViewHeight},
        {{{5, 50}, {9, 40}, {3, 60}}, {60, 110, 250, 100}, kViewHeight},
    };
    for (const Case& c : cases) {
        device.files.Put(kNote, Words({5, 0xFFFFFF, 0, kViewHeight}));
        const auto page = Edited([this, &c] {
            for (const int y : {50, 100, 240}) Desk().Stroke(Line({20, y}, 10));
            Desk().Stroke({{120, 90}, {120, 130}});
            Choose(IDM_SPACE_TOOL);
            Desk().Stroke(c.drag);
            EXPECT_EQ(ScrollBar().maximum, c.maximum);
        });
        EXPECT_EQ(Rows(*page), c.rows) << c.drag.front().y << " to " << c.drag.back().y;
        EXPECT_EQ(page->Band(0)->At(0).yOffset, 0);
    }
}

// Lines of ten pixels reach five rows beyond their points: none lands on another or leaves the page.
TEST_F(Eraser, WideInkClosesUpByWhatItCovers) {
    device.SetSetting(L"PenInfo", 0x00020064);
    const std::pair<Trace, std::vector<int>> kCases[] = {{{{5, 150}, {9, -40}}, {100, 111}},
                                                         {{{5, 90}, {9, -40}}, {10, 110}},
                                                         {{{5, 99}, {9, -40}}, {5, 105}}};
    for (const auto& [drag, rows] : kCases) {
        device.files.Put(kNote, Words({5, 0xFFFFFF, 0, kViewHeight}));
        const auto page = Edited([this, &drag = drag] {
            for (const int y : {100, 200}) Desk().Stroke(Line({20, y}, 10));
            Choose(IDM_SPACE_TOOL);
            Desk().Stroke(drag);
        });
        EXPECT_EQ(Rows(*page), rows);
    }
}

TEST_F(Eraser, TheBandOfTheSpaceToolIsInvertedFromItsRowToThePen) {
    Edited([this] {
        Desk().Stroke({{30, 120}, {90, 120}});
        const auto before = ShownPixels();
        const auto expectBand = [&](int top, int bottom, const char* what) {
            Desk().Settle();
            std::vector<uint32_t> wanted = before;
            for (int i = top * 224; i < (bottom + 1) * 224; ++i) wanted[static_cast<size_t>(i)] ^= 0xFFFFFF;
            EXPECT_TRUE(ShownPixels() == wanted) << what;
        };
        Choose(IDM_SPACE_TOOL);
        Desk().PenDown({40, 100});
        expectBand(100, 100, "one row");
        Desk().PenMove({40, 130});
        expectBand(100, 130, "down");
        Desk().PenMove({40, 90});
        expectBand(90, 100, "up");
        Desk().PenMove({40, -40});
        expectBand(0, 100, "above the view");
        Desk().Top()->Invalidate();
        expectBand(0, 100, "painted anew");
        Desk().PenMove({40, 400});
        expectBand(100, kViewHeight - 1, "below the view");
        Desk().Scroll(platform::ScrollCode::Bottom);
        Desk().Scroll(platform::ScrollCode::Top);
        expectBand(100, kViewHeight - 1, "scrolled there and back");
        Desk().TakePenAway();
        expectBand(0, -1, "given up");
    });
}

TEST_F(Eraser, WithoutALiftNothingIsErasedOrMoved) {
    const std::function<void()> endings[] = {[this] { Desk().TakePenAway(); },
                                             [this] { Desk().PressShortcut(L'P'); },
                                             [this] { Desk().Command(IDM_BACKGROUND_COLOR); }};
    for (const int tool : {IDM_ERASER, IDM_SPACE_TOOL}) {
        for (const auto& ending : endings) {
            device.files.Put(kNote, Words({5, 0xFFFFFF, 0, kViewHeight}));
            Then([this, tool] {
                Desk().Stroke(Line({20, 100}, 10));
                Choose(tool);
                Desk().PenDown({30, 95});
                Desk().PenMove({30, 103});
                Desk().PenMove({34, 103});
            });
            Then(ending);
            Then([this] { Desk().Press(platform::Key::Escape); });  // the palette
            Then([this] {
                Desk().PenMove({40, 200});
                Desk().PenUp({40, 200});
                Desk().Settle();
                EXPECT_TRUE(InkAt(32, 100));
                EXPECT_EQ(Shown().Row(200)[200], kPaper);
            });
            Then(Close());
            Run(kNote);
            EXPECT_THAT(Rows(*ReadBack(kNote)), ElementsAre(100));
        }
    }
}

TEST_F(Eraser, ClosingInTheMiddleOfAStrokeKeepsIt) {
    Then([this] {
        Desk().PenDown({30, 100});
        Desk().PenMove({60, 100});
        Desk().PressShortcut(L'W');
    });
    Run(kNote);
    EXPECT_THAT(PointsOf(ReadBack(kNote)->Band(0)->At(0)), ElementsAre(Point{30, 100}, Point{60, 100}));
}

TEST_F(Eraser, ErasingNothingIsAChangeToo) {
    device.files.Put(kNote, Words({5, 0xFFFFFF, 0, 100}));
    Edited([this] {
        Choose(IDM_ERASER);
        Desk().Stroke({{30, 100}, {60, 100}});
    });
    EXPECT_EQ(device.files.Get(kNote), Words({5, 0xFFFFFF, 0, kViewHeight}))
        << "saved with this view's height";
}

TEST_F(Eraser, ExactlyTheChosenToolIsChecked) {
    struct Choice {
        int command;
        wchar_t shortcut;
        int checked;
    };
    const Choice choices[] = {{IDM_ERASER, 0, IDM_ERASER},
                              {IDM_SPACE_TOOL, 0, IDM_SPACE_TOOL},
                              {IDM_PEN, 0, IDM_PEN},
                              {0, L'E', IDM_ERASER},
                              {0, L'P', IDM_PEN},
                              {IDM_SPACE_TOOL, 0, IDM_SPACE_TOOL},
                              {IDM_PEN_COLOR_4, 0, IDM_PEN},
                              {0, L'X', IDM_PEN}};
    const auto page = Edited([this, &choices] {
        for (const Choice& choice : choices) {
            if (choice.command != 0) Choose(choice.command);
            if (choice.shortcut != 0) Desk().PressShortcut(choice.shortcut);
            Desk().Settle();
            platform::ToolBar& tools = *Desk().Top()->Handle()->tools;
            for (const auto& button : editor::EditorToolBarLayout().buttons) {
                EXPECT_EQ(tools.IsChecked(button.command), button.command == choice.checked)
                    << button.command;
                EXPECT_TRUE(button.command == 0 || button.title != nullptr);
            }
        }
        Desk().Stroke({{30, 100}});
    });
    EXPECT_THAT(Rows(*page), ElementsAre(100)) << "a colour brings the pen back";
}

}  // namespace
