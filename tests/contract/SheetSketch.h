// Something drawn on a sheet, and how it must look on each port's paper.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "ink/InkPage.h"
#include "ink/LineCanvas.h"

namespace contract {

// Of the paper, in points; it is drawn at twice as many dots.
constexpr int kSketchWidth = 200;
constexpr int kSketchHeight = 100;
constexpr int kSketchDots = 144;

// A bar, a line across, a dot, and a line down that is cut off.
inline void SketchOn(ink::LineCanvas& canvas) {
    ink::InkPage page;
    page.bandHeight = 1000;
    const std::vector<ink::Point> strokes[] = {
        {{5, 10}, {25, 10}, {45, 10}}, {{60, 20}}, {{70, 20}, {70, 80}}};
    canvas.FillPaper(0xF0E0D0);
    canvas.Show({2, 20, 10, 10, 80});
    canvas.Fill({0, 0, 50, 2}, 0x0000FF);
    for (const auto& points : strokes) {
        ink::StrokeChange change;
        page.AddStroke(points.data(), static_cast<int32_t>(points.size()), points.front().y, points.back().y,
                       0x408000, change);
    }
    page.VisitStrokes(0, 100,
                      [&](const ink::StrokeRecord& record) { canvas.Draw(record, 4, record.Color()); });
}

// `pixelAt` gives 0x00RRGGBB at a dot of the paper.
inline void ExpectSketch(const std::function<uint32_t(int x, int y)>& pixelAt) {
    constexpr uint32_t kPaper = 0xD0E0F0;
    constexpr uint32_t kBar = 0xFF0000;
    constexpr uint32_t kInk = 0x008040;
    const struct {
        int x, y;
        uint32_t color;
    } kPixels[] = {{14, 8, kPaper},   {390, 190, kPaper},                    // the whole paper
                   {42, 24, kBar},    {236, 24, kBar},    {38, 24, kPaper},  // the bar ends at pixels' edges
                   {50, 30, kPaper},  {140, 56, kInk},    {140, 68, kInk},   // eight dots either way
                   {140, 51, kPaper}, {140, 73, kPaper},  {56, 62, kInk},    // round ends
                   {55, 55, kPaper},  {228, 62, kInk},    {282, 102, kInk},  // a dot is round, too
                   {288, 102, kInk},  {290, 110, kPaper}, {274, 94, kPaper},
                   {322, 150, kInk},  {322, 163, kPaper}};  // cut off
    for (const auto& pixel : kPixels)
        EXPECT_EQ(pixelAt(pixel.x, pixel.y), pixel.color) << pixel.x << " " << pixel.y;
}

}  // namespace contract
