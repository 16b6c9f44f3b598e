#include <limits>

#include "editor/PageScroll.h"
#include "tests/editor/EditorRig.h"

namespace {

using platform::Key;
using platform::ScrollCode;
using namespace testing_support;

class Scrolling : public EditorTest {};

TEST_F(Scrolling, TheRangeFollowsTheSlots) {
    const std::pair<std::vector<int32_t>, int> kCases[] = {
        {{}, 1}, {{10}, 1}, {{10, 268}, 2}, {{10, kNoStroke, 540}, 2}, {{10, kNoStroke, kNoStroke, 540}, 3}};
    for (const auto& [rows, views] : kCases) {
        PutNote(rows);
        Edited({[this] {
                    EXPECT_EQ(Desk().Top()->GetScroll().minimum, 0);
                    EXPECT_EQ(Desk().Top()->GetScroll().page, kViewHeight + 1);
                },
                ExpectMaximum(views * kViewHeight), ExpectPosition(0), ExpectRepaint(0)});
    }
}

TEST_F(Scrolling, WhereARequestLeads) {
    struct Request {
        ScrollCode code;
        int position;
        int thumb = 0;
    };
    using C = ScrollCode;
    const std::vector<int32_t> threeViews{10, kNoStroke, 300, kNoStroke, 600};
    const struct {
        std::vector<int32_t> rows;
        std::vector<Request> requests;
        int maximum;
    } kCases[] = {
        {threeViews,
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
         3 * kViewHeight},
        // The end of an inked page makes room, by 0.7 of the view; where nothing is written it stays.
        {{10}, {{C::PageDown, 187}, {C::PageDown, 267}, {C::PageDown, 267}}, 2 * kViewHeight},
        {{10}, {{C::LineDown, 187}, {C::LineDown, 213}}, 2 * kViewHeight},
        {{10, kNoStroke, 270},
         {{C::ThumbPosition, 267, 267}, {C::LineDown, 454}, {C::Top, 0}},
         3 * kViewHeight},
        {{}, {{C::PageDown, 0}, {C::LineDown, 0}, {C::LineUp, 0}, {C::PageUp, 0}}, kViewHeight},
    };
    for (const auto& c : kCases) {
        PutNote(c.rows);
        Script script;
        for (const Request& request : c.requests) {
            script.push_back(Scroll(request.code, request.thumb));
            script.push_back(ExpectPosition(request.position));
            script.push_back(ExpectRepaint(std::max(0, request.position)));
        }
        Edited(Joined(script, {ExpectMaximum(c.maximum)}));
    }
}

TEST_F(Scrolling, ArrowKeysScrollByPagesUpAndDownByLinesLeftAndRight) {
    PutNote({10, kNoStroke, 300, kNoStroke, 600});
    Script script;
    for (const auto& [key, position] :
         {std::pair{Key::Down, 233}, {Key::Right, 259}, {Key::Up, 26}, {Key::Left, 0}, {Key::Home, 0}}) {
        script.push_back([this, key = key] { EXPECT_EQ(Desk().Top()->OnKeyDown(key), key != Key::Home); });
        script.push_back(ExpectPosition(position));
    }
    Edited(script);
}

TEST_F(Scrolling, ScrolledByStripsTheViewShowsWhatARepaintShows) {
    std::vector<int32_t> rows;
    for (int i = 0; i < 9; ++i) rows.push_back(i % 2 == 0 ? i / 2 * kViewHeight + 130 : kNoStroke);
    PutNote(rows);
    Script script;
    for (const int position : {5, 120, 131, 90, 400, 398, 660, 392, 0, 268, 1, 44, 1000, 950}) {
        script.push_back(Scroll(ScrollCode::ThumbPosition, position));
        script.push_back(ExpectRepaint(position));
    }
    Edited(script);
    EXPECT_EQ(Desk().waitCursors, 1 + 5) << "for the whole view, and for reading the note";
}

TEST_F(Scrolling, BottomShowsTheRoomBelowThePage) {
    PutNote({10});
    Edited(
        {Scroll(ScrollCode::Bottom), ExpectRepaint(kViewHeight), Scroll(ScrollCode::Top), ExpectRepaint(0)});
    // A step down from there leads back to the end of a page whose last view is empty.
    for (const ScrollCode code : {ScrollCode::PageDown, ScrollCode::LineDown}) {
        PutNote({10, kNoStroke, kNoStroke, kNoStroke, kNoStroke});
        Edited({Scroll(ScrollCode::Bottom), ExpectPosition(2 * kViewHeight), Scroll(code),
                ExpectPosition(2 * kViewHeight - 1)});
    }
}

TEST_F(Scrolling, WritingAtTheEndOfAllNumbersIsRefused) {
    constexpr int kFar = std::numeric_limits<int32_t>::max();
    shortages_ = 1;
    PutNote({10});
    const auto page =
        Edited({Scroll(ScrollCode::ThumbPosition, kFar), Wait(3000), Down({50, 100}), Move({60, 32767}),
                Scroll(ScrollCode::Top), Move({70, 120}), Scroll(ScrollCode::ThumbPosition, kFar),
                Up({80, 140}), Scroll(ScrollCode::Top)});
    EXPECT_EQ(page->SlotCount(), 1u);
    EXPECT_EQ(Rows(*page).size(), 1u);
}

TEST(PageScroll, TheLastWholeBandDecidesWhetherThereIsInkAtTheEnd) {
    ink::InkPage page;
    page.bandHeight = page.canvasHeight = kViewHeight;
    const Point point{5, 300};
    EXPECT_FALSE(editor::LastBandHoldsInk(page));
    page.AddStroke(&point, 1, 300, 300, 0);
    EXPECT_TRUE(editor::LastBandHoldsInk(page));
    page.EnsureSlot(3);
    EXPECT_TRUE(editor::LastBandHoldsInk(page));
    page.EnsureSlot(4);
    EXPECT_FALSE(editor::LastBandHoldsInk(page));
}

}  // namespace
