#include "bench/Scene.h"

#include <algorithm>
#include <cmath>

namespace bench {
namespace {

class Random {
  public:
    uint32_t Next() { return state_ = state_ * 1664525u + 1013904223u; }
    double Unit() { return static_cast<double>(Next() >> 8) / (1 << 24); }

  private:
    uint32_t state_ = 20070305;
};

Stroke MakeStroke(Random& random, int32_t firstRow) {
    constexpr ink::ColorRef kColors[] = {0x808080, 0x4040FF, 0x206020, 0xFF4040, 0x000000};
    Stroke stroke{{}, kColors[random.Next() % 5]};
    double x = 20 + random.Unit() * (kViewWidth - 40);
    double y = firstRow + 20 + random.Unit() * 20;
    double heading = random.Unit() * 6.283;
    double turn = 0;
    while (stroke.points.size() < static_cast<size_t>(kPointsPerStroke)) {
        const ink::Point point{static_cast<int32_t>(std::lround(x)), static_cast<int32_t>(std::lround(y))};
        if (stroke.points.empty() || stroke.points.back() != point) stroke.points.push_back(point);
        const double step = 1.5 + random.Unit() * 4.5;
        turn = turn * 0.9 + (random.Unit() - 0.5) * 0.35;
        heading += turn;
        x = std::clamp(x + step * std::cos(heading), 2.0, kViewWidth - 3.0);
        y = std::clamp(y + step * std::sin(heading), firstRow + 2.0, firstRow + 90.0);
        if (x < 3 || x > kViewWidth - 4 || y < firstRow + 3 || y > firstRow + 89) heading += 1.1;
    }
    return stroke;
}

}  // namespace

std::vector<Stroke> MakeStrokes(size_t count) {
    Random random;
    std::vector<Stroke> strokes;
    strokes.reserve(count);
    constexpr int32_t kLines = 10;  // writing lines to a view
    for (size_t i = 0; i < count; ++i) {
        const size_t line = i * kLines / kStrokesPerView;
        strokes.push_back(MakeStroke(random, static_cast<int32_t>(line) * (kViewHeight / kLines) - 20));
    }
    return strokes;
}

void FillPage(ink::InkPage& page, const std::vector<Stroke>& strokes) {
    page.bandHeight = kViewHeight;
    page.canvasWidth = kViewWidth;
    page.canvasHeight = kViewHeight;
    for (const Stroke& stroke : strokes) {
        const auto [low, high] =
            std::minmax_element(stroke.points.begin(), stroke.points.end(),
                                [](const ink::Point& a, const ink::Point& b) { return a.y < b.y; });
        ink::StrokeChange change;
        page.AddStroke(stroke.points.data(), static_cast<int32_t>(stroke.points.size()), low->y, high->y,
                       stroke.color, change);
    }
}

}  // namespace bench
