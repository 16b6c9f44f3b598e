// Every allocation of the ink layer is made to fail in turn: what the user has must survive, and the caller
// must hear of it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <new>

#include "ink/InkPainter.h"
#include "ink/PageHistory.h"
#include "tests/ink/Sketch.h"

using testing_support::Fault;
using testing_support::SweepFaults;

namespace {

Fault* shortage = nullptr;  // which allocation fails, while one may

// Kept out of line: the compiler would otherwise see `new` end in malloc, and take free for a mistake.
[[gnu::noinline]] void* Allocate(size_t size) {
    return shortage != nullptr && shortage->Strikes() ? nullptr : std::malloc(size + 1);
}
[[gnu::noinline]] void Release(void* place) { std::free(place); }

}  // namespace

void* operator new(size_t size) {
    if (void* place = Allocate(size)) return place;
    throw std::bad_alloc();
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
auto With(Fault& fault, Action&& action) {
    shortage = &fault;
    const auto result = action();
    shortage = nullptr;
    return result;
}

// An edit of a page is done or refused as a whole, and can be done later.
TEST(MemoryShortage, APageIsChangedWholeOrNotAtAll) {
    const ink::Point points[] = {{1, 500}, {2, 510}};
    const sketch::Bytes file = sketch::ReadFixture("version-5");
    const std::function<bool(InkPage&)> edits[] = {
        [&](InkPage& page) {
            return ink::PageHistory(page).AddStroke(points, 2, 500, 510, 0) == ink::AddResult::Added;
        },
        [](InkPage& page) {
            return ink::PageHistory(page).MoveStrokes(200, 300, 0) == ink::EditResult::Changed;
        },
        [](InkPage& page) {
            ink::SweptRegion region;
            return region.AddSquare(60, 105) &&
                   ink::PageHistory(page).EraseStrokes(region) == ink::EditResult::Changed;
        },
        [&](InkPage&) {
            InkPage loaded;
            const auto result = sketch::Load(file, loaded);
            EXPECT_NE(result, ink::LoadResult::Damaged);
            EXPECT_EQ(loaded.SlotCount() > 0, result == ink::LoadResult::Loaded);
            return result == ink::LoadResult::Loaded;
        }};
    sketch::Points large(20000, {3, 4});
    large[10000] = {60, 100};
    const auto fill = [&large](InkPage& page) {
        page.bandHeight = 100;
        sketch::Add(page, large);
        sketch::Add(page, {{5, 250}});
    };
    for (const auto& edit : edits) {
        InkPage edited;
        fill(edited);
        ASSERT_TRUE(edit(edited));
        SweepFaults([&](Fault& fault) {
            InkPage page;
            fill(page);
            const auto before = sketch::Describe(page);
            const size_t slots = page.SlotCount();
            const bool done = With(fault, [&] { return edit(page); });
            EXPECT_EQ(done, !fault.HasStruck());
            EXPECT_TRUE(done || (sketch::Describe(page) == before && page.SlotCount() == slots));
            EXPECT_TRUE(done || edit(page)) << "later";
            EXPECT_EQ(sketch::Describe(page), sketch::Describe(edited));
        });
    }
}

// Moving the pen takes no memory: it could not tell that there is none.
TEST(MemoryShortage, PainterReportsItAndGoesOnLater) {
    InkPage page;
    page.bandHeight = 200;
    sketch::Dice dice(9);
    const sketch::Points line = dice.Line(60, 40, {-20, -20, 120, 120});
    sketch::Add(page, {{10, 60}, {90, 90}}, 0xFF);
    for (const PenStyle style : {PenStyle::Simple, PenStyle::Classic, PenStyle::Smooth}) {
        const auto paint = [&](ink::InkPainter& painter, sketch::Picture& picture) {
            if (!painter.Repaint(picture.surface, page, 0, picture.surface.Bounds())) return false;
            if (!painter.BeginStroke(picture.surface, 0)) return false;
            painter.PaintSegment(picture.surface, line.data(), line.size());
            painter.EndStroke();
            return true;
        };
        sketch::Picture wanted(100, 100);
        ink::InkPainter reference;
        ASSERT_TRUE(reference.SetPen(style, 5) && paint(reference, wanted));
        SweepFaults([&](Fault& fault) {
            ink::InkPainter painter;
            sketch::Picture picture(100, 100);
            const bool set = With(fault, [&] { return painter.SetPen(style, 5); });
            EXPECT_EQ(painter.Reach() == reference.Reach(), set) << "or the pen is what it was";
            const bool done = With(fault, [&] { return paint(painter, picture); }) && set;
            EXPECT_EQ(done, !fault.HasStruck());
            EXPECT_TRUE(done || (painter.SetPen(style, 5) && paint(painter, picture)));
            EXPECT_TRUE(picture.pixels == wanted.pixels);
        });
    }
}

}  // namespace
