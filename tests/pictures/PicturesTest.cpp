// Pictures beside what other libraries and the plain painter make of the same.
#include <gtest/gtest.h>
#include <png.h>

#include "ink/InkPainter.h"
#include "pictures/PageBreaks.h"
#include "pictures/Pictures.h"
#include "pictures/PngWriter.h"
#include "tests/ink/PlainPainter.h"

namespace {

using namespace pictures;
using sketch::Dice;
using sketch::Picture;

std::vector<uint32_t> Decode(const std::vector<uint8_t>& file, int32_t width, int32_t height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_TRUE(png_image_begin_read_from_memory(&image, file.data(), file.size())) << image.message;
    EXPECT_EQ(image.width, static_cast<uint32_t>(width));
    EXPECT_EQ(image.height, static_cast<uint32_t>(height));
    image.format = PNG_FORMAT_BGRA;
    std::vector<uint32_t> pixels(static_cast<size_t>(image.width) * image.height);
    EXPECT_TRUE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr)) << image.message;
    for (uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
    return pixels;
}

// Counts that double from byte to byte ask for longer codes than there are; some rows begin nothing new.
TEST(PngWriter, AnyPixelsComeBack) {
    for (uint32_t seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        Picture picture(dice(0, 2) == 0 ? dice(1, 12) : dice(100, 9000), dice(1, 60), 0, 0);
        const int kind = dice(0, 3);
        for (size_t i = 0; i < picture.pixels.size();) {
            int32_t length = kind == 0 ? 1 : dice(0, 9) == 0 ? dice(80, 1000) : dice(1, 9);
            int level = 0;
            while (kind > 1 && level < 30 && dice(0, 1) == 0) ++level;
            const uint32_t byte = static_cast<uint32_t>(level) * 8;
            const uint32_t pixel = kind > 1 ? byte << 16 | byte : static_cast<uint32_t>(dice(0, 0xFFFFFF));
            for (; length > 0 && i < picture.pixels.size(); --length) picture.pixels[i++] = pixel;
        }
        ink::MemorySink sink;
        PngWriter writer(sink, picture.surface.width, picture.surface.height, 96);
        EXPECT_TRUE(writer.AddRows(picture.surface) && writer.Finish());
        EXPECT_TRUE(Decode(sink.Bytes(), picture.surface.width, picture.surface.height) == picture.pixels);
    }
}

uint32_t MeanOf(const Picture& picture, int32_t x, int32_t y, int32_t side) {
    uint32_t mean = 0;
    for (const int shift : {0, 8, 16}) {
        uint32_t sum = 0;
        uint32_t count = 0;
        for (int32_t i = y; i < std::min(y + side, picture.surface.height); ++i)
            for (int32_t k = x; k < std::min(x + side, picture.surface.width); ++k, ++count)
                sum += picture.surface.Row(i)[k] >> shift & 255;
        mean |= (sum + count / 2) / count << shift;
    }
    return mean;
}

TEST(Pictures, PixelsAreThePlainPainters) {
    constexpr struct {
        double scale;
        int dots;
        int32_t side;  // of the squares whose mean is a pixel
    } kCases[] = {{1, 96, 1}, {1.5, 144, 1}, {2, 192, 1}, {0.5, 96, 2}, {0.4, 115, 3}, {0.25, 96, 4}};
    Dice dice(7);
    ink::InkPage page;
    page.background = 0xD0F0FF;
    page.bandHeight = 300;
    page.findsTallStrokes = true;
    // More than is painted at a time.
    const PictureSize size{1601, 120};
    for (int i = 0; i < 2; ++i)
        sketch::Add(page, dice.Line(3, 900, {-20, 0, 1650, 140}),
                    static_cast<ink::ColorRef>(dice(0, 0xFFFFFF)));
    for (const auto& row : kCases) {
        for (const ink::PenStyle style :
             {ink::PenStyle::Smooth, ink::PenStyle::Classic, ink::PenStyle::Simple}) {
            SCOPED_TRACE(row.scale);
            const sketch::Pen pen{style, 2.5, row.dots};
            if (row.side > 1 && style != ink::PenStyle::Smooth) continue;
            PictureOptions options;
            options.scale = row.scale;
            options.style = style;
            options.size = pen.width;
            ink::MemorySink sink;
            ASSERT_EQ(WritePng(page, size, options, sink), PictureResult::Made);
            Picture plain(pen.OnScreen(size.width), pen.OnScreen(size.height));
            PlainPaper(plain, pen, page.background, 0, plain.surface.Bounds(), false);
            for (const sketch::Stroke& stroke : sketch::StrokesOf(page, true))
                PlainInk(plain, pen, stroke.points, stroke.color, 0, plain.surface.Bounds());
            std::vector<uint32_t> wanted;
            for (int32_t y = 0; y < plain.surface.height; y += row.side)
                for (int32_t x = 0; x < plain.surface.width; x += row.side)
                    wanted.push_back(MeanOf(plain, x, y, row.side));
            const auto shown = [&](int32_t painted) { return (painted + row.side - 1) / row.side; };
            EXPECT_TRUE(Decode(sink.Bytes(), shown(plain.surface.width), shown(plain.surface.height)) ==
                        wanted);
        }
    }
}

TEST(PageBreaks, LinesStayWholeWhereTheyCan) {
    const struct {
        std::vector<RowSpan> strokes;
        int64_t height;
        std::vector<int64_t> wanted;  // first and end of each sheet
    } kCases[] = {
        {{}, 100, {0, 100}},
        {{{0, 30}}, 101, {0, 100}},                          // nothing but a margin would follow
        {{{0, 30}, {90, 110}}, 120, {0, 90, 90, 120}},       // a line across the end
        {{{90, 100}, {100, 130}}, 140, {0, 100, 100, 140}},  // lines that touch the end are not across it
        {{{60, 95}, {90, 110}}, 120, {0, 60, 60, 120}},      // and one that hangs into it
        {{{90, 110}, {60, 95}}, 120, {0, 60, 60, 120}},      // whatever comes first
        {{{24, 120}}, 120, {0, 100, 100, 120}},              // a sheet of air is too much
        {{{25, 120}}, 120, {0, 25, 25, 120}},
        {{{0, 350}}, 350, {0, 100, 100, 200, 200, 300, 300, 350}},
        {{{0, 10}, {700, 720}}, 720, {0, 100, 700, 720}},  // no empty sheets between
        {{{-9, 4}, {150, 190}, {195, 260}}, 270, {0, 100, 100, 195, 195, 270}},
    };
    for (const auto& row : kCases) {
        std::vector<int64_t> sheets;
        for (const RowSpan& sheet : BreakPages(row.strokes, row.height, 100))
            sheets.insert(sheets.end(), {sheet.first, sheet.end});
        EXPECT_EQ(sheets, row.wanted) << &row - kCases;
    }
}

}  // namespace
