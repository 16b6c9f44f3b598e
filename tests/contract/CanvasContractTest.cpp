#include "platform/Artwork.h"
#include "platform/Canvas.h"
#include "tests/contract/Recording.h"

using namespace contract;
using namespace platform;

namespace {

constexpr uint32_t kPaperPixel = 0x00FAF0E6u;

class CanvasContract : public Contract {
  protected:
    CanvasContract() { Clear(); }
    void Clear() { canvas_.Fill({-10, -10, 500, 500}, ink::MakeColor(250, 240, 230)); }
    uint32_t At(int x, int y) { return image_.Surface().Row(y)[x]; }
    Rect Drawn() {
        Rect drawn;
        for (int i = 0; i < 60 * 120; ++i) {
            const int x = i % 120;
            const int y = i / 120;
            EXPECT_LE(At(x, y), 0x00FFFFFFu);
            if (At(x, y) != kPaperPixel) drawn = Unite(drawn, {x, y, x + 1, y + 1});
        }
        return drawn;
    }
    bool DrawsWithin(const Rect& outer) { return !Drawn().IsEmpty() && Intersect(Drawn(), outer) == Drawn(); }

    Image image_ = Image::Make(120, 60);
    Canvas canvas_{image_};
};

TEST_F(CanvasContract, Text) {
    canvas_.Text(L"March 2007 wwwwwwwwwwwwwwww", {30, 12}, {100, true}, 0, {20, 10, 60, 40});
    EXPECT_TRUE(DrawsWithin({30, 12, 60, 40}));
    Clear();
    const Rect size = Canvas::TextSize(L"A & a", {80, false});
    EXPECT_TRUE(size.left == 0 && size.top == 0 && size.right > 15 && size.bottom > 9 && size.bottom < 20);
    canvas_.Text(L"A & a", {10, 10}, {80, false}, 0, {0, 0, 120, 60});
    EXPECT_TRUE(DrawsWithin({9, 10, 11 + size.right, 10 + size.bottom}));
    EXPECT_GT(size.right, Canvas::TextSize(L"A  a", {80, false}).right) << "no character is a prefix";
    EXPECT_GT(Canvas::TextSize(L"A & a", {160, false}).bottom, size.bottom);
}

TEST_F(CanvasContract, Pictures) {
    const Image small = Image::Make(10, 10);
    small.Surface().Row(0)[0] = 0x00123456u;
    canvas_.Draw(small, {115, 55});
    EXPECT_EQ(Drawn(), (Rect{115, 55, 120, 60})) << "what lies outside is cut off";
    EXPECT_EQ(At(115, 55), 0x00123456u);
    EXPECT_EQ(At(119, 59), 0u) << "images begin black, copies are not transparent";
}

// Page pixels go in, screen pixels come out: the same picture, finer. Small pictures are drawn in the largest
// size that there is room for.
TEST_F(CanvasContract, APictureOfAnotherScale) {
    for (const int dots : {120, 144, 192, 288}) {
        const ink::Scale scale(dots);
        image_ = Image::Make(120, 60, scale);
        ASSERT_TRUE(image_.Width() == 120 && image_.Height() == 60 && image_.PageScale() == scale);
        EXPECT_EQ(image_.Surface().Bounds(), scale.ToSurface({0, 0, 120, 60}));
        const auto color = [&](int x, int y) { return At(x * dots / 96, y * dots / 96); };
        canvas_.Fill({0, 0, 120, 60}, 0xFFFFFF);
        canvas_.Fill({8, 16, 24, 32}, 0x332211);
        EXPECT_TRUE(color(8, 16) == 0x112233 && At(24 * dots / 96 - 1, 32 * dots / 96 - 1) == 0x112233);
        EXPECT_TRUE(color(24, 31) == 0xFFFFFF && At(8 * dots / 96 - 1, 16 * dots / 96) == 0xFFFFFF);
        const Rect size = Canvas::TextSize(L"A & a", {80, false}, scale);
        const Rect small = Canvas::TextSize(L"A & a", {80, false});
        EXPECT_NEAR(size.right, small.right, small.right / 4);
        EXPECT_NEAR(size.bottom, small.bottom, 2);
        const ImageList images =
            ImageList::FromResource(IDB_TREE_IMAGES, 16, ink::MakeColor(0, 255, 0), scale);
        const Image strip = Image::FromResource(IDB_TREE_IMAGES, scale);
        const Image mark = Image::FromResource(IDB_NOTE_MARK, scale);
        ASSERT_TRUE(images.IsValid() && strip.IsValid() && mark.IsValid());
        EXPECT_EQ(strip.PageScale().Dots(), dots == 120 ? 96 : dots);
        EXPECT_TRUE(strip.Height() == 16 && mark.Width() == Image::FromResource(IDB_NOTE_MARK).Width());
        const int side = strip.Surface().height;
        const Rect room = scale.ToSurface({40, 24, 56, 40});
        const int inset = (room.Width() - side) / 2;
        canvas_.Draw(images, 13, {40, 24});
        for (int i = 0; i < side * side; ++i) {
            const uint32_t source = strip.Surface().Row(i / side)[13 * side + i % side];
            const uint32_t drawn = At(room.left + inset + i % side, room.top + inset + i / side);
            ASSERT_EQ(drawn, source == 0x0000FF00u ? 0xFFFFFFu : source) << dots << " " << i;
        }
        canvas_.Draw(mark, {0, 0});
        const Rect there = mark.Surface().Bounds();
        const Point corner =
            InTheMiddleOf(scale.ToSurface({0, 0, mark.Width(), mark.Height()}), there.right, there.bottom);
        EXPECT_EQ(At(corner.x + 7, corner.y + 6), mark.Surface().Row(6)[7]) << dots;
    }
}

TEST_F(CanvasContract, ImagesAndTheirTransparency) {
    const ImageList images = ImageList::FromResource(IDB_TREE_IMAGES, 16, ink::MakeColor(0, 255, 0));
    const Image strip = Image::FromResource(IDB_TREE_IMAGES);
    ASSERT_TRUE(images.IsValid() && strip.IsValid());
    EXPECT_FALSE(ImageList::FromResource(9999, 16, 0).IsValid() || Image::FromResource(9999).IsValid());
    canvas_.Draw(images, 13, {30, 20});
    EXPECT_TRUE(DrawsWithin({30, 20, 46, 36}));
    for (int i = 0; i < 256; ++i) {
        const uint32_t source = strip.Surface().Row(i / 16)[13 * 16 + i % 16];
        EXPECT_EQ(At(30 + i % 16, 20 + i / 16), source == 0x0000FF00u ? kPaperPixel : source) << i;
    }
    Clear();
    canvas_.Draw(images, 0, {-8, 55});
    EXPECT_TRUE(DrawsWithin({0, 55, 8, 60}));
}

}  // namespace
