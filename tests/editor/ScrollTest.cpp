#include <limits>

#include "editor/PageScroll.h"
#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::Key;
using platform::ScrollCode;
using testing_support::Words;

// A note of 268-row bands: `strokes[i]` one-point strokes at the given row, one slot for each.
std::string NoteOfRows(const std::vector<int32_t>& rows) {
    std::vector<int32_t> words{5, 0xFFFFFF, static_cast<int32_t>(rows.size()), 268};
    for (const int32_t y : rows) {
        if (y < 0) {
            words.push_back(0);
            continue;
        }
        for (const int32_t word : {1, 1, 0, 0, 0, y, y, 100, y}) words.push_back(word);
    }
    return Words(words);
}

const wchar_t kNote[] = L"\\a.ikw";

class Scroll : public testing_support::DeskTest {
  protected:
    platform::ScrollState State() { return Desk().Top()->GetScroll(); }
    void RunOn(const std::string& note, const std::function<void()>& script) {
        device.files.Put(kNote, note);
        Then(script);
        Then(Close());
        Run(kNote);
    }
    bool HasInkAt(int viewRow) {
        const ink::PixelSurface shown = Shown();
        return viewRow >= 0 && viewRow < shown.height && shown.Row(viewRow)[100] != shown.Row(viewRow)[150];
    }
};

TEST_F(Scroll, TheRangeFollowsTheSlots) {
    struct Case {
        std::vector<int32_t> rows;
        int views;
    };
    for (const Case& c : {Case{{}, 1}, Case{{10}, 1}, Case{{10, 268}, 2}, Case{{10, -1, 540}, 2},
                          Case{{10, -1, -1, 540}, 3}}) {
        RunOn(NoteOfRows(c.rows), [this, &c] {
            EXPECT_EQ(State().minimum, 0);
            EXPECT_EQ(State().maximum, c.views * 268);
            EXPECT_EQ(State().page, 269);
            EXPECT_EQ(State().position, 0);
        });
    }
}

TEST_F(Scroll, StepsByLinesAndPages) {
    RunOn(NoteOfRows({10, -1, 300, -1, 600}), [this] {
        Desk().Scroll(ScrollCode::LineDown);
        EXPECT_EQ(State().position, 26);
        Desk().Scroll(ScrollCode::PageDown);
        EXPECT_EQ(State().position, 26 + 233);
        Desk().Scroll(ScrollCode::PageUp);
        Desk().Scroll(ScrollCode::LineUp);
        EXPECT_EQ(State().position, 0);
        Desk().Scroll(ScrollCode::LineUp);
        EXPECT_EQ(State().position, 0);
        Desk().Scroll(ScrollCode::ThumbPosition, 300);
        Desk().Settle();
        EXPECT_EQ(State().position, 300);
        EXPECT_TRUE(HasInkAt(0));
    });
}

TEST_F(Scroll, ArrowKeysScrollByPagesUpAndDownByLinesLeftAndRight) {
    device.files.Put(kNote, NoteOfRows({10, -1, 300, -1, 600}));
    const std::pair<Key, int> presses[] = {
        {Key::Down, 233}, {Key::Right, 259}, {Key::Up, 26}, {Key::Left, 0}};
    for (const auto& press : presses) {
        Then([this, press] { Desk().Press(press.first); });
        Then([this, press] { EXPECT_EQ(State().position, press.second); });
    }
    Then(Close());
    Run(kNote);
}

TEST_F(Scroll, TheEndOfAnInkedPageMakesRoomAndAnEmptyEndStays) {
    RunOn(NoteOfRows({10}), [this] {
        Desk().Scroll(ScrollCode::PageDown);
        EXPECT_EQ(State().position, 187);  // 0.7 of 268 rows
        EXPECT_EQ(State().maximum, 2 * 268);
        Desk().Scroll(ScrollCode::PageDown);
        EXPECT_EQ(State().position, 267);
        Desk().Scroll(ScrollCode::PageDown);
        EXPECT_EQ(State().position, 267) << "nothing is written there yet";
        EXPECT_EQ(State().maximum, 2 * 268);
    });
    RunOn(NoteOfRows({}), [this] {
        for (const ScrollCode code : {ScrollCode::PageDown, ScrollCode::LineDown}) {
            Desk().Scroll(code);
            EXPECT_EQ(State().position, 0);
        }
    });
}

TEST_F(Scroll, ScrolledByStripsTheViewShowsWhatARepaintShows) {
    std::vector<int32_t> rows;
    for (int i = 0; i < 9; ++i) rows.push_back(i % 2 == 0 ? i / 2 * 268 + 130 : -1);
    RunOn(NoteOfRows(rows), [this] {
        for (int position : {5, 120, 131, 90, 400, 398, 660, 0, 44, 1000, 950}) {
            Desk().Scroll(ScrollCode::ThumbPosition, position);
            Desk().Settle();
            for (int row = 0; row < 268; ++row) {
                const int pageRow = position + row;
                const bool written = pageRow % 268 == 130;
                EXPECT_EQ(HasInkAt(row), written) << position << " " << row;
            }
        }
    });
}

TEST_F(Scroll, BottomShowsTheRoomBelowThePage) {
    RunOn(NoteOfRows({10}), [this] {
        Desk().Scroll(ScrollCode::Bottom);
        Desk().Settle();
        EXPECT_FALSE(HasInkAt(10));
        Desk().Scroll(ScrollCode::Top);
        Desk().Settle();
        EXPECT_TRUE(HasInkAt(10));
    });
    // A step down from there leads back to the end of a page whose last view is empty.
    for (const ScrollCode code : {ScrollCode::PageDown, ScrollCode::LineDown}) {
        RunOn(NoteOfRows({10, -1, -1, -1, -1}), [this, code] {
            Desk().Scroll(ScrollCode::Bottom);
            EXPECT_EQ(State().position, 3 * 268 - 268);
            Desk().Scroll(code);
            EXPECT_EQ(State().position, 3 * 268 - 269);
        });
    }
}

TEST_F(Scroll, AnyRequestEndsTheWaitOfTheWriter) {
    for (const ScrollCode code : {ScrollCode::Other, ScrollCode::LineUp}) {
        RunOn(NoteOfRows({}), [this, code] {
            Desk().Stroke({{50, 200}, {60, 260}});
            Desk().Scroll(code);
            Desk().PassTime(2000);
            EXPECT_EQ(State().position, 0);
        });
    }
}

// Neither while a command asks something nor on the page that it leaves.
TEST_F(Scroll, ACommandEndsTheWaitOfTheWriter) {
    const auto tapAtTheFoot = [this](int command) {
        Then([this, command] {
            Desk().Stroke({{50, 263}});
            Desk().PassTime(200);
            Desk().Command(command);
        });
    };
    const auto thenWait = [this] {
        Then([this] {
            Desk().PassTime(2000);
            Desk().Top()->OnTimer(1);  // one that was on its way
        });
    };
    Desk().answers = {platform::MessageAnswer::Yes};
    const std::wstring note = L"\\Ink\\a.ikw";
    device.files.Put(note, NoteOfRows({}));
    for (const int command : {IDM_NEW_NOTE, IDM_FULL_ERASE}) {
        tapAtTheFoot(command);
        if (command == IDM_NEW_NOTE) {
            thenWait();
            Then([this] { EXPECT_EQ(State().position, 0); });
        }
    }
    thenWait();
    Then([this] { EXPECT_EQ(State().position, 0); });
    tapAtTheFoot(platform::kIdOk);
    thenWait();
    Then(Close());
    Run(note);
    EXPECT_EQ(ReadBack(note)->SlotCount(), 1u);
    EXPECT_EQ(ReadBack(L"\\Ink\\Ink 2007-03-05.ikw")->SlotCount(), 1u);
}

TEST_F(Scroll, WritingAtTheEndOfAllNumbersIsRefused) {
    constexpr int kFar = std::numeric_limits<int32_t>::max();
    device.files.Put(kNote, NoteOfRows({10}));
    Then([this] {
        Desk().Scroll(ScrollCode::ThumbPosition, kFar);
        for (int i = 0; i < 3; ++i) Desk().PassTime(1000);
        Desk().PenDown({50, 100});
        Desk().PenMove({60, 32767});
        Desk().Scroll(ScrollCode::Top);
        Desk().PenMove({70, 120});
        Desk().Scroll(ScrollCode::ThumbPosition, kFar);
        Desk().PenUp({80, 140});
        Desk().Scroll(ScrollCode::Top);
    });
    Then(Close());
    Run(kNote);
    const auto page = ReadBack(kNote);
    ASSERT_EQ(page->SlotCount(), 1u);
    EXPECT_EQ(page->Band(0)->Count(), 1u);
}

TEST(PageScroll, TheLastWholeBandDecidesWhetherThereIsInkAtTheEnd) {
    ink::InkPage page;
    page.bandHeight = page.canvasHeight = 268;
    const ink::Point point{5, 300};
    EXPECT_FALSE(editor::LastBandHoldsInk(page));
    page.AddStroke(&point, 1, 300, 300, 0);
    EXPECT_TRUE(editor::LastBandHoldsInk(page));
    page.EnsureSlot(3);
    EXPECT_TRUE(editor::LastBandHoldsInk(page));
    page.EnsureSlot(4);
    EXPECT_FALSE(editor::LastBandHoldsInk(page));
}

}  // namespace
