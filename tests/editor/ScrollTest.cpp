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
    const struct {
        std::vector<int32_t> rows;
        int views;
        std::vector<std::pair<C, int>> requests;
    } kCases[] = {
        {{10, kNone, 300}, 2, {{C::LineDown, 26}, {C::PageDown, 259}, {C::PageUp, 26}, {C::LineUp, 0}}},
        {{10, 300, 600}, 2, {{C::LineUp, 0}, {C::ThumbPosition, 205}, {C::LineUp, 179}, {C::Top, 0}}},
        {{10}, 2, {{C::PageDown, 187}, {C::PageDown, 267}, {C::PageDown, 267}}},
        {{10}, 2, {{C::LineDown, 187}, {C::LineDown, 213}}},
        {{10, kNone, 270}, 3, {{C::ThumbPosition, 267}, {C::LineDown, 454}, {C::Top, 0}}},
        {{10, 268}, 3, {{C::ThumbPosition, 267}, {C::LineDown, 454}}},
        {{10, kNone, kNone, 540}, 3, {{C::ThumbPosition, 535}, {C::PageDown, 535}}},
        {{}, 1, {{C::PageDown, 0}, {C::LineDown, 0}, {C::LineUp, 0}, {C::PageUp, 0}}}};
    for (const auto& c : kCases) {
        PutNote(c.rows);
        for (const auto& [code, position] : c.requests)
            Play({Scroll(code, position), ExpectPosition(position), ExpectRepaint(position)});
        Edited({Scroll(C::Other, 5), ExpectPosition(c.requests.back().second),
                ExpectMaximum(c.views * kViewHeight)});
    }
    PutNote({130, kNone, 398, kNone, 666});
    for (const int position : {5, 120, 131, 90, 400, 132, 399, 1})
        Play({Scroll(C::ThumbPosition, position), ExpectRepaint(position)});
    Edited({Scroll(C::Bottom), ExpectPosition(536), ExpectRepaint(804), Scroll(C::Top)});
}

TEST_F(Scrolling, ArrowKeysScrollByPagesUpAndDownByLinesLeftAndRight) {
    PutNote({10, kNone, 300, kNone, 600});
    Edited({Press(Key::Down), ExpectPosition(233), Press(Key::Left), ExpectPosition(207), Press(Key::Right),
            ExpectPosition(233), Press(Key::Up), ExpectPosition(0), Press(Key::Home), ExpectPosition(0)});
}

}  // namespace
