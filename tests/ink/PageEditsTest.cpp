// Erasing and spacing against a slow, plain model of a page.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "ink/PageEdits.h"
#include "tests/ink/Sketch.h"

namespace {

using ink::EditResult;
using ink::InkPage;
using ink::Point;

constexpr int32_t kBand = 60;

struct Stroke {
    int32_t offset = 0;
    ink::ColorRef color = 0;
    sketch::Points points;  // y as stored
    int64_t minY = 0;
    int64_t maxY = 0;

    int64_t PageY(size_t i) const { return int64_t{points[i].y} + offset; }
    void MeasureRows() {
        minY = maxY = PageY(0);
        for (size_t i = 1; i < points.size(); ++i) {
            minY = std::min(minY, PageY(i));
            maxY = std::max(maxY, PageY(i));
        }
    }
};
bool operator==(const Stroke& a, const Stroke& b) {
    return a.offset == b.offset && a.color == b.color && a.points == b.points && a.minY == b.minY &&
           a.maxY == b.maxY;
}

// Slot to strokes; empty slots are left out.
using Model = std::map<int64_t, std::vector<Stroke>>;

Model ModelOf(const InkPage& page) {
    Model model;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        const ink::StrokeBand* band = page.Band(slot);
        for (size_t i = 0; band != nullptr && i < band->Count(); ++i) {
            const ink::StrokeRecord& record = band->At(i);
            model[static_cast<int64_t>(slot)].push_back({record.yOffset,
                                                         record.Color(),
                                                         {record.Points(), record.Points() + record.count},
                                                         record.minY,
                                                         record.maxY});
        }
    }
    return model;
}

void AddTo(InkPage& page, const Stroke& stroke) {
    ink::StrokeRecord* record = page.Pool().Allocate(static_cast<int32_t>(stroke.points.size()));
    record->yOffset = stroke.offset;
    record->SetColor(stroke.color);
    record->minY = static_cast<int32_t>(stroke.minY);
    record->maxY = static_cast<int32_t>(stroke.maxY);
    std::copy(stroke.points.begin(), stroke.points.end(), record->Points());
    ASSERT_TRUE(page.FileRecord(record, page.SlotOf(record->minY, record->maxY)));
}

void FillAtRandom(InkPage& page, std::mt19937& random) {
    page.bandHeight = kBand;
    const auto number = [&](int low, int high) { return std::uniform_int_distribution<>(low, high)(random); };
    for (int i = number(0, 40); i > 0; --i) {
        Stroke stroke;
        stroke.offset = number(0, 3) == 0 ? number(0, 100) : 0;
        stroke.color = static_cast<ink::ColorRef>(i);
        const int top = number(-30, 300);
        const ink::Rect inside{-10, top, 140, top + number(2, 80)};
        stroke.points = sketch::Wander(random, static_cast<size_t>(number(1, 60)), 12, inside);
        stroke.MeasureRows();
        AddTo(page, stroke);
    }
    if (number(0, 4) == 0) AddTo(page, {0, 77, {}, 5, 6});  // a file can hold strokes without points
}

// Every point against every square; only in the slots near the drag's rows.
Model ErasedSlowly(const Model& model, const sketch::Points& drag) {
    const auto [high, low] =
        std::minmax_element(drag.begin(), drag.end(), [](Point a, Point b) { return a.y < b.y; });
    const int64_t first = 2 * ((high->y - 7) / kBand) - 1;
    const int64_t last = 2 * ((low->y + 7) / kBand) + 1;
    Model result;
    for (const auto& [slot, strokes] : model) {
        for (const Stroke& stroke : strokes) {
            std::vector<Stroke> pieces;
            bool inRun = false;
            for (size_t i = 0; i < stroke.points.size(); ++i) {
                const int64_t x = stroke.points[i].x;
                const int64_t y = stroke.PageY(i);
                const bool swept = std::any_of(drag.begin(), drag.end(), [x, y](Point p) {
                    return x >= p.x - 7 && x < p.x + 7 && y >= p.y - 7 && y < p.y + 7;
                });
                if (!swept && !inRun) pieces.push_back({stroke.offset, stroke.color, {}, 0, 0});
                if (!swept) pieces.back().points.push_back(stroke.points[i]);
                inRun = !swept;
            }
            size_t left = 0;
            for (Stroke& piece : pieces) {
                left += piece.points.size();
                piece.MeasureRows();
            }
            if (slot < first || slot > last || left == stroke.points.size()) pieces = {stroke};
            std::vector<Stroke>& band = result[slot];
            band.insert(band.end(), pieces.begin(), pieces.end());
        }
        if (result[slot].empty()) result.erase(slot);
    }
    return result;
}

TEST(PageEdits, ErasingIsWhatTheSlowModelSays) {
    std::mt19937 random(41);
    int changed = 0;
    for (int round = 0; round < 400; ++round) {
        InkPage page;
        FillAtRandom(page, random);
        const size_t length = round % 10 == 0 ? 1 : 60;
        const ink::Rect inside{-15, round % 30 - 20, 150, round % 30 + round % 350};
        const sketch::Points drag = sketch::Wander(random, length, 15, inside);
        ink::SweptRegion region;
        for (const Point p : drag) ASSERT_TRUE(region.AddSquare(p.x, p.y));
        const Model before = ModelOf(page);
        const Model wanted = ErasedSlowly(before, drag);
        const EditResult result = ink::EraseStrokes(page, region);
        ASSERT_TRUE(ModelOf(page) == wanted) << "round " << round;
        ASSERT_EQ(result == EditResult::Changed, !(before == wanted)) << "round " << round;
        changed += result == EditResult::Changed ? 1 : 0;
    }
    EXPECT_GT(changed, 200) << "the drags must meet ink";
}

TEST(PageEdits, ASquareReachesExactlySevenPixels) {
    struct Place {
        int64_t x;
        int64_t y;
    };
    const int64_t below = int64_t{1} << 31;
    for (const Place c : {Place{0, 0}, {63, 15}, {64, 16}, {-64, -16}, {-1, -17}, {-32768, below + 32767}}) {
        ink::SweptRegion region;
        ASSERT_TRUE(region.AddSquare(c.x, c.y));
        int covered = 0;
        for (int64_t y = c.y - 20; y < c.y + 20; ++y) {
            for (int64_t x = c.x - 80; x < c.x + 80; ++x) covered += region.Contains(x, y) ? 1 : 0;
        }
        EXPECT_EQ(covered, 14 * 14);
        EXPECT_TRUE(region.Contains(c.x - 7, c.y - 7) && region.Contains(c.x + 6, c.y + 6)) << c.x;
        // Another square far up and left leaves this one where it is.
        ASSERT_TRUE(region.AddSquare(c.x - 3000, c.y - 3000));
        for (const int64_t far : {0, 3000}) {
            EXPECT_TRUE(region.Contains(c.x - far - 7, c.y - far - 7)) << c.x;
            EXPECT_FALSE(region.Contains(c.x - far + 7, c.y - far)) << c.x;
        }
    }
}

// How far the strokes from `from` on can go up, found by trying. Ink that touches other ink, or the page's
// edge, already stays where it is.
int64_t TriedDistance(const Model& model, int64_t from, int64_t rows, int64_t reach) {
    for (; rows < 0; ++rows) {
        bool fits = true;
        for (const auto& moving : model) {
            for (const Stroke& mover : moving.second) {
                if (mover.points.empty() || mover.minY < from) continue;
                fits = fits && mover.minY - reach + rows >= 0;
                for (const auto& staying : model) {
                    for (const Stroke& above : staying.second) {
                        const bool stays = !above.points.empty() && above.minY < from;
                        fits = fits && (!stays || above.maxY + reach < mover.minY - reach + rows);
                    }
                }
            }
        }
        if (fits) break;
    }
    return rows;
}

TEST(PageEdits, MakingSpaceIsWhatTheSlowModelSays) {
    std::mt19937 random(42);
    const auto number = [&](int low, int high) { return std::uniform_int_distribution<>(low, high)(random); };
    std::map<bool, int> changed;
    for (int round = 0; round < 600; ++round) {
        InkPage page;
        if (round % 3 != 0) FillAtRandom(page, random);
        page.bandHeight = kBand;
        for (int y = number(10, 400); y < 1500; y += number(1, 500)) sketch::Add(page, {{5, y}, {9, y}}, 9);
        const int64_t from = number(0, 500);
        const int64_t rows = number(-250, 250);
        const int reach = number(0, 9);
        const Model before = ModelOf(page);
        const int64_t distance = TriedDistance(before, from, rows, reach);
        Model wanted;
        bool moves = false;
        for (auto slot = before.rbegin(); slot != before.rend(); ++slot) {  // as they are drawn
            for (Stroke stroke : slot->second) {
                int64_t target = slot->first;
                if (!stroke.points.empty() && stroke.minY >= from && distance != 0) {
                    for (Point& point : stroke.points) point.y += static_cast<int32_t>(distance);
                    stroke.MeasureRows();
                    target = stroke.minY / kBand + stroke.maxY / kBand;
                    moves = true;
                }
                wanted[target].push_back(stroke);
            }
        }
        page.modified = false;
        const EditResult result = ink::MoveStrokes(page, from, rows, reach);
        ASSERT_TRUE(ModelOf(page) == wanted) << "round " << round;
        ASSERT_EQ(result, moves ? EditResult::Changed : EditResult::NothingToDo) << "round " << round;
        ASSERT_EQ(page.modified, moves) << "round " << round;
        if (moves) ++changed[rows > 0];
    }
    EXPECT_GT(changed[true], 100);
    EXPECT_GT(changed[false], 30);
}

TEST(PageEdits, NothingMovesBeyondTheLongestPage) {
    constexpr int32_t kLowest = INT32_MAX - 10;
    struct Case {
        int32_t bandHeight;
        Stroke stroke;
        int64_t rows;
        EditResult result;
    };
    const Case cases[] = {
        {kBand, {0, 1, {{0, 100}}, 100, 100}, INT32_MAX, EditResult::OutOfMemory},
        {kBand, {0, 1, {{0, 100}}, 100, 100}, int64_t{1} << 40, EditResult::OutOfMemory},
        {5000, {0, 1, {{0, kLowest}}, kLowest, kLowest}, 10, EditResult::Changed},
        {5000, {0, 1, {{0, kLowest}}, kLowest, kLowest}, 11, EditResult::OutOfMemory},
        {5000, {-kLowest, 1, {{0, kLowest}}, 0, 0}, 11, EditResult::OutOfMemory},
        {1, {0, 1, {{0, 499990}}, 499990, 499990}, 10, EditResult::Changed},  // the last slot there is
        {1, {0, 1, {{0, 499990}}, 499990, 499990}, 11, EditResult::OutOfMemory},
    };
    for (const Case& c : cases) {
        InkPage page;
        page.bandHeight = c.bandHeight;
        AddTo(page, c.stroke);
        const Model before = ModelOf(page);
        EXPECT_EQ(ink::MoveStrokes(page, 0, c.rows, 3), c.result) << c.rows;
        EXPECT_EQ(ModelOf(page) == before, c.result == EditResult::OutOfMemory) << c.rows;
    }
}

}  // namespace
