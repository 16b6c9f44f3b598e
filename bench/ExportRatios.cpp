// Times the picture that is made of a note for e-mail, beside painting the same ink alone.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>

#include "bench/RatioLines.h"
#include "bench/Scene.h"
#include "editor/NotePicture.h"
#include "ink/InkPainter.h"
#include "platform/host/HostDevice.h"

namespace {

constexpr double kWanted = 6.0;

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void FillWrittenPage(ink::InkPage& page, size_t strokes) {
    bench::FillPage(page, bench::MakeStrokes(strokes));
    page.canvasWidth = bench::kViewWidth;
    page.canvasHeight = bench::kViewHeight;
    page.penStyle = ink::PenStyle::Smooth;
    page.penSize = 20;
}

void PaintViews(const ink::InkPage& page, bench::Picture& picture, int32_t height) {
    ink::InkPainter painter;
    painter.SetPen(page.penStyle, page.PenWidth());
    for (int32_t top = 0; top < height; top += bench::kViewHeight) {
        ink::PixelSurface surface = picture.Surface();
        painter.Repaint(surface, page, top, surface.Bounds());
    }
}

}  // namespace

int main(int argc, char** argv) {
    const bool isTrial = argc > 1 && std::string(argv[1]) == "--trial";
    const int rounds = isTrial ? 1 : 9;
    const size_t strokes = isTrial ? 500 : 20000;
    const platform::host::HostDevice device;
    ink::InkPage page;
    FillWrittenPage(page, strokes);
    bench::Picture picture;
    double ours = 1e9;
    double theirs = 1e9;
    for (int i = 0; i < rounds; ++i) {
        ink::PaletteBitmap exported;
        ours = std::min(
            ours, Seconds([&] { editor::MakeNotePicture(page, editor::PictureWidth::OfView, exported); }));
        if (exported.Height() < 500) return EXIT_FAILURE;
        theirs = std::min(theirs, Seconds([&] { PaintViews(page, picture, exported.Height()); }));
    }
    bench::RatioLines lines;
    lines.Line("picture of a whole note, beside painting its ink view by view", ours / theirs, false, kWanted,
               bench::Against(ours, theirs));
    return isTrial || lines.AllMet() ? EXIT_SUCCESS : EXIT_FAILURE;
}
