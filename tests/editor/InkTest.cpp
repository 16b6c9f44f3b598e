#include "tests/editor/EditorRig.h"

namespace {

using C = platform::ScrollCode;
using namespace testing_support;

class Pen : public EditorTest {};

TEST_F(Pen, WhatBecomesInk) {
    const std::pair<Script, std::vector<Trace>> kCases[] = {
        {{Down({50, 100}), ExpectInk({}, {{50, 100}}), Move({50, 100}), ExpectInk({}, {{50, 100}}),
          Up({50, 100}), ExpectInk({{50, 100}})},
         {{{50, 100}}}},
        {{Down({50, 100}), Move({{51, 100}, {51, 100}, {52, -3}, {53, 100}, {54, 100}}), Move({54, 100}),
          [this] {
              Desk().PenUp({56, 100}, {{55, 100}});
          }},
         {{{50, 100}, {51, 100}, {53, 100}, {54, 100}, {55, 100}, {56, 100}}}},
        {{Down({50, 20}), Move({50, 0}), Move({50, -5}), Up({50, -10})}, {{{50, 20}, {50, 0}, {50, -10}}}},
        {{Down({50, 100}), Move({60, 100}), TakePenAway(), Move({70, 100}), Up({70, 100})},
         {{{50, 100}, {60, 100}}}},
        {{Down({30, 100}), Move({60, 100}), Shortcut(L'I'), Move({70, 100}), Up({70, 100})},
         {{{30, 100}, {60, 100}}}},
        // Under the eraser, a contact that never ended erases nothing.
        {{Write({{50, 100}, {60, 100}}), Press(IDM_ERASER), Down({50, 100}), Down({80, 80}), Up({80, 80})},
         {{{50, 100}, {60, 100}}}},
    };
    for (const auto& [script, traces] : kCases) EXPECT_EQ(Traces(*Written(script)), traces);
}

// It begins low and ends high: the wait for room looks at the whole.
TEST_F(Pen, ALongTraceIsCutIntoRecordsThatShareTheirEnds) {
    Trace trace;
    for (int i = 0; i < 300; ++i) trace.push_back({10 + i % 200, 260 - i / 2});
    const auto page = Edited({Write(trace), Wait(540), ExpectPosition(187)});
    const std::vector<Trace> wanted{{trace.begin(), trace.begin() + 126},
                                    {trace.begin() + 125, trace.begin() + 251},
                                    {trace.begin() + 250, trace.end()}};
    EXPECT_EQ(Traces(*page), wanted);
}

// Ink of another colour in a lower slot lies above what is written.
TEST_F(Pen, LiveInkIsTheInkOfARepaint) {
    Trace curl;
    for (int i = 0; i < 260; ++i) curl.push_back({20 + i / 2 + i * 7 % 30, 10 + i * i % 251});
    for (const ink::PenStyle style : {ink::PenStyle::Simple, ink::PenStyle::Classic, ink::PenStyle::Smooth}) {
        for (const auto& [tenths, dots] :
             {std::pair{10u, 96}, {35u, 96}, {100u, 96}, {20u, 120}, {35u, 288}}) {
            UsePenOf(style, tenths);
            Desk().scale = ink::Scale(dots);
            Written({Write(curl), Write({{40, 40}}),
                     Write({{0, 0}, {223, 267}, {5, 200}, {-4, 100}, {230, 30}}), Scroll(C::PageDown),
                     Press(IDM_PEN_COLOR_2), Down({30, 60}), Move({90, 90}), Move({30, 5}), Up({150, 40}),
                     Scroll(C::Top), Down({120, 200}), Move({60, 266}), Up({20, 220})});
        }
    }
}

TEST_F(Pen, AStrokeInProgressFollowsAScroll) {
    PutNote({10});
    const auto page =
        Edited({Scroll(C::PageDown), ExpectPosition(187), Down({50, 100}), Move({60, 100}), Move({65, 100}),
                Scroll(C::LineUp), ExpectInk({{50, 126}, {60, 126}}, {{50, 100}, {50, 152}}), Move({68, 126}),
                ExpectInk({{67, 126}}, {{66, 100}, {67, 100}}), Scroll(C::Bottom),
                Scroll(C::ThumbPosition, 161), ExpectInk({{55, 126}}), Up({70, 126})});
    EXPECT_EQ(Traces(*page)[0], (Trace{{50, 287}, {60, 287}, {65, 287}, {68, 287}, {70, 287}}));
    EXPECT_EQ(Records(*page)[0]->minY + Records(*page)[0]->maxY, 2 * 287);
}

// Ticks come every 270 ms; the page moves on with the first that finds more than 530 ms of rest.
TEST_F(Pen, WritingNearTheBottomMovesThePageOnAfterAPause) {
    const Script kScripts[] = {
        {Write({{10, 248}}), Wait(3000), ExpectPosition(0)},
        {Write({{10, 100}, {10, 249}, {10, 100}}), Wait(539), ExpectPosition(0), Wait(1), ExpectPosition(187),
         Wait(3000), ExpectPosition(187)},
        {Write({{10, 260}}), Wait(300), Down({20, 100}), Wait(2000), ExpectPosition(0), Up({20, 100}),
         Wait(500), ExpectPosition(0), Wait(400), ExpectPosition(187), Write({{10, 248}}), Wait(900),
         ExpectPosition(187)},
        {Write({{10, 260}}), Wait(300), Down({20, 100}), Wait(2000), TakePenAway(), Wait(399),
         ExpectPosition(0), Wait(1), ExpectPosition(187)},
        {Write({{50, 260}}), Scroll(C::Other), Write({{50, 20}}), Wait(2000), ExpectPosition(0)},
        {Press(IDM_ERASER), Write({{10, 260}}), Wait(3000), ExpectPosition(0)},
    };
    for (const Script& script : kScripts) Written(script);
}

// Neither while a command asks something nor on the page that it leaves. A tick may be on its way.
TEST_F(Pen, ACommandEndsTheWait) {
    const Script foot{Write({{50, 263}}), Wait(200)};
    const Script rest{Wait(2000), [this] { Desk().Top()->OnTimer(1); }, ExpectPosition(0)};
    Play(All({foot, {Press(IDM_NEW_NOTE)}, rest, foot, {ExpectErase(platform::MessageAnswer::Yes)}}));
    Run(kNote, All({{Press(IDM_FULL_ERASE)}, rest, foot, {Ok(), Wait(2000), Ok()}}));
    EXPECT_EQ(ReadBack(L"\\Ink\\Ink 2007-03-05.ikw")->SlotCount(), 1u);
}

// The range follows the slots: two for each view. The end of an inked page makes room, by 0.7 of the view;
// where nothing is written it stays. A step down from the room below the page leads back to the page's end.
TEST_F(Pen, WhereARequestLeads) {
    const struct {
        std::vector<int32_t> rows;
        int views;
        std::vector<std::pair<C, int>> requests;
    } kCases[] = {
        {{10, kNoStroke, 300}, 2, {{C::LineDown, 26}, {C::PageDown, 259}, {C::PageUp, 26}, {C::LineUp, 0}}},
        {{10, 300, 600}, 2, {{C::LineUp, 0}, {C::ThumbPosition, 205}, {C::LineUp, 179}, {C::Top, 0}}},
        {{10}, 2, {{C::PageDown, 187}, {C::PageDown, 267}, {C::PageDown, 267}}},
        {{10}, 2, {{C::LineDown, 187}, {C::LineDown, 213}}},
        {{10, kNoStroke, 270}, 3, {{C::ThumbPosition, 267}, {C::LineDown, 454}, {C::Top, 0}}},
        {{10, 268}, 3, {{C::ThumbPosition, 267}, {C::LineDown, 454}}},
        {{10, kNoStroke, kNoStroke, 540}, 3, {{C::ThumbPosition, 535}, {C::PageDown, 535}}},
        {{}, 1, {{C::PageDown, 0}, {C::LineDown, 0}, {C::LineUp, 0}, {C::PageUp, 0}}}};
    for (const auto& c : kCases) {
        PutNote(c.rows);
        for (const auto& [code, position] : c.requests)
            Play({Scroll(code, position), ExpectPosition(position), ExpectRepaint(position)});
        Edited({Scroll(C::Other, 5), ExpectPosition(c.requests.back().second),
                ExpectMaximum(c.views * kViewHeight)});
    }
    PutNote({130, kNoStroke, 398, kNoStroke, 666});
    for (const int position : {5, 120, 131, 90, 400, 132, 399, 1})
        Play({Scroll(C::ThumbPosition, position), ExpectRepaint(position)});
    Edited({Scroll(C::Bottom), ExpectPosition(536), ExpectRepaint(804), Scroll(C::Top)});
}

TEST_F(Pen, ArrowKeysScrollByPagesUpAndDownByLinesLeftAndRight) {
    PutNote({10, kNoStroke, 300, kNoStroke, 600});
    Edited({Press(platform::Key::Down), ExpectPosition(233), Press(platform::Key::Left), ExpectPosition(207),
            Press(platform::Key::Right), ExpectPosition(233), Press(platform::Key::Up), ExpectPosition(0),
            Press(platform::Key::Home), ExpectPosition(0)});
}

}  // namespace
