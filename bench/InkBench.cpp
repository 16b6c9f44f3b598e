// Times of the ink layer's operations, for finding out what a change costs. How they compare with others is
// told by RatioTable.
#include <benchmark/benchmark.h>

#include "bench/Scene.h"
#include "bench/TempFile.h"
#include "ink/InkPainter.h"
#include "ink/NoteFile.h"

namespace {

void Repaint(benchmark::State& state) {
    ink::InkPage page;
    bench::FillPage(page, bench::MakeStrokes(bench::kStrokesPerView));
    bench::Picture picture;
    ink::PixelSurface surface = picture.Surface();
    ink::InkPainter painter;
    painter.SetPen(ink::PenStyleOf(static_cast<uint32_t>(state.range(0))),
                   static_cast<double>(state.range(1)));
    for (auto _ : state) painter.Repaint(surface, page, 0, surface.Bounds());
}
BENCHMARK(Repaint)->ArgsProduct({{0, 1, 2}, {1, 3, 10}})->ArgNames({"style", "width"});

void LiveSegment(benchmark::State& state) {
    const bench::Stroke stroke = bench::MakeStrokes(1).front();
    bench::Picture picture;
    ink::PixelSurface surface = picture.Surface();
    ink::InkPainter painter;
    painter.SetPen(ink::PenStyleOf(static_cast<uint32_t>(state.range(0))),
                   static_cast<double>(state.range(1)));
    painter.BeginStroke(surface, stroke.color);
    size_t i = 0;
    for (auto _ : state) {
        painter.PaintSegment(surface, &stroke.points[i], 2);
        i = (i + 1) % (stroke.points.size() - 1);
    }
}
BENCHMARK(LiveSegment)->ArgsProduct({{0, 1, 2}, {1, 3}})->ArgNames({"style", "width"});

void PenDown(benchmark::State& state) {
    bench::Picture picture;
    ink::PixelSurface surface = picture.Surface();
    ink::InkPainter painter;
    for (auto _ : state) painter.BeginStroke(surface, 0);
}
BENCHMARK(PenDown);

void VisitEraserBox(benchmark::State& state) {
    ink::InkPage page;
    bench::FillPage(page, bench::MakeStrokes(static_cast<size_t>(state.range(0))));
    const int32_t middle = static_cast<int32_t>(page.SlotCount() / 4) * bench::kViewHeight;
    for (auto _ : state) {
        int64_t points = 0;
        page.VisitStrokes(middle, middle + 13,
                          [&](const ink::StrokeRecord& record) { points += record.count; });
        benchmark::DoNotOptimize(points);
    }
}
BENCHMARK(VisitEraserBox)->Arg(2000)->Arg(20000)->Arg(200000);

void Load(benchmark::State& state) {
    ink::InkPage page;
    bench::FillPage(page, bench::MakeStrokes(static_cast<size_t>(state.range(0))));
    ink::MemorySink bytes;
    ink::WriteNote(bytes, page);
    for (auto _ : state) {
        ink::MemorySource source(bytes.Bytes().data(), bytes.Bytes().size());
        ink::NoteFileHeader header;
        ink::InkPage loaded;
        loaded.bandHeight = static_cast<int32_t>(state.range(1));
        ink::ReadNoteHeader(source, header);
        if (ink::ReadNoteBody(source, header, loaded) != ink::LoadResult::Loaded)
            state.SkipWithError("damaged");
    }
    state.SetBytesProcessed(static_cast<int64_t>(bytes.Bytes().size()) * state.iterations());
}
// The same band height, and one that files every stroke anew.
BENCHMARK(Load)
    ->ArgsProduct({{2000, 20000, 200000}, {bench::kViewHeight, 268}})
    ->ArgNames({"strokes", "height"});

}  // namespace

BENCHMARK_MAIN();
