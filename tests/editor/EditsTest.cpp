// The eraser and the space tool, from the pen to the saved note.
#include "tests/editor/EditorRig.h"

namespace {

using C = platform::ScrollCode;
using testing::ElementsAre;
using namespace testing_support;

class Edits : public EditorTest {
  protected:
    Step ExpectBand(int top, int bottom) {
        return [=] {
            Picture wanted = before_;
            for (int i = top * kViewWidth; i < (bottom + 1) * kViewWidth; ++i)
                wanted[static_cast<size_t>(i)] ^= 0xFFFFFF;
            EXPECT_TRUE(ShownPixels() == wanted) << top << " to " << bottom;
        };
    }
    Step Remember() {
        return [this] { before_ = ShownPixels(); };
    }

  private:
    Picture before_;
};

// The square is 14 pixels wide; a line whose points were all missed comes back at the lift, and what was
// swept before touches no later ink.
TEST_F(Edits, InkVanishesAtOnceAndTheStrokeFallsApartAtTheLift) {
    const auto page = Edited(
        {Write(Line({20, 100}, 20)), Write({{60, 80}, {60, 130}}), Press(IDM_ERASER), Down({60, 103}),
         Move({60, 103}, {{60, -4}}), ExpectInk({}, {{53, 100}}), PaintAnew(),
         ExpectInk({{52, 100}, {67, 100}, {60, 95}, {60, 110}}, {{53, 100}, {66, 100}, {60, 96}, {60, 109}}),
         Up({60, 103}), ExpectInk({{60, 96}, {60, 109}}), Press(IDM_PEN), Write(Line({40, 105}, 10)),
         Write(Line({100, 3}, 10)), Press(IDM_ERASER), Write({{120, 20}, {120, 0}})});
    const std::vector<Trace> left{Line({20, 100}, 8),  Line({68, 100}, 8), {{60, 80}, {60, 130}},
                                  Line({40, 105}, 10), Line({100, 3}, 3),  Line({128, 3}, 3)};
    EXPECT_EQ(Traces(*page), left);
}

TEST_F(Edits, WhatIsShownIsWhatARepaintShows) {
    Script script;
    for (int y = 4; y < 260; y += 16) script.push_back(Write(Line({5, y}, 50)));
    const Script rest{Press(IDM_ERASER),
                      Write({{30, 20}, {80, 30}, {120, 5}, {223, 250}, {-9, 266}, {40, 150}}),
                      ExpectInk({{100, 30}}),  // the head's paper
                      Press(IDM_SPACE_TOOL), Write({{100, 120}, {100, 150}})};
    Edited(All({script, rest}));
    // There is nothing to be seen of an eraser where no ink is, the page's head included.
    Written({Remember(), Press(IDM_ERASER), Down({100, 20}), Move({223, 5}), ExpectBand(0, -1)});
}

TEST_F(Edits, ThePageShrinksToWhatIsLeft) {
    const auto shrunk = Edited({Write(Line({20, 100}, 10)), Scroll(C::PageDown), Write(Line({20, 200}, 10)),
                                ExpectPosition(187), Press(IDM_ERASER), Write(Line({20, 200}, 10)),
                                ExpectMaximum(kViewHeight), ExpectPosition(0), ExpectInk({{30, 100}})});
    EXPECT_EQ(shrunk->SlotCount(), 1u);
    // Closing up pulls the last ink back too; the page then ends with it.
    PutNote({10, kNoStroke, 300});
    const auto closed =
        Edited({Press(IDM_SPACE_TOOL), Write({{5, 200}, {5, 20}}), ExpectMaximum(kViewHeight)});
    EXPECT_EQ(closed->SlotCount(), 1u);
}

// By 187 rows, and in the middle of the drag back by 26: what was swept by then is cut, and shown so.
TEST_F(Edits, ADragThatScrollsErasesWhereThePenWas) {
    const auto page =
        Edited({Write(Line({20, 100}, 10)), Write(Line({20, 126}, 10)), Write(Line({20, 250}, 10)),
                Write({{20, 255}, {90, 255}}), Scroll(C::PageDown), Press(IDM_ERASER), Down({30, 63}),
                Scroll(C::LineUp), ExpectInk({{50, 89}, {30, 94}}, {{30, 89}}), Up({30, 150})});
    EXPECT_THAT(Rows(*page), ElementsAre(100, 126, 250, 250, 255));
}

// Strokes on rows 50, 100 and 240 and one from 90 to 130, in a view of 268 rows.
TEST_F(Edits, SpaceOpensAndClosesRows) {
    const struct {
        Trace drag;
        std::vector<int> rows;
        int maximum;  // of the scroll bar
    } kCases[] = {
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
    for (const auto& c : kCases) {
        const auto page = Written({Write(Line({20, 50}, 10)), Write(Line({20, 100}, 10)),
                                   Write(Line({20, 240}, 10)), Write({{120, 90}, {120, 130}}),
                                   Press(IDM_SPACE_TOOL), Write(c.drag), ExpectMaximum(c.maximum)});
        EXPECT_EQ(Rows(*page), c.rows) << c.drag.front().y << " to " << c.drag.back().y;
        EXPECT_EQ(Records(*page)[0]->yOffset, 0);
    }
    // Lines of ten pixels reach five rows beyond their points: none lands on another or leaves the page.
    UsePenOf(ink::PenStyle::Smooth, 100);
    for (const auto& [from, rows] :
         {std::pair{150, std::vector{100, 111}}, {90, {10, 110}}, {99, {5, 105}}}) {
        PutNote({100, 200});
        const auto page = Edited({Press(IDM_SPACE_TOOL), Write({{5, from}, {9, -40}})});
        EXPECT_THAT(Rows(*page), testing::UnorderedElementsAreArray(rows));
    }
}

TEST_F(Edits, TheBandOfTheSpaceToolIsInvertedFromItsRowToThePen) {
    const struct {
        Script script;
        int top, bottom;
    } kCases[] = {
        {{Write({{30, 120}, {90, 120}}), Remember(), Press(IDM_SPACE_TOOL), Down({40, 100})}, 100, 100},
        {{Move({40, 130})}, 100, 130},
        {{Move({40, 90}, {{40, 200}})}, 90, 100},
        {{Move({40, -40})}, 0, 100},
        {{PaintAnew()}, 0, 100},
        {{Move({40, 400})}, 100, kViewHeight - 1},
        {{Scroll(C::Bottom), Scroll(C::Top)}, 100, kViewHeight - 1},
        {{Scroll(C::ThumbPosition, 30), Scroll(C::ThumbPosition, 60), Scroll(C::Top)}, 100, kViewHeight - 1},
        {{TakePenAway()}, 0, -1},
        {{PaintAnew()}, 0, -1}};
    Script script;
    for (const auto& c : kCases) script = All({script, c.script, {ExpectBand(c.top, c.bottom)}});
    Edited(script);
}

TEST_F(Edits, WithoutALiftNothingIsErasedOrMoved) {
    const Step endings[] = {TakePenAway(), Shortcut(L'P'), Press(IDM_BACKGROUND_COLOR)};
    for (const int tool : {IDM_ERASER, IDM_SPACE_TOOL}) {
        for (const Step& ending : endings) {
            const auto page = Written({Write(Line({20, 100}, 10)), Press(tool), Down({30, 95}),
                                       Move({30, 103}), ending, Press(platform::Key::Escape), Move({40, 200}),
                                       Up({40, 200}), ExpectInk({{32, 100}}, {{200, 200}, {40, 200}})});
            EXPECT_THAT(Rows(*page), ElementsAre(100));
        }
    }
}

// A page has no room for a stroke that far down.
TEST_F(Edits, SpaceThatThePageLacksIsRefused) {
    shortages_ = 1;
    PutNote({10, 2000000000});
    EXPECT_THAT(Rows(*Edited({Press(IDM_SPACE_TOOL), Write({{5, 5}, {5, 50}})})),
                ElementsAre(2000000000, 10));
}

// Whatever the tool and wherever the pen is: the note is saved with this view's height.
TEST_F(Edits, EveryContactIsAChange) {
    for (const int tool : {IDM_PEN, IDM_ERASER, IDM_SPACE_TOOL}) {
        device.files.Put(kNote, Words({5, 0xFFFFFF, 0, 100}));
        Edited(
            {Press(tool), Down({30, 100}), tool == IDM_PEN ? Move({60, 100}) : Up({30, 100}), TakePenAway()});
        EXPECT_EQ(device.files.Get(kNote).substr(12, 4), Words({kViewHeight})) << tool;
    }
}

}  // namespace
