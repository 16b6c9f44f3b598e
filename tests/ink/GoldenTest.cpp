// Pictures of scripted pens, compared pixel by pixel with those in goldens/.
//
// After a change that is meant to look different, run ink_tests with INKWRIGHT_NEW_GOLDENS=1 in the
// environment: it writes the pictures anew. Look at them before keeping them.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "ink/InkPainter.h"
#include "tests/ink/Sketch.h"

namespace {

using ink::PenStyle;
using sketch::Points;

constexpr int32_t kWidth = 96;
constexpr int32_t kHeight = 120;

// A looping word, a zigzag, a long line and a dot.
std::vector<Points> Script() {
    Points loops;
    for (int i = 0; i <= 44; ++i) {
        const double turn = i / 44.0 * 6.2831853 * 3;
        loops.push_back({static_cast<int32_t>(std::lround(14 + i * 1.4 + 9 * std::sin(turn))),
                         static_cast<int32_t>(std::lround(60 - 15 * std::cos(turn)))});
    }
    return {loops,
            {{10, 90}, {18, 82}, {22, 95}, {31, 83}, {35, 96}, {36, 85}},
            {{44, 98}, {90, 84}},
            {{88, 100}}};
}

std::string Ppm(const sketch::Picture& picture) {
    std::ostringstream out;
    out << "P6\n" << kWidth << " " << kHeight << "\n255\n";
    for (const uint32_t pixel : picture.pixels) {
        out << static_cast<char>(pixel >> 16 & 255) << static_cast<char>(pixel >> 8 & 255)
            << static_cast<char>(pixel & 255);
    }
    return out.str();
}

struct Scene {
    const char* name;
    PenStyle style;
    double width;
    ink::ColorRef background;
    ink::ColorRef ink;
};

TEST(Golden, EveryPenLooksAsBefore) {
    for (const Scene& scene : {Scene{"smooth-1-white", PenStyle::Smooth, 1.0, 0xFFFFFF, 0x602000},
                               {"smooth-3-black", PenStyle::Smooth, 3.0, 0x000000, 0x40FF40},
                               {"smooth-10-blue", PenStyle::Smooth, 10.0, 0x803010, 0xE0FFFF},
                               {"classic-yellow", PenStyle::Classic, 1.0, 0xC0FFFF, 0xFF4040},
                               {"simple-1-white", PenStyle::Simple, 1.0, 0xFFFFFF, 0x000000},
                               {"simple-4-grey", PenStyle::Simple, 4.0, 0x808080, 0x4040FF}}) {
        ink::InkPage page;
        page.bandHeight = kHeight;
        page.background = scene.background;
        for (const Points& points : Script()) sketch::Add(page, points, scene.ink);
        ink::InkPainter painter;
        painter.SetPen(scene.style, scene.width);
        sketch::Picture picture(kWidth, kHeight);
        painter.Repaint(picture.surface, page, 0, picture.surface.Bounds());

        const std::string path = std::string(GOLDENS) + "/" + scene.name + ".ppm";
        const std::string now = Ppm(picture);
        if (std::getenv("INKWRIGHT_NEW_GOLDENS") != nullptr) std::ofstream(path, std::ios::binary) << now;
        std::ifstream file(path, std::ios::binary);
        ASSERT_TRUE(file) << path;
        const std::string before{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        EXPECT_TRUE(now == before) << path;
    }
}

}  // namespace
