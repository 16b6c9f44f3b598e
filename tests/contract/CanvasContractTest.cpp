// Drawing into images, and images on the screen at any place.
#include <algorithm>

#include "platform/Canvas.h"
#include "res/resource.h"
#include "tests/contract/Recording.h"

namespace contract {

namespace {

using platform::Canvas;
using platform::Font;
using platform::Image;
using platform::ImageList;
using platform::Rect;
using testing::ElementsAre;

constexpr ink::ColorRef kPaper = ink::MakeColor(250, 240, 230);
constexpr uint32_t kPaperPixel = 0x00FAF0E6u;

Image Paper() {
    Image image = Image::Make(120, 60);
    Canvas(image).Fill({-10, -10, 500, 500}, kPaper);
    return image;
}

// The smallest rectangle around what is not paper.
Rect Drawn(const Image& image) {
    Rect drawn;
    const ink::PixelSurface surface = image.Surface();
    for (int y = 0; y < surface.height; ++y) {
        for (int x = 0; x < surface.width; ++x) {
            if (surface.Row(y)[x] != kPaperPixel) drawn = Unite(drawn, {x, y, x + 1, y + 1});
        }
    }
    return drawn;
}

bool FourthBytesAreZero(const Image& image) {
    const ink::PixelSurface surface = image.Surface();
    return std::none_of(surface.pixels, surface.pixels + surface.width * surface.height,
                        [](uint32_t pixel) { return pixel > 0x00FFFFFFu; });
}

bool Within(const Rect& inner, const Rect& outer) { return Intersect(inner, outer) == inner; }

TEST_F(WindowContract, FilledAreas) {
    const Image image = Paper();
    EXPECT_TRUE(Drawn(image).IsEmpty()) << "what lies outside is cut off";
    Canvas canvas(image);
    canvas.Fill({100, 50, 400, 55}, ink::MakeColor(1, 2, 3));
    canvas.Fill({5, 5, 5, 50}, 0);
    EXPECT_EQ(Drawn(image), (Rect{100, 50, 120, 55}));
    EXPECT_EQ(image.Surface().Row(52)[119], 0x00010203u);
}

TEST_F(WindowContract, TextStaysInItsClipping) {
    const Image image = Paper();
    const Rect clip{20, 10, 60, 40};
    Canvas(image).Text(L"March 2007 wwwwwwwwwwwwwwww", {30, 12}, {100, true}, 0, clip);
    const Rect drawn = Drawn(image);
    EXPECT_FALSE(drawn.IsEmpty());
    EXPECT_TRUE(Within(drawn, {30, 12, 60, 40})) << drawn.left << " " << drawn.top;
    EXPECT_TRUE(FourthBytesAreZero(image));
    Canvas(image).Fill({0, 0, 120, 60}, kPaper);
    Canvas(image).Text(L"x", {30, 12}, {}, 0, {});
    EXPECT_TRUE(Drawn(image).IsEmpty()) << "an empty clipping shows nothing";
}

TEST_F(WindowContract, TextFillsItsSize) {
    const Font font{80, false};
    const Rect size = Canvas::TextSize(L"Aqua", font);
    EXPECT_EQ(size.left, 0);
    EXPECT_EQ(size.top, 0);
    EXPECT_GT(size.right, 15);
    EXPECT_GT(size.bottom, 9);
    EXPECT_LT(size.bottom, 20);
    const Image image = Paper();
    Canvas(image).Text(L"Aqua", {10, 10}, font, 0, {0, 0, 120, 60});
    EXPECT_TRUE(Within(Drawn(image), {9, 10, 11 + size.right, 10 + size.bottom}));
    EXPECT_GT(Canvas::TextSize(L"Aqua Aqua", font).right, size.right);
    EXPECT_EQ(Canvas::TextSize(L"", font).right, 0);
    EXPECT_EQ(Canvas::TextSize(L"", font).bottom, size.bottom);
    EXPECT_GT(Canvas::TextSize(L"Aqua", {160, false}).bottom, size.bottom);
    EXPECT_GT(Canvas::TextSize(L"Aqua & Co", font).right, Canvas::TextSize(L"Aqua  Co", font).right)
        << "no character is a prefix";
}

TEST_F(WindowContract, PicturesAndTheirTransparency) {
    const ImageList images = ImageList::FromResource(IDB_TREE_IMAGES, 16, ink::MakeColor(0, 255, 0));
    ASSERT_TRUE(images.IsValid());
    EXPECT_FALSE(ImageList::FromResource(9999, 16, 0).IsValid());
    const Image strip = Image::FromResource(IDB_TREE_IMAGES);
    for (const int index : {0, 3, 13}) {
        const Image image = Paper();
        Canvas(image).Draw(images, index, {30, 20});
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x) {
                const uint32_t source = strip.Surface().Row(y)[index * 16 + x];
                const uint32_t expected = source == 0x0000FF00u ? kPaperPixel : source;
                ASSERT_EQ(image.Surface().Row(20 + y)[30 + x], expected) << index << ": " << x << " " << y;
            }
        }
        EXPECT_TRUE(Within(Drawn(image), {30, 20, 46, 36})) << index;
    }
    const Image image = Paper();
    Canvas(image).Draw(images, 0, {-8, 55});
    Canvas(image).Draw(ImageList(), 0, {50, 0});
    EXPECT_TRUE(Within(Drawn(image), {0, 55, 8, 60}));
}

TEST_F(WindowContract, ImagesWithinImages) {
    const Image image = Paper();
    Image small = Image::Make(10, 10);
    small.Surface().Row(9)[9] = 0x00123456u;
    Canvas canvas(image);
    canvas.Draw(small, {105, 45});
    canvas.Draw(small, {115, 55});
    canvas.Draw(Image(), {0, 0});
    EXPECT_EQ(Drawn(image), (Rect{105, 45, 120, 60}));
    EXPECT_EQ(image.Surface().Row(54)[114], 0x00123456u);
    EXPECT_EQ(image.Surface().Row(59)[119], 0u) << "copies are not transparent";
}

TEST_F(WindowContract, ImagesAtAnyPlaceOfTheScreen) {
    Recording<platform::Screen> screen(platform::Screen::ScrollBar::None);
    const Image image = Paper();
    Canvas(image).Fill({0, 0, 1, 1}, ink::MakeColor(255, 0, 0));
    Run(screen, [&] {
        screen.ShowAt(image, {40, 30});
        EXPECT_EQ(driver_.PixelAt(screen, {40, 30}), 0x00FF0000u);
        EXPECT_EQ(driver_.PixelAt(screen, {41, 30}), kPaperPixel);
        EXPECT_EQ(driver_.PixelAt(screen, {159, 89}), kPaperPixel);
        screen.ShowAt(image, {39, -1});
        EXPECT_EQ(driver_.PixelAt(screen, {40, 30}), kPaperPixel);
        screen.ShowAt(Image(), {0, 0});
    });
    screen.ShowAt(image, {0, 0});
    EXPECT_THAT(screen.log, ElementsAre("destroy"));
}

TEST_F(WindowContract, SystemColors) {
    for (const auto color : {platform::SystemColor::ButtonFace, platform::SystemColor::ButtonText,
                             platform::SystemColor::WindowFrame}) {
        EXPECT_LE(platform::ColorOf(color), 0x00FFFFFFu);
    }
    EXPECT_NE(platform::ColorOf(platform::SystemColor::ButtonFace),
              platform::ColorOf(platform::SystemColor::ButtonText));
}

}  // namespace

}  // namespace contract
