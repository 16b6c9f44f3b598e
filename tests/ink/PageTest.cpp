// The page and its edits against slow, plain models of what they do.
#include <gtest/gtest.h>

#include <algorithm>

#include "ink/PageJournal.h"
#include "tests/ink/Sketch.h"

namespace {

using ink::AddResult;
using ink::EditResult;
using ink::InkPage;
using ink::Point;
using sketch::Describe;
using sketch::Dice;
using sketch::Lines;
using sketch::Points;
using sketch::Stroke;
using sketch::Strokes;

constexpr int32_t kBand = 60;

// No stroke is taller than a band, and some have no points, as a file may hold them.
void FillAtRandom(InkPage& page, Dice& dice) {
    page.bandHeight = kBand;
    for (int i = dice(0, 40); i > 0; --i) {
        const int32_t top = dice(0, 3) == 0 ? dice(300, 1500) : dice(-30, 300);
        const ink::Rect inside{-10, top, 140, top + dice(2, kBand)};
        Stroke stroke{0, dice(0, 3) == 0 ? dice(0, 100) : 0, static_cast<ink::ColorRef>(i), {}};
        if (dice(0, 30) > 0) stroke.points = dice.Line(dice(1, 60), 12, inside);
        sketch::File(page, stroke.MeasureRows());
    }
}

// Every point against every square of the drag.
Strokes Erased(const Strokes& strokes, const Points& drag) {
    Strokes result;
    for (const Stroke& stroke : strokes) {
        Strokes pieces;
        size_t left = 0;
        bool wasSwept = true;
        for (const Point& p : stroke.points) {
            const bool isSwept = std::any_of(drag.begin(), drag.end(), [p](Point centre) {
                return p.x >= centre.x - 7 && p.x < centre.x + 7 && p.y >= centre.y - 7 && p.y < centre.y + 7;
            });
            if (!isSwept && wasSwept) pieces.push_back({stroke.slot, stroke.offset, stroke.color, {}});
            if (!isSwept) pieces.back().points.push_back(p);
            left += isSwept ? 0 : 1;
            wasSwept = isSwept;
        }
        if (left == stroke.points.size()) pieces = {stroke};
        for (Stroke& piece : pieces) result.push_back(piece.MeasureRows());
    }
    return result;
}

// As far as they can go, found by trying. Ink that touches other ink, or the page's edge, stays where it is.
Strokes Moved(Strokes strokes, int32_t from, int32_t rows, int32_t reach) {
    const auto moves = [&](const Stroke& stroke) { return !stroke.points.empty() && stroke.top >= from; };
    const auto fits = [&](const Stroke& mover) {
        const int32_t top = mover.top - reach + rows;
        const auto leavesFree = [&](const Stroke& other) {
            return other.points.empty() || moves(other) || other.bottom + reach < top;
        };
        return !moves(mover) || (top >= 0 && std::all_of(strokes.begin(), strokes.end(), leavesFree));
    };
    while (rows < 0 && !std::all_of(strokes.begin(), strokes.end(), fits)) ++rows;
    for (Stroke& stroke : strokes) {
        if (!moves(stroke) || rows == 0) continue;
        for (Point& point : stroke.points) point.y += rows;
        stroke.MeasureRows();
        stroke.slot = stroke.top / kBand + stroke.bottom / kBand;
    }
    const auto isLower = [](const Stroke& a, const Stroke& b) { return a.slot < b.slot; };
    std::stable_sort(strokes.begin(), strokes.end(), isLower);
    return strokes;
}

TEST(PageEdits, AreWhatTheSlowModelsSay) {
    Dice dice(41);
    int changed = 0;
    for (int step = 0; step < 600; ++step) {
        InkPage page;
        FillAtRandom(page, dice);
        ink::PageHistory history(page);
        for (int edits = 0; edits < 2; ++edits) {
            const Lines before = Describe(page);
            Strokes wanted;
            EditResult result;
            page.modified = false;
            if (dice(0, 1) == 0) {
                // Some drags leap far over the page, so that the region grows on all sides.
                Points drag =
                    dice.Line(dice(0, 9) == 0 ? 1 : 60, 15, {-15, dice(-30, 9), 150, dice(10, 350)});
                const Points leaps = dice.Line(9, 3000, {-3000, -3000, 3000, 3000});
                if (dice(0, 3) == 0) drag.insert(drag.begin() + 1, leaps.begin(), leaps.end());
                ink::SweptRegion region;
                for (const Point& p : drag) ASSERT_TRUE(region.AddSquare(p.x, p.y));
                wanted = Erased(sketch::StrokesOf(page), drag);
                result = history.EraseStrokes(region);
            } else {
                const int32_t from = dice(0, 500);
                const int32_t distance = dice(-250, 250);
                const int32_t reach = dice(0, 9);
                wanted = Moved(sketch::StrokesOf(page, true), from, distance, reach);
                result = history.MoveStrokes(from, distance, reach);
            }
            const bool changes = Describe(wanted) != before;
            ASSERT_TRUE(Describe(page) == Describe(wanted)) << step;
            ASSERT_EQ(result, changes ? EditResult::Changed : EditResult::NothingToDo) << step;
            ASSERT_EQ(page.modified, changes) << step;
            changed += changes ? 1 : 0;
        }
    }
    EXPECT_GT(changed, 700) << "most must meet ink";
}

TEST(PageEdits, NothingGoesBeyondTheLongestPage) {
    constexpr int32_t kLowest = INT32_MAX - 10;
    const struct {
        int32_t bandHeight, offset, y;
        int64_t rows;
        bool isRefused;
    } kCases[] = {{kBand, 0, 100, int64_t{1} << 40, true},
                  {5000, 0, kLowest, 10, false},
                  {5000, 0, kLowest, 11, true},
                  {5000, -kLowest, 0, 11, true},  // the stored row is the offset less
                  {1, 0, 499990, 10, false},      // the last slot there is
                  {1, 0, 499990, 11, true}};
    for (const auto& c : kCases) {
        InkPage page;
        page.bandHeight = c.bandHeight;
        sketch::File(page, {0, c.offset, 1, {{0, c.y}}, c.y, c.y});
        const Lines before = Describe(page);
        ink::StrokeChange change;
        const EditResult result = ink::MoveStrokes(page, 0, c.rows, 3, change);
        EXPECT_EQ(result, c.isRefused ? EditResult::OutOfMemory : EditResult::Changed) << c.rows;
        EXPECT_EQ(Describe(page) == before, c.isRefused) << c.rows;
    }
    // Nor does anything come there: a new stroke, a slot, or what another device wrote.
    for (const int32_t row : {500000, 500001}) {
        const bool isIn = row == 500000;
        InkPage page, tall;
        EXPECT_EQ(sketch::Add(page, {{0, row}}), isIn ? AddResult::Added : AddResult::OutOfMemory);
        EXPECT_EQ(page.SlotCount(), isIn ? 1000001u : 0u);
        EXPECT_EQ(page.EnsureSlot(int64_t{2} * row), isIn);
        tall.bandHeight = 1000;
        sketch::Add(tall, {{0, row}});
        EXPECT_EQ(sketch::Load(sketch::Save(tall), page) == ink::LoadResult::Loaded, isIn);
    }
}

TEST(InkPage, ErasedMemoryServesLaterStrokesAndClearedNothingIsLeft) {
    InkPage page;
    page.bandHeight = 10;
    page.memo = L"memo";
    page.scroll = 70;
    ASSERT_TRUE(page.EnsureSlot(20) && page.EnsureSlot(3) && page.EnsureSlot(-1));
    page.TrimTrailingBands(15);
    EXPECT_EQ(page.SlotCount(), 15u);
    for (int i = 0; i < 2000; ++i) {
        ink::StrokeChange change;
        sketch::Add(page, Points(100, {0, 25}));
        EXPECT_TRUE(page.HasInk() && page.RemoveAll(change) && !page.HasInk());
        page.Forget(change, true);
    }
    EXPECT_EQ(page.Pool().Capacity(), ink::StrokePool::kFirstChunk);
    page.Clear();
    EXPECT_EQ(page.SlotCount() + page.Pool().Capacity(), 0u);
    EXPECT_TRUE(!page.modified && page.scroll == 0 && page.memo.empty());
    EXPECT_TRUE(sketch::Add(page, {}) == AddResult::NothingToAdd && page.modified);
}

Lines Whole(const InkPage& page) {
    Lines whole = Describe(page);
    whole.push_back(std::to_string(page.SlotCount()) + " " + std::to_string(page.background) + " " +
                    std::to_string(page.memo.size()));
    return whole;
}

void ChangeAtRandom(ink::PageHistory& history, InkPage& page, Dice& dice) {
    ink::SweptRegion region;
    const int32_t top = dice(0, 400);
    const int kind = dice(0, 9);
    for (int i = dice(1, 3); i > 0 && kind < 5; --i) {
        const Stroke stroke =
            Stroke{0, 0, 9, dice.Line(dice(1, 60), 12, {0, top, 140, top + kBand})}.MeasureRows();
        history.AddStroke(stroke.points.data(), static_cast<int32_t>(stroke.points.size()), stroke.top,
                          stroke.bottom, stroke.color);
    }
    if (kind == 5 || kind == 6) {
        for (const Point& p : dice.Line(30, 15, {0, top, 150, top + 200})) region.AddSquare(p.x, p.y);
        if (history.EraseStrokes(region) == EditResult::Changed) page.TrimTrailingBands();
    }
    if (kind == 7) history.MoveStrokes(top, dice(-250, 250), 3);
    if (kind == 8) history.SetBackground(static_cast<ink::ColorRef>(dice(0, 3)));
    if (kind == 9 && dice(0, 3) == 0) history.RemoveAll();
    if (kind == 9) history.SetMemo(std::wstring(static_cast<size_t>(dice(0, 3)), L'm'));
    if (kind == 0) page.EnsureSlot(dice(0, 20));  // the view went on
    history.EndStep();
}

struct Mirror : ink::StepListener {
    explicit Mirror(const InkPage& source) : page(source) {}
    void OnStep(const ink::PageStep& step, ink::StepWay way) override {
        ++steps;
        ends.push_back(journal.size());
        EXPECT_TRUE(steps == 1 ? AppendPage(journal, page) : AppendStep(journal, step, way, page));
    }
    Lines Replayed(size_t size) const {
        ink::MemorySource source(journal.data(), size);
        InkPage copy;
        uint32_t kind = 0;
        ink::BlockBytes content;
        while (NextBlock(source, kind, content)) EXPECT_TRUE(Replay(kind, content, copy));
        return Whole(copy);
    }
    // What no checksum would let through may not fit the page, and does no harm.
    void ReplayAnything(Dice& dice) const {
        ink::MemorySource source(journal.data(), journal.size());
        InkPage copy;
        uint32_t kind = 0;
        for (ink::BlockBytes content; NextBlock(source, kind, content);) {
            for (int i = dice(0, 1); i > 0; --i)
                content[static_cast<size_t>(dice(0, static_cast<int32_t>(content.size()) - 1))] ^=
                    static_cast<uint8_t>(1 << dice(0, 7));
            Replay(kind, content, copy);
        }
        EXPECT_FALSE(sketch::Save(copy).empty());
    }
    const InkPage& page;
    int steps = 0;
    ink::BlockBytes journal;
    std::vector<size_t> ends;  // of the blocks before each step
};

TEST(PageHistory, EveryStepCanBeTakenBackAndMadeAgain) {
    using Result = ink::PageHistory::Result;
    for (uint32_t seed = 1; seed <= 30; ++seed) {
        Dice dice(seed);
        const bool isBounded = seed % 3 == 0;
        InkPage page;
        FillAtRandom(page, dice);
        ink::PageHistory history(page, isBounded ? 20000 : ink::PageHistory::kMostBytes);
        Mirror mirror(page);
        history.SetListener(&mirror);
        std::vector<Lines> past{Whole(page)}, future;
        ink::RowSpan rows;
        for (int step = 0; step < 200; ++step) {
            SCOPED_TRACE(testing::Message() << seed << " " << step);
            page.modified = false;
            const int way = dice(0, 3);
            const int steps = mirror.steps;
            if (way == 0 && history.CanUndo()) {
                ASSERT_EQ(history.Undo(rows), Result::Done);
                future.push_back(past.back());
                past.pop_back();
            } else if (way == 1 && history.CanRedo()) {
                ASSERT_EQ(history.Redo(rows), Result::Done);
                past.push_back(future.back());
                future.pop_back();
            } else {
                ChangeAtRandom(history, page, dice);
                if (mirror.steps == steps) continue;
                past.push_back(Whole(page));
                future.clear();
            }
            ASSERT_EQ(mirror.steps, steps + 1);
            ASSERT_TRUE(Whole(page) == past.back());
            if (step % 20 == 0) {
                // Cut off anywhere, or damaged, the last step is missing and nothing else.
                const Lines before = mirror.Replayed(mirror.ends.back());
                const size_t last = mirror.journal.size() - 1;
                const size_t cut = static_cast<size_t>(
                    dice(static_cast<int32_t>(mirror.ends.back()), static_cast<int32_t>(last)));
                ASSERT_TRUE(mirror.Replayed(last + 1) == past.back());
                ASSERT_TRUE(mirror.Replayed(cut) == before);
                mirror.journal[cut] ^= 4;
                ASSERT_TRUE(mirror.Replayed(last + 1) == before);
                mirror.journal[cut] ^= 4;
                mirror.ReplayAnything(dice);
            }
            ASSERT_TRUE(page.modified);
            ASSERT_EQ(history.CanRedo(), !future.empty());
            ASSERT_TRUE(isBounded || history.CanUndo() == (past.size() > 1));
        }
        ASSERT_TRUE(!isBounded || past.size() > 4) << "the oldest are dropped";
        while (history.Undo(rows) == Result::Done) past.pop_back();
        ASSERT_EQ(past.size() == 1, !isBounded);
        history.Clear();
        EXPECT_TRUE(!history.CanRedo() && history.Redo(rows) == Result::NothingToDo);
    }
}

}  // namespace
