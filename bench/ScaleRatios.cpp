// Prints what ink costs on finer screens: the time for each screen pixel beside that of page pixels on a
// screen as coarse as they are. The sides take turns within a round and the median of the rounds counts.
// Times are the processor's, so that other work on the machine counts as little as can be.
#include <algorithm>
#include <ctime>
#include <functional>
#include <memory>
#include <string>

#include "bench/RatioLines.h"
#include "bench/Scene.h"
#include "ink/InkPainter.h"

namespace {

constexpr int kDots[] = {96, 144, 192, 288};
constexpr size_t kSides = std::size(kDots);
constexpr int32_t kScroll = 4 * bench::kViewHeight;

int g_rounds = 31;  // fewer for a trial run

// A screen with the view of a page.
struct Side {
    ink::Scale scale;
    std::vector<uint32_t> pixels;
    ink::PixelSurface surface;
    ink::InkPainter painter;

    Side(int dots, ink::PenStyle style, double width) : scale(dots) {
        const ink::Rect bounds = scale.ToSurface({0, 0, bench::kViewWidth, bench::kViewHeight}, kScroll);
        pixels.resize(static_cast<size_t>(bounds.right) * static_cast<size_t>(bounds.bottom), 0xFFFFFF);
        surface = {pixels.data(), bounds.right, bounds.bottom, bounds.right};
        painter.SetPen(style, width, scale);
    }
};
using Sides = std::vector<std::unique_ptr<Side>>;

Sides MakeSides(ink::PenStyle style, double width) {
    Sides sides;
    for (const int dots : kDots) sides.push_back(std::make_unique<Side>(dots, style, width));
    return sides;
}

// Seconds that each side takes for the work once.
std::vector<double> Medians(const Sides& sides, int repeats, const std::function<void(Side&)>& work) {
    std::vector<std::vector<double>> times(sides.size());
    for (int round = 0; round < g_rounds; ++round) {
        for (size_t i = 0; i < sides.size(); ++i) {
            const std::clock_t start = std::clock();
            for (int k = 0; k < repeats; ++k) work(*sides[i]);
            times[i].push_back(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / repeats);
        }
    }
    std::vector<double> medians;
    for (std::vector<double>& each : times) {
        std::nth_element(each.begin(), each.begin() + g_rounds / 2, each.end());
        medians.push_back(each[static_cast<size_t>(g_rounds) / 2]);
    }
    return medians;
}

void PrintLines(bench::RatioLines& table, const std::string& what, const std::vector<double>& seconds,
                const std::vector<double>& pixels) {
    for (size_t i = 1; i < kSides; ++i) {
        const std::string factor = std::to_string(kDots[i] * 10 / 96);
        table.Line(what + ", scale " + factor.substr(0, 1) + "." + factor.substr(1) + ": each pixel",
                   seconds[i] / pixels[i] / (seconds[0] / pixels[0]), false, 1.1,
                   bench::Against(seconds[i], seconds[0]));
    }
}

void PrintPen(bench::RatioLines& table, const ink::InkPage& page, const std::vector<ink::Point>& points,
              ink::PenStyle style, int width) {
    constexpr const char* kNames[] = {"simple", "classic", "smooth"};
    const std::string pen = std::string(kNames[static_cast<size_t>(style)]) + " " + std::to_string(width);
    const Sides sides = MakeSides(style, width);

    // Each segment of a stroke, over and over.
    std::vector<double> painted;
    const auto write = [&](Side& side) {
        for (size_t i = 0; i + 1 < points.size(); ++i) side.painter.PaintSegment(side.surface, &points[i], 2);
    };
    for (const auto& side : sides) {
        side->painter.BeginStroke(side->surface, 0, 0);
        write(*side);
        painted.push_back(static_cast<double>(std::count_if(side->pixels.begin(), side->pixels.end(),
                                                            [](uint32_t p) { return p != 0xFFFFFF; })));
    }
    PrintLines(table, "live, " + pen, Medians(sides, 200, write), painted);

    std::vector<double> shown;
    for (const auto& side : sides) shown.push_back(static_cast<double>(side->pixels.size()));
    const auto repaint = [&](Side& side) {
        side.painter.Repaint(side.surface, page, kScroll, side.surface.Bounds());
    };
    PrintLines(table, "repaint, " + pen, Medians(sides, 4, repaint), shown);
}

}  // namespace

// "--trial" runs everything once, to see that it works; its figures mean nothing.
int main(int argc, char** argv) {
    const bool trial = argc > 1 && std::string(argv[1]) == "--trial";
    if (trial) g_rounds = 1;
    const std::vector<bench::Stroke> strokes = bench::MakeStrokes(20000);
    ink::InkPage page;
    bench::FillPage(page, strokes);
    // A stroke that lies in the view wholly.
    const std::vector<ink::Point>& points = strokes[bench::kStrokesPerView / 2].points;
    bench::RatioLines table;
    for (const int width : {1, 3, 10}) PrintPen(table, page, points, ink::PenStyle::Smooth, width);
    PrintPen(table, page, points, ink::PenStyle::Classic, 1);
    for (const int width : {1, 3}) PrintPen(table, page, points, ink::PenStyle::Simple, width);
    return trial || table.AllMet() ? 0 : 1;
}
