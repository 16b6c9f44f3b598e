// Prints how the ink layer compares with cairo and with moving the bare bytes, beside the wanted ratios.
// Every pair is timed in alternation in the same run; the best of several rounds counts, since everything
// that disturbs a measurement only makes it longer.
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

#include "bench/CairoScene.h"
#include "bench/RatioLines.h"
#include "bench/Scene.h"
#include "bench/TempFile.h"
#include "ink/InkPainter.h"
#include "ink/NoteFile.h"

namespace {

using bench::Against;
using bench::File;
using bench::Picture;
using bench::RatioLines;
using bench::Stroke;

int g_rounds = 15;  // fewer for a trial run

double Seconds(const std::function<void()>& work, int repeats) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < repeats; ++i) work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / repeats;
}

struct Times {
    double ours = 1e9;
    double theirs = 1e9;
};

// `oursRepeats` and `theirsRepeats` make up for work too short to time once.
Times Compare(const std::function<void()>& ours, int oursRepeats, const std::function<void()>& theirs,
              int theirsRepeats) {
    Times best;
    for (int i = 0; i < g_rounds; ++i) {
        best.ours = std::min(best.ours, Seconds(ours, oursRepeats));
        best.theirs = std::min(best.theirs, Seconds(theirs, theirsRepeats));
    }
    return best;
}

// Opening a note takes memory fresh from the system, so before each time what the rounds before gave back is
// returned there. Left in the allocator it would serve one side more than the other.
Times CompareFresh(const std::function<void()>& ours, const std::function<void()>& theirs) {
    Times best;
    for (int i = 0; i < g_rounds; ++i) {
        malloc_trim(0);
        best.ours = std::min(best.ours, Seconds(ours, 1));
        malloc_trim(0);
        best.theirs = std::min(best.theirs, Seconds(theirs, 1));
    }
    return best;
}

const char* StyleName(ink::PenStyle style) {
    if (style == ink::PenStyle::Simple) return "simple";
    return style == ink::PenStyle::Classic ? "classic" : "smooth";
}

// Mean difference per channel over the pixels that either picture inked.
double Difference(const Picture& a, const Picture& b) {
    double sum = 0;
    double inked = 0;
    for (size_t i = 0; i < a.pixels.size(); ++i) {
        const uint32_t p = a.pixels[i] & 0xFFFFFF;
        const uint32_t q = b.pixels[i] & 0xFFFFFF;
        if (p == 0xFFFFFF && q == 0xFFFFFF) continue;
        ++inked;
        for (int shift = 0; shift < 24; shift += 8) {
            sum += std::abs(static_cast<int>(p >> shift & 255) - static_cast<int>(q >> shift & 255)) / 3.0;
        }
    }
    return sum / inked;
}

void RepaintRatios(RatioLines& table, const std::vector<Stroke>& strokes) {
    ink::InkPage page;
    bench::FillPage(page, strokes);
    Picture picture;
    ink::PixelSurface surface = picture.Surface();
    for (const int width : {1, 3}) {
        double smooth = 0;
        for (const ink::PenStyle style :
             {ink::PenStyle::Smooth, ink::PenStyle::Classic, ink::PenStyle::Simple}) {
            ink::InkPainter painter;
            painter.SetPen(style, width);
            Picture other;
            bench::CairoCanvas cairo(other, width, CAIRO_ANTIALIAS_DEFAULT);
            const Times times = Compare([&] { painter.Repaint(surface, page, 0, surface.Bounds()); }, 10,
                                        [&] { cairo.DrawAll(strokes); }, 1);
            const std::string label =
                std::string(StyleName(style)) + " repaint, width " + std::to_string(width);
            if (style == ink::PenStyle::Smooth) {
                smooth = times.ours;
                table.Line(label + ": times faster than cairo", times.theirs / times.ours, true, 40,
                           Against(times.ours, times.theirs));
            } else {
                table.Line(label + ": time beside smooth", times.ours / smooth, false, 1.0,
                           Against(times.ours, smooth));
            }
        }
    }
}

void PictureRatios(RatioLines& table, const std::vector<Stroke>& strokes) {
    for (const int width : {1, 3}) {
        Picture ours;
        ink::PixelSurface surface = ours.Surface();
        ink::InkPainter painter;
        painter.SetPen(ink::PenStyle::Smooth, width);
        // Stroke by stroke in the order cairo gets them, without the page's head.
        for (const Stroke& stroke : strokes) {
            painter.BeginStroke(surface, stroke.color);
            painter.PaintSegment(surface, stroke.points.data(), stroke.points.size());
            painter.EndStroke();
        }
        Picture theirs;
        bench::CairoCanvas(theirs, width, CAIRO_ANTIALIAS_BEST).DrawAll(strokes);
        table.Line("smooth, width " + std::to_string(width) + ": mean difference from cairo's best",
                   Difference(ours, theirs), false, width == 1 ? 10 : 4, "of 255, over inked pixels");
    }
}

void LiveRatios(RatioLines& table, const std::vector<Stroke>& strokes) {
    const ink::Point* points = strokes.front().points.data();
    for (const int width : {1, 3}) {
        Picture picture;
        ink::PixelSurface surface = picture.Surface();
        ink::InkPainter painter;
        painter.SetPen(ink::PenStyle::Smooth, width);
        Picture other;
        bench::CairoCanvas cairo(other, width, CAIRO_ANTIALIAS_DEFAULT);
        painter.BeginStroke(surface, 0x808080);
        int ours = 0;
        int theirs = 0;
        const int segments = bench::kPointsPerStroke - 1;
        const Times times =
            Compare([&] { painter.PaintSegment(surface, points + ours++ % segments, 2); }, segments * 50,
                    [&] { cairo.Draw(points + theirs++ % segments, 2, 0x808080); }, segments * 5);
        painter.EndStroke();
        table.Line("one live segment, width " + std::to_string(width) + ": times faster than cairo",
                   times.theirs / times.ours, true, 20, Against(times.ours, times.theirs));
    }
}

void LengthRatio(RatioLines& table, const std::vector<Stroke>& shortNote,
                 const std::vector<Stroke>& longNote) {
    ink::InkPage few;
    ink::InkPage many;
    bench::FillPage(few, shortNote);
    bench::FillPage(many, longNote);
    Picture picture;
    ink::PixelSurface surface = picture.Surface();
    ink::InkPainter painter;
    const int32_t scroll = bench::kViewHeight * 4;
    const Times times = Compare([&] { painter.Repaint(surface, many, scroll, surface.Bounds()); }, 10,
                                [&] { painter.Repaint(surface, few, scroll, surface.Bounds()); }, 10);
    table.Line("repaint of one view, 100 times the strokes: time", times.ours / times.theirs, false, 1.1,
               Against(times.ours, times.theirs));
}

void ReadIntoFreshBuffer(const std::string& path, size_t size) {
    const std::unique_ptr<char[]> buffer(new char[size]);
    size_t got = 0;
    File::OpenForReading(path).Read(buffer.get(), size, got);
    if (got != size) std::abort();
}

void Load(const std::string& path) {
    File file = File::OpenForReading(path);
    ink::NoteFileHeader header;
    ink::InkPage page;
    page.bandHeight = bench::kViewHeight;
    if (!ink::ReadNoteHeader(file, header) ||
        ink::ReadNoteBody(file, header, page) != ink::LoadResult::Loaded) {
        std::abort();
    }
}

size_t HeapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

double MemoryPerByte(const std::string& path, size_t size) {
    File file = File::OpenForReading(path);
    ink::NoteFileHeader header;
    const size_t before = HeapInUse();
    ink::InkPage page;
    page.bandHeight = bench::kViewHeight;
    ink::ReadNoteHeader(file, header);
    ink::ReadNoteBody(file, header, page);
    return static_cast<double>(HeapInUse() - before) / static_cast<double>(size);
}

void FileRatios(RatioLines& table, const std::vector<Stroke>& all) {
    double previous = 0;
    for (const size_t count : {size_t{2000}, size_t{20000}, size_t{200000}}) {
        ink::InkPage page;
        bench::FillPage(
            page, {all.begin(), all.begin() + static_cast<std::ptrdiff_t>(std::min(count, all.size()))});
        const std::string label = std::to_string(count) + " strokes: ";
        const bench::TempPath note("note.ikw");
        const bench::TempPath copy("copy.ikw");
        ink::MemorySink bytes;
        ink::WriteNote(bytes, page);
        const size_t size = bytes.Bytes().size();
        File::Create(note.Path()).Write(bytes.Bytes().data(), size);

        const Times load =
            CompareFresh([&] { Load(note.Path()); }, [&] { ReadIntoFreshBuffer(note.Path(), size); });
        table.Line(label + "load beside reading the bytes", load.ours / load.theirs, false, 1.2,
                   Against(load.ours, load.theirs));
        if (previous > 0) {
            table.Line(label + "load time of ten times the strokes", load.ours / previous, false, 10.5, "");
        }
        previous = load.ours;
        table.Line(label + "memory beside the file's bytes", MemoryPerByte(note.Path(), size), false, 1.15,
                   "");

        const auto save = [&] {
            File file = File::Create(copy.Path());
            if (!ink::WriteNote(file, page)) std::abort();
        };
        const auto write = [&] {
            if (!File::Create(copy.Path()).Write(bytes.Bytes().data(), size)) std::abort();
        };
        const Times saved = CompareFresh(save, write);
        table.Line(label + "save beside writing the bytes", saved.ours / saved.theirs, false, 1.2,
                   Against(saved.ours, saved.theirs));
    }
}

}  // namespace

// "--trial" runs everything once on small notes, to see that it works; its figures mean nothing.
int main(int argc, char** argv) {
    const bool trial = argc > 1 && std::string(argv[1]) == "--trial";
    if (trial) g_rounds = 1;
    const std::vector<Stroke> view = bench::MakeStrokes(bench::kStrokesPerView);
    const std::vector<Stroke> all = bench::MakeStrokes(trial ? 20000 : 200000);
    RatioLines table;
    RepaintRatios(table, view);
    PictureRatios(table, view);
    LiveRatios(table, view);
    LengthRatio(table, {all.begin(), all.begin() + 2000}, all);
    FileRatios(table, all);
    return trial || table.AllMet() ? 0 : 1;
}
