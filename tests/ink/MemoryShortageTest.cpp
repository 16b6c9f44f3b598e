// Every allocation of the ink layer is made to fail in turn: what the user has must survive, and the caller
// must hear of it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <functional>
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

template <typename Action>
auto Within(size_t allocations, Action&& action) {
    const Shortage shortage(allocations);
    return action();
}

// Makes the attempt with ever more allocations that succeed, until it says that it did.
template <typename Attempt>
void UntilItSucceeds(Attempt&& attempt) {
    for (size_t count = 0; !attempt(count); ++count) ASSERT_LT(count, 40u);
}

TEST(MemoryShortage, APageIsChangedWholeOrNotAtAll) {
    const ink::Point points[] = {{1, 500}, {2, 510}};
    const ink::BandCuts cuts{{{0, 3}}, {{0, 1}, {2, 20000}, {20003, 1}}};
    ink::SweptRegion region;
    ASSERT_TRUE(region.AddSquare(60, 105));
    using Edit = std::function<bool(InkPage&)>;
    const Edit edits[] = {
        [&](InkPage& page) { return page.AddStroke(points, 2, 500, 510, 0) == ink::AddResult::Added; },
        [&](InkPage& page) { return page.CutRecords(0, cuts); },
        [](InkPage& page) { return page.ShiftStrokes(200, 300); },
        [&](InkPage& page) { return ink::EraseStrokes(page, region) == ink::EditResult::Changed; }};
    const auto fill = [](InkPage& page) {
        page.bandHeight = 100;
        sketch::Add(page, sketch::Points(20010, {3, 4}));
        sketch::Add(page, {{60, 90}, {60, 100}, {60, 110}, {60, 120}});
        sketch::Add(page, {{5, 250}});
    };
    for (const Edit& edit : edits) {
        InkPage edited;
        fill(edited);
        ASSERT_TRUE(edit(edited));
        UntilItSucceeds([&](size_t count) {
            InkPage page;
            fill(page);
            const auto before = sketch::Describe(page);
            const size_t slots = page.SlotCount();
            const bool done = Within(count, [&] { return edit(page); });
            if (!done) {
                EXPECT_EQ(sketch::Describe(page), before) << count;
                EXPECT_EQ(page.SlotCount(), slots) << count;
                EXPECT_TRUE(edit(page)) << count;
            }
            EXPECT_EQ(sketch::Describe(page), sketch::Describe(edited)) << count;
            return done;
        });
    }
}

TEST(MemoryShortage, ASquareIsSweptWholeOrNotAtAll) {
    UntilItSucceeds([](size_t count) {
        ink::SweptRegion region;
        const bool swept = Within(count, [&] { return region.AddSquare(64, 16); });
        EXPECT_EQ(region.IsEmpty(), !swept) << count;
        for (const int32_t x : {57, 70}) EXPECT_EQ(region.Contains(x, 9), swept) << count;
        return swept;
    });
}

TEST(MemoryShortage, LoadingSaysSoAndKeepsNothing) {
    const sketch::Bytes bytes = sketch::ReadFixture("version-5");
    for (const int32_t height : {268, 240}) {
        UntilItSucceeds([&](size_t count) {
            InkPage page;
            page.bandHeight = height;
            const sketch::Loaded loaded = Within(count, [&] { return sketch::Load(bytes, page); });
            if (loaded.Ok()) return true;
            EXPECT_EQ(loaded.result, ink::LoadResult::OutOfMemory) << count;
            EXPECT_EQ(page.SlotCount(), 0u) << count;
            return false;
        });
    }
}

TEST(MemoryShortage, SavingNeedsNone) {
    InkPage page;
    page.bandHeight = 100;
    sketch::Add(page, {{1, 2}, {3, 4}});
    const sketch::Bytes wanted = sketch::Save(page);
    class FixedSink : public ink::ByteSink {
      public:
        bool Write(const void* data, size_t size) override {
            if (used + size > room) return false;
            std::memcpy(bytes + used, data, size);
            used += size;
            return true;
        }
        uint8_t bytes[200] = {};
        size_t used = 0;
        size_t room = 0;
    };
    ASSERT_LE(wanted.size(), sizeof FixedSink::bytes);
    for (size_t room = 0; room <= wanted.size(); ++room) {
        FixedSink sink;
        sink.room = room;
        EXPECT_EQ(Within(0, [&] { return ink::WriteNote(sink, page); }), room == wanted.size()) << room;
        EXPECT_TRUE(std::equal(sink.bytes, sink.bytes + sink.used, wanted.begin())) << room;
    }
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
    const sketch::Points line{{10, 60}, {90, 90}};
    sketch::Add(page, line, 0xFF);
    const auto paint = [&](ink::InkPainter& painter, sketch::Picture& picture) {
        const ink::Rect all = picture.surface.Bounds();
        if (!painter.Repaint(picture.surface, page, 0, all)) return false;
        if (!painter.BeginStroke(picture.surface, 0)) return false;
        painter.PaintSegment(picture.surface, line.data(), 1);
        painter.EndStroke();
        return true;
    };
    sketch::Picture wanted(100, 100);
    ink::InkPainter reference;
    ASSERT_TRUE(reference.SetPen(PenStyle::Smooth, 2.5));
    ASSERT_TRUE(paint(reference, wanted));
    UntilItSucceeds([&](size_t count) {
        ink::InkPainter painter;
        sketch::Picture picture(100, 100);
        const bool set = Within(count, [&] { return painter.SetPen(PenStyle::Smooth, 2.5); });
        EXPECT_EQ(painter.Reach() == reference.Reach(), set) << count;  // or the pen is what it was
        const bool done = Within(count, [&] { return paint(painter, picture); }) && set;
        if (!done) {
            EXPECT_TRUE(painter.SetPen(PenStyle::Smooth, 2.5) && paint(painter, picture)) << count;
        }
        EXPECT_TRUE(picture == wanted) << count;
        return done;
    });
}

}  // namespace
