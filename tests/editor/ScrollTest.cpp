#include <limits>

#include "editor/PageScroll.h"
#include "tests/editor/EditorRig.h"

namespace {

using platform::Key;
using C = platform::ScrollCode;
using namespace testing_support;

constexpr int kNone = kNoStroke;

class Scrolling : public EditorTest {};

// The range follows the slots: two for each view. The end of an inked page makes room, by 0.7 of the view;
// where nothing is written it stays. A step down from the room below the page leads back to the page's end.
TEST_F(Scrolling, WhereARequestLeads) {
    struct Request {
        C code;
        int position;
        int thumb = 0;
    };
    const struct {
        std::vector<int32_t> rows;
        std::vector<Request> requests;
        int views;
    } kCases[] = {
        {{10, kNone, 300, kNone, 600},
         {{C::LineDown, 26},
          {C::PageDown, 259},
          {C::PageUp, 26},
          {C::LineUp, 0},
          {C::LineUp, 0},
          {C::ThumbPosition, 300, 300},
          {C::Other, 300, 5},
          {C::ThumbPosition, 302, 302},
          {C::PageDown, 535},
          {C::LineUp, 509},
          {C::Top, 0}},
         3},
        {{10}, {{C::PageDown, 187}, {C::PageDown, 267}, {C::PageDown, 267}}, 2},
        {{10}, {{C::LineDown, 187}, {C::LineDown, 213}}, 2},
        {{10, kNone, 270}, {{C::ThumbPosition, 267, 267}, {C::LineDown, 454}, {C::Top, 0}}, 3},
        {{10, 268}, {{C::ThumbPosition, 267, 267}, {C::LineDown, 454}}, 3},
        {{10, kNone, kNone, 540}, {{C::ThumbPosition, 535, 535}, {C::PageDown, 535}}, 3},
        {{}, {{C::PageDown, 0}, {C::LineDown, 0}, {C::LineUp, 0}, {C::PageUp, 0}}, 1},
        {{10, kNone, kNone, kNone, kNone},
         {{C::Bottom, 536}, {C::PageDown, 535}, {C::Bottom, 536}, {C::LineDown, 535}},
         3},
    };
    for (const auto& c : kCases) {
        PutNote(c.rows);
        Script script;
        for (const Request& request : c.requests) {
            const Script moved{Scroll(request.code, request.thumb), ExpectPosition(request.position)};
            script = All({script, moved,
                          request.code == C::Bottom ? Script() : Script{ExpectRepaint(request.position)}});
        }
        Edited(All({script,
                    {[this] { EXPECT_EQ(Desk().Top()->GetScroll().page, kViewHeight + 1); },
                     ExpectMaximum(c.views * kViewHeight)}}));
    }
    PutNote({130, kNone, 398, kNone, 666, kNone, 934, kNone, 1202});
    Script script;
    for (const int position : {5, 120, 131, 90, 400, 398, 660, 392, 0, 268, 1, 44, 1000, 950})
        script = All({script, {Scroll(C::ThumbPosition, position), ExpectRepaint(position)}});
    Edited(script);
    PutNote({10});
    Edited({Scroll(C::Bottom), ExpectPosition(0), Up({5, 5}), ExpectRepaint(kViewHeight), Scroll(C::Top),
            ExpectRepaint(0)});
}

TEST_F(Scrolling, ArrowKeysScrollByPagesUpAndDownByLinesLeftAndRight) {
    PutNote({10, kNone, 300, kNone, 600});
    Script script;
    for (const auto& [key, position] :
         {std::pair{Key::Down, 233}, {Key::Right, 259}, {Key::Up, 26}, {Key::Left, 0}, {Key::Home, 0}}) {
        script.push_back([this, key = key] { EXPECT_EQ(Desk().Top()->OnKeyDown(key), key != Key::Home); });
        script.push_back(ExpectPosition(position));
    }
    Edited(script);
}

TEST_F(Scrolling, WritingAtTheEndOfAllNumbersIsRefused) {
    constexpr int kFar = std::numeric_limits<int32_t>::max();
    shortages_ = 1;
    PutNote({10});
    const auto page = Edited({Scroll(C::ThumbPosition, kFar), Wait(3000), Down({50, 100}), Move({60, 32767}),
                              Scroll(C::Top), Move({70, 120}), Scroll(C::ThumbPosition, kFar), Up({80, 140}),
                              Scroll(C::Top)});
    EXPECT_EQ(page->SlotCount(), 1u);
    EXPECT_EQ(Rows(*page).size(), 1u);
}

}  // namespace
