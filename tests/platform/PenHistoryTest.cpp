#include <gmock/gmock.h>

#include "platform/windows/PenHistory.h"

namespace {

using ink::Point;
using platform::windows::PenHistory;
using platform::windows::PointerSample;
using platform::windows::PointerTrail;

PointerTrail TrailOf(const std::vector<PointerSample>& newestFirst) {
    PointerTrail trail;
    trail.count = static_cast<int>(newestFirst.size());
    std::copy(newestFirst.begin(), newestFirst.end(), trail.samples.begin());
    return trail;
}

// A pen message and the samples that it brings; the window's client area begins at the desktop's (-100, 10).
TEST(PenHistory, WhatIsNewSinceTheMessageBefore) {
    const struct {
        const char* what;
        std::vector<PointerSample> press;
        std::vector<PointerSample> move;
        bool sentDirectly;
        std::vector<Point> samples;
    } kCases[] = {
        {"merged moves, oldest first",
         {{{0, 0}, 10}},
         {{{9, 9}, 40}, {{5, 5}, 30}, {{2, 2}, 20}, {{0, 0}, 10}, {{7, 7}, 5}},
         false,
         {{102, -8}, {105, -5}}},
        {"the same tick",
         {{{0, 0}, 10}},
         {{{9, 9}, 10}, {{5, 5}, 10}, {{0, 0}, 10}, {{4, 4}, 10}},
         false,
         {{105, -5}}},
        {"the system's own repeats",
         {{{0, 0}, 10}},
         {{{9, 9}, 40}, {{9, 9}, 39}, {{5, 5}, 30}, {{0, 0}, 11}, {{0, 0}, 10}},
         false,
         {{105, -5}}},
        {"the last position once more", {{{0, 0}, 10}}, {{{0, 0}, 10}, {{5, 5}, 10}}, false, {}},
        {"the press has left the trail",
         {{{0, 0}, 10}},
         {{{9, 9}, 40}, {{5, 5}, 30}, {{3, 3}, 9}},
         false,
         {{105, -5}}},
        {"times wrap",
         {{{0, 0}, 0xFFFFFFF0u}},
         {{{9, 9}, 20}, {{5, 5}, 5}, {{0, 0}, 0xFFFFFFF0u}, {{1, 1}, 0xFFFFFF00u}},
         false,
         {{105, -5}}},
        {"a message sent straight to the window", {{{0, 0}, 10}}, {{{9, 9}, 40}, {{5, 5}, 30}}, true, {}},
        {"no press in the trail", {}, {{{9, 9}, 40}, {{5, 5}, 30}}, false, {}},
        {"no trail", {{{0, 0}, 10}}, {}, false, {}}};
    for (const auto& each : kCases) {
        PenHistory history;
        Point samples[64];
        history.Begin(TrailOf(each.press));
        history.Arrive(TrailOf(each.move), each.sentDirectly);
        size_t count = history.Samples({-100, 10}, samples, 64);
        EXPECT_EQ(std::vector<Point>(samples, samples + count), each.samples) << each.what;
        if (count > 1) {
            EXPECT_EQ(history.Samples({-100, 10}, samples, 1), 1u) << each.what;
            EXPECT_EQ(samples[0], each.samples.back()) << "the newest";
        }
        history.Leave();
        EXPECT_EQ(history.Samples({-100, 10}, samples, 64), 0u) << "between messages there are none";
        history.Arrive(TrailOf(each.move), false);
        EXPECT_EQ(each.sentDirectly, history.Samples({-100, 10}, samples, 64) != 0) << "handled already";
    }
}

}  // namespace
