#include "tests/editor/EditorRig.h"

namespace {

using C = platform::ScrollCode;
using namespace testing_support;

class Edits : public EditorTest {};

// A line whose points were all missed comes back at the lift; what was swept before touches no later ink.
TEST_F(Edits, InkVanishesAtOnceAndTheStrokeFallsApartAtTheLift) {
    Play({Write(Line({20, 100}, 20)), Write({{60, 80}, {60, 130}}), Press(IDM_ERASER), Down({60, 103}),
          Move({{60, -4}, {60, 103}}), ExpectInk({}, {{53, 100}}), PaintAnew(),
          ExpectInk({{52, 100}, {67, 100}, {60, 95}, {60, 110}}, {{53, 100}, {66, 100}, {60, 96}, {60, 109}}),
          Up({60, 103}), ExpectInk({{60, 96}, {60, 109}})});
    const auto page = Edited({Press(IDM_PEN), Write(Line({40, 105}, 10)), Write(Line({100, 3}, 10)),
                              Press(IDM_ERASER), Write({{120, 20}, {108, -2}, {120, 0}})});
    const std::vector<Trace> left{Line({20, 100}, 8),  Line({68, 100}, 8), {{60, 80}, {60, 130}},
                                  Line({40, 105}, 10), Line({100, 3}, 3),  Line({128, 3}, 3)};
    EXPECT_EQ(Traces(*page), left);
}

TEST_F(Edits, WhatIsShownIsWhatARepaintShows) {
    for (const int dots : {96, 120, 168, 288}) {
        Desk().scale = ink::Scale(dots);
        PutNote({});
        for (int y = 4; y < 260; y += 16) Play({Write(Line({5, y}, 50))});
        Edited({Press(IDM_ERASER), Write({{30, 20}, {80, 30}, {120, 5}, {223, 250}, {-9, 266}, {40, 150}}),
                ExpectInk({{100, 30}}),  // the head's paper
                Press(IDM_SPACE_TOOL), Write({{100, 120}, {100, 150}}), Scroll(C::ThumbPosition, 61),
                Scroll(C::ThumbPosition, 17), Press(IDM_PEN), Write({{70, 40}, {75, 90}})});
    }
}

// On the way to a monitor of another scale and back, the tool stays in hand and its swatches in the bar.
TEST_F(Edits, AMonitorOfAnotherScaleShowsTheSamePageAnew) {
    const auto rescale = [this](int dots) { return Do(&Hand::ChangeScale, ink::Scale(dots)); };
    const Step checks = [this] { EXPECT_TRUE(hand.Tool(IDM_ERASER).checked); };
    PutNote({10, kNoStroke, 300});
    shortages_ = 1;
    Edited({Scroll(C::ThumbPosition, 33), Press(IDM_ERASER), rescale(144), ExpectPosition(33), checks,
            Press(IDM_PEN), Write({{60, 100}, {90, 100}}), ExpectInk({{89, 100}}, {{89, 105}}), rescale(96),
            Press(platform::Key::F2), Press(platform::Key::F11), ExpectInk({{89, 100}}), rescale(216),
            WithPictures(1, rescale(96)), rescale(120)});
    EXPECT_EQ(Desk().fullScreenToggles, 1);
}

TEST_F(Edits, ThePageShrinksToWhatIsLeft) {
    const auto shrunk = Edited({Write(Line({20, 100}, 10)), Scroll(C::PageDown), Write(Line({20, 200}, 10)),
                                ExpectPosition(187), Press(IDM_ERASER), Write(Line({20, 200}, 10)),
                                ExpectMaximum(kViewHeight), ExpectPosition(0), ExpectInk({{30, 100}})});
    EXPECT_EQ(shrunk->SlotCount(), 1u);
    // Closing up pulls the last ink back too; the page then ends with it.
    PutNote({10, kNoStroke, 300});
    const Step closeUp = Write({{5, 200}, {5, 20}});
    EXPECT_EQ(Edited({Press(IDM_SPACE_TOOL), closeUp, ExpectMaximum(kViewHeight)})->SlotCount(), 1u);
}

// What is saved is what an editor of the last size would have written, and shows at any other.
TEST_F(Edits, AWindowOfAnotherSizeShowsTheSamePage) {
    const std::string before = NoteOfDots({10, kNoStroke, 300}, kViewHeight);
    const auto run = [&](int width, int height, const Script& script) {
        device.files.Put(kNote, before);
        Desk().screen = {width, height};
        Play({Scroll(C::ThumbPosition, 187)});
        Run(kNote, All({script, {Ok()}}));
        return device.files.Get(kNote);
    };
    Trace tall{{300, 1060}, {300, 1000}};
    for (int y = 980; y >= 20; y -= 20) tall.push_back({30, y});
    EXPECT_EQ(run(240, 320, {Resize(480, 1200), Resize(240, 300), ExpectPosition(187)}), before);
    shortages_ = 1;
    const Script refused{Down({60, 100}), Move({90, 100}), WithPictures(1, Resize(480, 1200)),
                         WithPictures(1, Resize(470, 1200)), ExpectInk({{70, 100}})};
    const Script resized{Resize(480, 1200), Move({120, 100}), Up({120, 100}),
                         ExpectInk({{70, 100}, {100, 113}}, {{110, 100}})};
    const Script undone{Shortcut(L'Z'), ExpectInk({}, {{70, 100}}), Resize(240, 320), Shortcut(L'Y')};
    const Script undoneTall{ExpectInk({{70, 100}}), Resize(480, 1200), Write(tall),
                            Shortcut(L'Z'),         Resize(240, 320),  Shortcut(L'Y')};
    const Script shown{Scroll(C::Top),    ExpectInk({{30, 230}}), Scroll(C::ThumbPosition, 187),
                       Resize(480, 1200), ExpectPosition(187),    ExpectInk({{30, 30}, {30, 470}})};
    const std::string sized = run(240, 320, All({refused, resized, undone, undoneTall, shown}));
    EXPECT_EQ(sized, run(480, 1200, {Write({{60, 100}, {90, 100}}), Write(tall)}));
    Desk().screen = {240, 320};
    Run(kNote, {ExpectInk({{30, 230}, {30, 260}}, {{223, 230}}), Scroll(C::ThumbPosition, 1100),
                ExpectInk({{222, 85}, {222, 150}}, {{222, 76}, {222, 151}, {220, 147}}), Down({200, 200}),
                Move({300, 200}), Up({300, 200}), ExpectInk({{222, 203}}, {{221, 204}}), Ok()});
}

// The pen's other end erases while it is used. What a pen near the page would do is on the screen alone.
TEST_F(Edits, PensHaveTwoEndsAndFingersScroll) {
    using platform::PenEnd;
    const auto turned = [this](PenEnd end) { return [=] { Desk().penEnd = end; }; };
    Picture bare;
    const Step look = [&] { bare = ShownPixels(); };
    const auto hover = [&](Point place, PenEnd end, bool isInside) {
        return [=, &bare] {
            Desk().Top()->OnPenHover(place, end);
            EXPECT_EQ(Shown().Row(place.y)[place.x] == 0xFFFFFF, isInside);
            EXPECT_FALSE(ShownPixels() == bare);
        };
    };
    const auto leave = [&] {
        Desk().Top()->OnPenLeave();
        EXPECT_TRUE(ShownPixels() == bare);
    };
    const auto pan = [this](int rows) { return [=] { Desk().Top()->OnPan(rows); }; };
    Play({Write(Line({20, 100}, 10)), look, hover({100, 100}, PenEnd::Tip, false), leave,
          hover({60, 60}, PenEnd::Eraser, true), hover({90, 60}, PenEnd::Tip, false), leave});
    const auto page =
        Edited({turned(PenEnd::Eraser), Write({{20, 100}, {30, 100}}), turned(PenEnd::Tip),
                ExpectInk({}, {{21, 100}}), Write(Line({20, 200}, 9)), Scroll(C::PageDown),
                Write(Line({20, 200}, 9)), pan(50), ExpectPosition(137), pan(-900), ExpectPosition(268),
                [this] { Desk().Top()->OnTwoFingerTap(); }, pan(1 << 30), ExpectPosition(0)});
    EXPECT_EQ(Traces(*page).size(), 2u);
}

// Every step comes into sight where it is undone and done again.
TEST_F(Edits, StepsAreUndoneAndDoneAgainWhereTheyHappened) {
    const auto key = [this](wchar_t letter) { return Shortcut(letter); };
    const Step undo = key(L'Z');
    std::vector<Picture> seen;
    const Step look = [&] { seen.push_back(ShownPixels()); };
    const Step compare = [&] {
        EXPECT_TRUE(ShownPixels() == seen.back());
        seen.pop_back();
    };
    const Texts none{L"(Undo\tCtrl+Z)", L"(Redo\tCtrl+Y)"};
    Play({ExpectFrameMenu(none), look, Write(Line({20, 100}, 60)), look, Press(IDM_ERASER)});
    Play({Write(Line({40, 100}, 3)), look, Press(IDM_SPACE_TOOL), Write({{9, 90}, {9, 120}}), undo, compare});
    Play({undo, compare, ExpectFrameMenu({L"Undo\tCtrl+Z", L"Redo\tCtrl+Y"}), compare, key(L'Y'), key(L'z')});
    Play({Press(IDM_PEN), Scroll(C::PageDown), Write(Line({20, 200}, 9)), Scroll(C::Top), Down({9, 9})});
    const auto page = Edited({undo, undo, ExpectPosition(268), undo, ExpectPosition(0),
                              ExpectInk({{46, 100}}), key(L'Y'), ExpectInk({}, {{46, 100}})});
    EXPECT_EQ(Rows(*page).size(), 2u);
}

// By 187 rows, and in the middle of the drag back by 26: what was swept by then is cut, and shown so.
TEST_F(Edits, ADragThatScrollsErasesWhereThePenWas) {
    const auto page =
        Edited({Write(Line({20, 100}, 10)), Write(Line({20, 126}, 10)), Write(Line({20, 250}, 10)),
                Write({{20, 255}, {90, 255}}), Scroll(C::PageDown), Press(IDM_ERASER), Down({30, 63}),
                Scroll(C::LineUp), ExpectInk({{50, 89}, {30, 94}}, {{30, 89}}), Up({30, 150})});
    EXPECT_EQ(Rows(*page), (std::vector{100, 126, 250, 250, 255}));
}

// Strokes on rows 50, 100 and 240 and one from 90 to 130, in a view of 268 rows.
TEST_F(Edits, SpaceOpensAndClosesRows) {
    const std::pair<Trace, std::vector<int>> kCases[] = {
        {{{5, 90}, {9, 300}}, {278, 418, 268, 50}},  // no further than the view's end
        {{{5, 200}, {9, 150}}, {50, 100, 190, 90}},
        {{{5, 200}, {9, -40}}, {50, 100, 131, 90}},  // up to the row below the ink above
        {{{5, 95}, {9, 60}}, {50, 100, 240, 90}},    // no gap: a tall stroke stands beside
        {{{5, 250}, {9, 20}}, {50, 100, 240, 90}},   // nothing below
        {{{5, 50}, {9, 40}, {3, 60}}, {60, 110, 250, 100}}};
    for (const auto& [drag, rows] : kCases) {
        const int views = rows[0] < kViewHeight ? 1 : 2;
        Play({Write(Line({20, 50}, 10)), Write(Line({20, 100}, 10)), Write(Line({20, 240}, 10))});
        const auto page = Written({Write({{120, 90}, {120, 130}}), Press(IDM_SPACE_TOOL), Write(drag),
                                   ExpectMaximum(views * kViewHeight)});
        EXPECT_EQ(Rows(*page), rows) << drag.front().y << " to " << drag.back().y;
    }
    // Lines of ten pixels reach five rows beyond their points: none lands on another or leaves the page.
    UsePenOf(ink::PenStyle::Smooth, 100);
    for (const auto& [from, rows] : {std::pair{150, std::vector{111, 100}}, {90, {110, 10}}}) {
        PutNote({100, 200});
        EXPECT_EQ(Rows(*Edited({Press(IDM_SPACE_TOOL), Write({{5, from}, {9, -40}})})), rows);
    }
}

TEST_F(Edits, TheBandOfTheSpaceToolIsInvertedFromItsRowToThePen) {
    Picture before;  // the eraser leaves the page's head as it was
    const auto expectBand = [&](size_t top, size_t end) {
        return [&before, top, end, this] {
            Picture wanted = before;
            for (size_t i = top * kViewWidth; i < end * kViewWidth; ++i) wanted[i] ^= 0xFFFFFF;
            EXPECT_TRUE(ShownPixels() == wanted) << top << " to " << end;
        };
    };
    Play({Write({{30, 120}, {90, 120}}), [&] { before = ShownPixels(); }, Press(IDM_ERASER), Down({100, 20}),
          Move({223, 5}), expectBand(0, 0), TakePenAway(), Press(IDM_SPACE_TOOL), Down({40, 100}),
          expectBand(100, 101), Move({40, 130}), expectBand(100, 131), Move({{40, 200}, {40, 90}}),
          expectBand(90, 101), Move({40, -40}), PaintAnew(), expectBand(0, 101)});
    Edited({Move({40, 400}), expectBand(100, kViewHeight), Scroll(C::ThumbPosition, 30),
            Scroll(C::ThumbPosition, 60), Scroll(C::Top), expectBand(100, kViewHeight), TakePenAway(),
            expectBand(0, 0), PaintAnew(), expectBand(0, 0)});
}

TEST_F(Edits, WithoutALiftNothingIsErasedOrMoved) {
    for (const int tool : {IDM_ERASER, IDM_SPACE_TOOL}) {
        for (const Step& ending : {TakePenAway(), Shortcut(L'I'), Press(IDM_BACKGROUND_COLOR)}) {
            Play({Write(Line({20, 100}, 10)), Press(tool), Down({30, 95}), Move({30, 103}), ending});
            const auto page = Written({Press(platform::Key::Escape), Move({40, 200}), Up({40, 200}),
                                       ExpectInk({{32, 100}}, {{200, 200}, {40, 200}})});
            EXPECT_EQ(Rows(*page), (std::vector{100}));
        }
    }
}

}  // namespace
