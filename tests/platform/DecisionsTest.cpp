#include <gtest/gtest.h>

#include "ink/Geometry.h"
#include "platform/windows/WheelTurns.h"

namespace {

using ink::Rect;
using platform::ScrollCode;

TEST(Decisions, DialogsStayOnTheirMonitor) {
    const Rect kLeftAndAbove{-1280, -1024, 0, -40};  // a work area, the task bar below it
    const struct {
        Rect wanted;
        Rect placed;
    } kCases[] = {{{-600, -600, -400, -500}, {-600, -600, -400, -500}},
                  {{-100, -600, 100, -500}, {-200, -600, 0, -500}},
                  {{-1400, -1100, -1200, -1000}, {-1280, -1024, -1080, -924}},
                  {{-600, -100, -400, 0}, {-600, -140, -400, -40}},
                  {{-2000, -2000, 2000, 2000}, {-1280, -1024, 2720, 2976}}};
    for (const auto& c : kCases) EXPECT_TRUE(ink::MovedInto(c.wanted, kLeftAndAbove) == c.placed);
}

TEST(Decisions, TheWheelScrollsAsTheSystemSays) {
    using platform::windows::kWheelTurnsPages;
    const struct {
        uint32_t linesPerNotch;
        std::vector<int> turns;
        ScrollCode code;
        int count;  // of all turns together
        int rest;
    } kCases[] = {
        {3, {120}, ScrollCode::LineUp, 3, 0},
        {3, {-240}, ScrollCode::LineDown, -6, 0},
        {1, {50, 50, 50}, ScrollCode::LineUp, 1, 30},
        {3, {-30, -30}, ScrollCode::LineDown, -1, -60},
        {1, {100, -110}, ScrollCode::LineDown, 0, -110},  // turned back: what was begun counts no more
        {0, {120, 1200}, ScrollCode::LineUp, 0, 0},
        {kWheelTurnsPages, {-120}, ScrollCode::PageDown, -1, 0},
        {100000, {120}, ScrollCode::LineUp, 100, 0},
    };
    for (const auto& c : kCases) {
        int rest = 0;
        int count = 0;
        ScrollCode code = ScrollCode::Other;
        for (const int turn : c.turns) {
            const auto steps = platform::windows::StepsOfTurn(turn, c.linesPerNotch, rest);
            count += steps.count;
            code = steps.code;
        }
        EXPECT_EQ(code, c.code);
        EXPECT_EQ(count, c.count) << c.linesPerNotch;
        EXPECT_EQ(rest, c.rest) << c.linesPerNotch;
    }
}

}  // namespace
