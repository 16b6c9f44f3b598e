// Every allocation of the ink layer is made to fail in turn: what the user has must survive, and the caller
// must hear of it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <new>

#include "ink/InkPainter.h"
#include "ink/PageEdits.h"
#include "tests/ink/Sketch.h"

namespace {

// Allocations that still succeed.
size_t allowed = std::numeric_limits<size_t>::max();

// Kept out of line: the compiler would otherwise see `new` end in malloc, and take free for a mistake.
[[gnu::noinline]] void* Allocate(size_t size) {
    if (allowed == 0) return nullptr;
    if (allowed != std::numeric_limits<size_t>::max()) --allowed;
    return std::malloc(size == 0 ? 1 : size);
}

[[gnu::noinline]] void Release(void* place) { std::free(place); }

class Shortage {
  public:
    explicit Shortage(size_t count) { allowed = count; }
    ~Shortage() { allowed = std::numeric_limits<size_t>::max(); }
};

}  // namespace

void* operator new(size_t size) {
    void* place = Allocate(size);
    if (place == nullptr) throw std::bad_alloc();
    return place;
}
void* operator new[](size_t size) { return operator new(size); }
void* operator new(size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* place) noexcept { Release(place); }
void operator delete[](void* place) noexcept { Release(place); }
void operator delete(void* place, size_t) noexcept { Release(place); }
void operator delete[](void* place, size_t) noexcept { Release(place); }

namespace {

using ink::InkPage;
using ink::PenStyle;

TEST(MemoryShortage, AddingLeavesThePageAsItWas) {
    const ink::Point points[] = {{1, 500}, {2, 510}};
    bool added = false;
    for (size_t count = 0; !added; ++count) {
        InkPage page;
        page.bandHeight = 100;
        sketch::Add(page, {{0, 10}});
        const auto before = sketch::Describe(page);
        const size_t slots = page.SlotCount();
        ink::AddResult result = ink::AddResult::Added;
        {
            const Shortage shortage(count);
            result = page.AddStroke(points, 2, 500, 510, 0);
        }
        added = result == ink::AddResult::Added;
        ASSERT_LT(count, 20u);
        if (added) continue;
        EXPECT_EQ(result, ink::AddResult::OutOfMemory);
        EXPECT_EQ(sketch::Describe(page), before) << count;
        EXPECT_EQ(page.SlotCount(), slots) << count;
        EXPECT_EQ(page.AddStroke(points, 2, 500, 510, 0), ink::AddResult::Added);
    }
}

TEST(MemoryShortage, CuttingAndShiftingAreAllOrNothing) {
    const ink::BandCuts cuts{{{0, 3}}, {{0, 1}, {2, 20000}, {20003, 1}}};
    for (const bool shift : {false, true}) {
        bool done = false;
        for (size_t count = 0; !done; ++count) {
            InkPage page;
            page.bandHeight = 100;
            sketch::Add(page, sketch::Points(20010, {3, 4}));
            sketch::Add(page, {{5, 250}});
            const auto before = sketch::Describe(page);
            {
                const Shortage shortage(count);
                done = shift ? page.ShiftStrokes(200, 300) : page.CutRecords(0, cuts);
            }
            ASSERT_LT(count, 20u);
            if (!done) {
                EXPECT_EQ(sketch::Describe(page), before) << count;
            }
        }
    }
}

TEST(MemoryShortage, ASquareIsSweptWholeOrNotAtAll) {
    bool swept = false;
    for (size_t count = 0; !swept; ++count) {
        ink::SweptRegion region;
        {
            const Shortage shortage(count);
            swept = region.AddSquare(64, 16);
        }
        ASSERT_LT(count, 20u);
        EXPECT_EQ(region.IsEmpty(), !swept) << count;
        for (const int32_t x : {57, 70}) EXPECT_EQ(region.Contains(x, 9), swept) << count;
    }
}

TEST(MemoryShortage, ErasingLeavesEachStrokeErasedOrWhole) {
    ink::SweptRegion region;
    ASSERT_TRUE(region.AddSquare(60, 105));
    bool done = false;
    for (size_t count = 0; !done; ++count) {
        InkPage page;
        page.bandHeight = 100;
        sketch::Add(page, sketch::Points(5000, {3, 4}));
        sketch::Add(page, {{60, 90}, {60, 100}, {60, 110}, {60, 120}});
        const auto whole = sketch::Describe(page);
        {
            const Shortage shortage(count);
            done = ink::EraseStrokes(page, region) == ink::EditResult::Changed;
        }
        ASSERT_LT(count, 20u);
        EXPECT_EQ(sketch::Describe(page).size(), done ? 3u : 2u) << count;
        if (!done) {
            EXPECT_EQ(sketch::Describe(page), whole) << count;
        }
    }
}

TEST(MemoryShortage, LoadingSaysSoAndKeepsNothing) {
    const sketch::Bytes bytes = sketch::ReadFixture("version-5");
    for (const int32_t height : {268, 240}) {
        bool loaded = false;
        for (size_t count = 0; !loaded; ++count) {
            InkPage page;
            page.bandHeight = height;
            sketch::Loaded result;
            {
                const Shortage shortage(count);
                result = sketch::Load(bytes, page);
            }
            loaded = result.Ok();
            ASSERT_LT(count, 40u);
            if (loaded) continue;
            EXPECT_EQ(result.result, ink::LoadResult::OutOfMemory) << count;
            EXPECT_EQ(page.SlotCount(), 0u) << count;
        }
    }
}

TEST(MemoryShortage, SavingNeedsNone) {
    InkPage page;
    page.bandHeight = 100;
    sketch::Add(page, {{1, 2}, {3, 4}});
    const sketch::Bytes wanted = sketch::Save(page);
    class CountingSink : public ink::ByteSink {
      public:
        bool Write(const void*, size_t size) override {
            total += size;
            return true;
        }
        size_t total = 0;
    } sink;
    const Shortage shortage(0);
    EXPECT_TRUE(ink::WriteNote(sink, page));
    EXPECT_EQ(sink.total, wanted.size());
}

TEST(MemoryShortage, MovingThePenAllocatesNothing) {
    std::mt19937 random(9);
    for (const PenStyle style : {PenStyle::Simple, PenStyle::Classic, PenStyle::Smooth}) {
        sketch::Picture picture(200, 200);
        ink::InkPainter painter;
        ASSERT_TRUE(painter.SetPen(style, 3));
        const sketch::Points points = sketch::Wander(random, 300, 40, {-20, -20, 220, 220});
        ASSERT_TRUE(painter.BeginStroke(picture.surface, 0));
        const Shortage shortage(0);
        for (size_t i = 1; i < points.size(); ++i) painter.PaintSegment(picture.surface, &points[i - 1], 2);
        painter.EndStroke();
    }
}

TEST(MemoryShortage, PainterReportsItAndGoesOnLater) {
    InkPage page;
    page.bandHeight = 200;
    sketch::Add(page, {{10, 60}, {90, 90}}, 0xFF);
    sketch::Picture wanted(100, 100);
    ink::InkPainter reference;
    reference.Repaint(wanted.surface, page, 0, wanted.surface.Bounds());
    bool done = false;
    for (size_t count = 0; !done; ++count) {
        ink::InkPainter painter;
        sketch::Picture picture(100, 100);
        {
            const Shortage shortage(count);
            done = painter.SetPen(PenStyle::Smooth, 1.0) &&
                   painter.Repaint(picture.surface, page, 0, picture.surface.Bounds());
        }
        ASSERT_LT(count, 40u);
        ASSERT_TRUE(painter.Repaint(picture.surface, page, 0, picture.surface.Bounds()));
        EXPECT_TRUE(picture == wanted) << count;
    }
}

}  // namespace
