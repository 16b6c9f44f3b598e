#include <gtest/gtest.h>

#include "ink/InkPage.h"
#include "tests/ink/Sketch.h"

namespace {

using ink::AddResult;
using ink::InkPage;
using Lines = std::vector<std::string>;

struct SlotCase {
    int32_t top;
    int32_t bottom;
    int64_t slot;
};

TEST(InkPage, FilesStrokesByTheBandsOfTheirEnds) {
    InkPage page;
    page.bandHeight = 268;
    for (const SlotCase& c : {SlotCase{10, 30, 0},
                              {250, 290, 1},
                              {300, 320, 2},
                              {0, 536, 2},
                              {804, 805, 6},
                              {-40, 5, 0},
                              {-600, -300, 0},
                              {-300, 300, 0}}) {
        EXPECT_EQ(page.SlotOf(c.top, c.bottom), c.slot) << c.top << ".." << c.bottom;
    }
    sketch::Add(page, {{1, 300}, {2, 320}}, 0x00123456);
    EXPECT_EQ(page.SlotCount(), 3u);
    EXPECT_EQ(page.Band(0), nullptr);
    EXPECT_EQ(page.Band(1), nullptr);
    EXPECT_EQ(sketch::Describe(page), (Lines{"2: 0 123456 300..320 (1,300) (2,320)"}));
}

TEST(InkPage, MarksThePageThatGotNothingAndRefusesAStrokeBeyondEveryPage) {
    InkPage page;
    page.bandHeight = 1;
    const ink::Point point{0, 600000};
    EXPECT_EQ(page.AddStroke(nullptr, 0, 0, 0, 0), AddResult::NothingToAdd);
    EXPECT_TRUE(page.modified);
    EXPECT_EQ(page.AddStroke(&point, 1, 600000, 600000, 0), AddResult::OutOfMemory);
    EXPECT_EQ(page.SlotCount(), 0u);
    EXPECT_FALSE(page.EnsureSlot(InkPage::kMaxSlot + 1));
    EXPECT_TRUE(page.EnsureSlot(-1));
}

TEST(InkPage, VisitsHighSlotsFirstAndSkipsWhatDoesNotOverlap) {
    InkPage page;
    page.bandHeight = 268;
    sketch::Add(page, {{0, 10}, {0, 30}}, 1);
    sketch::Add(page, {{0, 250}, {0, 290}}, 2);
    sketch::Add(page, {{0, 268}}, 3);
    sketch::Add(page, {{0, 40}}, 4);
    const auto colors = [&](int32_t top, int32_t bottom) {
        std::vector<ink::ColorRef> seen;
        page.VisitStrokes(top, bottom,
                          [&](const ink::StrokeRecord& record) { seen.push_back(record.Color()); });
        return seen;
    };
    using Colors = std::vector<ink::ColorRef>;
    EXPECT_EQ(colors(0, 267), (Colors{2, 1, 4}));  // slot 2 is not looked into
    EXPECT_EQ(colors(0, 268), (Colors{3, 2, 1, 4}));
    EXPECT_EQ(colors(30, 39), (Colors{1}));
    EXPECT_EQ(colors(31, 39), (Colors{}));
    EXPECT_EQ(colors(268, 300), (Colors{3, 2}));
    EXPECT_EQ(colors(100000, 100300), (Colors{}));
    EXPECT_EQ(colors(-500, -1), (Colors{}));
    // Records without points are kept but not visited.
    ASSERT_TRUE(sketch::Load(sketch::ReadFixture("no-points"), page).Ok());
    EXPECT_EQ(page.Band(0)->Count(), 2u);
    EXPECT_EQ(colors(0, 267).size(), 1u);
}

TEST(InkPage, ClearDropsInkAndMemoButNotTheSettings) {
    InkPage page;
    page.bandHeight = 100;
    page.background = 0x123456;
    page.memo = L"memo";
    page.notePath = L"\\My Documents\\";
    page.scroll = 70;
    sketch::Add(page, {{0, 0}});
    sketch::Add(page, {{0, 950}});
    ASSERT_TRUE(page.CutRecords(0, {{{0, 0}}, {}}));
    page.Clear();
    EXPECT_EQ(page.SlotCount(), 0u);
    EXPECT_FALSE(page.HasInk());
    EXPECT_FALSE(page.modified);
    EXPECT_EQ(page.scroll, 0);
    EXPECT_TRUE(page.memo.empty());
    EXPECT_EQ(page.background, 0x123456u);
    EXPECT_EQ(page.notePath, L"\\My Documents\\");
    // Nor does anything come back out of memory that is gone.
    EXPECT_EQ(page.Pool().Capacity(), 0u);
    EXPECT_EQ(sketch::Add(page, {{0, 0}}), AddResult::Added);
    EXPECT_EQ(page.Pool().Capacity(), ink::StrokePool::kFirstChunk);
}

TEST(InkPage, TrimsEmptyAndMissingBandsFromTheEnd) {
    InkPage page;
    page.bandHeight = 10;
    sketch::Add(page, {{0, 25}});
    sketch::Add(page, {{0, 55}});
    ASSERT_TRUE(page.EnsureSlot(20));
    EXPECT_EQ(page.SlotCount(), 21u);
    ASSERT_TRUE(page.CutRecords(10, {{{0, 0}}, {}}));
    page.TrimTrailingBands();
    EXPECT_EQ(page.SlotCount(), 5u);
    EXPECT_TRUE(page.HasInk());
    ASSERT_TRUE(page.CutRecords(4, {{{0, 0}}, {}}));
    EXPECT_FALSE(page.HasInk());
    page.TrimTrailingBands();
    EXPECT_EQ(page.SlotCount(), 0u);
}

TEST(InkPage, CuttingKeepsPlaceOffsetAndColour) {
    InkPage page;
    page.bandHeight = 268;
    ASSERT_TRUE(sketch::Load(sketch::ReadFixture("offset"), page).Ok());
    sketch::Add(page, {{7, 7}}, 9);
    page.modified = false;
    ASSERT_TRUE(page.CutRecords(0, {{{0, 2}}, {{0, 1}, {2, 1}}}));
    EXPECT_TRUE(page.modified);
    Lines lines = sketch::Describe(page);
    lines.resize(4);
    EXPECT_EQ(lines, (Lines{"0: 7 123456 10..10 (10,10)", "0: 7 123456 30..30 (20,30)",
                            "0: 7 ffffff 60..60 (5,60)", "0: 0 9 7..7 (7,7)"}));
    EXPECT_FALSE(page.CutRecords(page.SlotCount(), {}));
}

TEST(StrokePool, ChunksDoubleUpToTheLargest) {
    ink::StrokePool pool;
    for (const size_t size : {16u, 32u, 64u, 128u, 256u, 256u}) {
        EXPECT_EQ(pool.NextChunkSize(), size * 1024);
        ASSERT_NE(pool.AddChunk(1), nullptr);
    }
}

TEST(InkPage, ErasedMemoryServesLaterStrokes) {
    InkPage page;
    page.bandHeight = 268;
    for (int i = 0; i < 2000; ++i) {
        sketch::Add(page, sketch::Points(100, {i % 200, 5}));
        if (i > 0) {
            ASSERT_TRUE(page.CutRecords(0, {{{0, 0}}, {}}));
        }
    }
    EXPECT_LE(page.Pool().Capacity(), 3 * ink::StrokePool::kFirstChunk);
    EXPECT_EQ(sketch::Describe(page).size(), 1u);
}

}  // namespace
