// Prints how the time of erasing grows with the length of the drag and of the page. The best of several
// rounds counts, each on a page filled anew; filling is not timed.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>

#include "bench/RatioLines.h"
#include "bench/Scene.h"
#include "ink/PageEdits.h"

namespace {

using bench::Stroke;

int g_rounds = 9;  // fewer for a trial run

// A drag to and fro across the written rows, from the page's first to its last.
std::vector<ink::Point> MakeDrag(size_t samples, const std::vector<Stroke>& strokes) {
    int32_t lowest = 0;
    for (const ink::Point p : strokes.back().points) lowest = std::max(lowest, p.y);
    std::vector<ink::Point> drag;
    for (size_t i = 0; i < samples; ++i) {
        const int32_t x = static_cast<int32_t>(i * 11 % (2 * bench::kViewWidth));
        const auto y = static_cast<int32_t>(i * static_cast<size_t>(lowest) / samples);
        drag.push_back({x < bench::kViewWidth ? x : 2 * bench::kViewWidth - x, y});
    }
    return drag;
}

double Seconds(std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

struct Times {
    double sweep = 1e9;   // the squares while the pen moves
    double commit = 1e9;  // cutting the strokes when it is lifted
    double pass = 1e9;    // looking at every point of the page once
};

double TimePass(const ink::InkPage& page) {
    const auto start = std::chrono::steady_clock::now();
    int64_t inside = 0;
    page.VisitStrokes(0, INT32_MAX, [&inside](const ink::StrokeRecord& record) {
        for (int32_t i = 0; i < record.count; ++i)
            inside += record.Points()[i].x < 240 && record.PageY(i) > 99;
    });
    const double time = Seconds(start);
    if (inside == 0) std::abort();
    return time;
}

Times TimeDrag(const std::vector<Stroke>& strokes, size_t samples) {
    const std::vector<ink::Point> drag = MakeDrag(samples, strokes);
    Times best;
    for (int i = 0; i < g_rounds; ++i) {
        ink::InkPage page;
        bench::FillPage(page, strokes);
        best.pass = std::min(best.pass, TimePass(page));
        ink::SweptRegion region;
        auto start = std::chrono::steady_clock::now();
        for (const ink::Point p : drag) region.AddSquare(p.x, p.y);
        best.sweep = std::min(best.sweep, Seconds(start));
        start = std::chrono::steady_clock::now();
        ink::StrokeChange change;
        if (ink::EraseStrokes(page, region, change) != ink::EditResult::Changed) std::abort();
        best.commit = std::min(best.commit, Seconds(start));
    }
    return best;
}

}  // namespace

// "--trial" runs everything once, to see that it works; its figures mean nothing.
int main(int argc, char** argv) {
    const bool trial = argc > 1 && std::string(argv[1]) == "--trial";
    if (trial) g_rounds = 1;
    const std::vector<Stroke> all = bench::MakeStrokes(trial ? 20000 : 200000);
    const std::vector<Stroke> page(all.begin(), all.begin() + 20000);
    const std::vector<Stroke> shortPage(all.begin(), all.begin() + 2000);

    bench::RatioLines table;
    const Times plain = TimeDrag(page, 2000);
    table.Line("2000 samples, 20000 strokes: commit beside one pass", plain.commit / plain.pass, false, 5,
               bench::Against(plain.commit, plain.pass));
    const Times longDrag = TimeDrag(page, 20000);
    table.Line("ten times the samples: sweep", longDrag.sweep / plain.sweep, false, 12,
               bench::Against(longDrag.sweep, plain.sweep));
    table.Line("ten times the samples: commit", longDrag.commit / plain.commit, false, 11,
               bench::Against(longDrag.commit, plain.commit));
    const Times onShort = TimeDrag(shortPage, 2000);
    table.Line("20000 strokes beside 2000: commit", plain.commit / onShort.commit, false, 12,
               bench::Against(plain.commit, onShort.commit));
    const Times onLong = TimeDrag(all, 2000);
    table.Line("200000 strokes beside 20000: commit", onLong.commit / plain.commit, false, 15,
               bench::Against(onLong.commit, plain.commit));
    return trial || table.AllMet() ? 0 : 1;
}
