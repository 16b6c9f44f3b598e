// Reads any bytes as a note, looks at them the way the preview does, paints a view of what was read, saves
// it, erases in it and moves its ink.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "ink/InkPainter.h"
#include "ink/NoteFile.h"
#include "ink/NoteScanner.h"
#include "ink/PageEdits.h"

namespace {

constexpr int32_t kSide = 64;
constexpr size_t kFixedMemory = 16 * 1024 * 1024;

// A broken promise ends the program, so that the fuzzer notices.
void Require(bool kept, const char* promise) {
    if (kept) return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

// Made once: preparing a pen takes longer than reading a small note.
ink::InkPainter MakePainter(ink::PenStyle style) {
    ink::InkPainter painter;
    Require(painter.SetPen(style, 3.0), "a pen");
    return painter;
}

void PaintViews(const ink::InkPage& page) {
    static ink::InkPainter painters[] = {MakePainter(ink::PenStyle::Simple),
                                         MakePainter(ink::PenStyle::Classic),
                                         MakePainter(ink::PenStyle::Smooth)};
    std::vector<uint32_t> pixels(kSide * kSide);
    ink::PixelSurface surface{pixels.data(), kSide, kSide, kSide};
    for (ink::InkPainter& painter : painters) {
        painter.Repaint(surface, page, 0, surface.Bounds());
        painter.Repaint(surface, page, 500, {3, 5, 40, 33});
    }
}

struct Ink {
    size_t strokes = 0;
    int64_t points = 0;
};

Ink Count(const ink::InkPage& page) {
    Ink ink;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        const ink::StrokeBand* band = page.Band(slot);
        for (size_t i = 0; band != nullptr && i < band->Count(); ++i) {
            ++ink.strokes;
            ink.points += band->At(i).count;
        }
    }
    return ink;
}

void Edit(ink::InkPage& page) {
    const Ink before = Count(page);
    for (const int64_t rows : {40, -500, 3000}) {
        ink::MoveStrokes(page, 20, rows, 2);
        const Ink after = Count(page);
        Require(after.strokes == before.strokes && after.points == before.points, "moving loses nothing");
    }
    ink::SweptRegion region;
    for (int64_t i = 0; i < 40; ++i) Require(region.AddSquare(i * 5 - 20, i * 9 - 10), "a square");
    ink::EraseStrokes(page, region);
    Require(Count(page).points <= before.points, "erasing adds nothing");
    page.TrimTrailingBands();
    PaintViews(page);
}

void LoadAndSave(const uint8_t* data, size_t size, int32_t bandHeight) {
    ink::MemorySource source(data, size);
    ink::NoteFileHeader header;
    if (!ink::ReadNoteHeader(source, header)) return;
    ink::InkPage page;
    page.bandHeight = bandHeight == 0 ? header.bandHeight : bandHeight;
    const ink::LoadResult result = ink::ReadNoteBody(source, header, page);
    Require(page.Pool().Capacity() <= 4 * size + kFixedMemory, "memory in proportion to the file");
    if (result != ink::LoadResult::Loaded) {
        Require(page.SlotCount() == 0, "nothing kept of a damaged note");
        return;
    }
    PaintViews(page);
    ink::MemorySink saved;
    Require(ink::WriteNote(saved, page), "writing to memory");

    // What was saved reads back and saves the same.
    ink::MemorySource again(saved.Bytes().data(), saved.Bytes().size());
    ink::InkPage copy;
    copy.bandHeight = page.bandHeight;
    Require(ink::ReadNoteHeader(again, header) &&
                ink::ReadNoteBody(again, header, copy) == ink::LoadResult::Loaded,
            "a saved note loads");
    ink::MemorySink savedAgain;
    ink::WriteNote(savedAgain, copy);
    Require(savedAgain.Bytes() == saved.Bytes(), "a saved note stays the same");
    Edit(copy);
}

void Scan(const uint8_t* data, size_t size) {
    ink::MemorySource source(data, size);
    ink::NoteFileHeader header;
    if (!ink::ReadNoteHeader(source, header)) return;
    ink::StrokePool pool;
    ink::NoteScanner scanner(source, header, 268, pool, ink::NoteScanner::Mode::Visit);
    ink::StrokeRecord* record = nullptr;
    std::vector<uint32_t> pixels(kSide * kSide);
    ink::PixelSurface surface{pixels.data(), kSide, kSide, kSide};
    static ink::InkPainter painter = MakePainter(ink::PenStyle::Smooth);
    while (scanner.Next(record) == ink::ScanResult::Record) {
        painter.PaintStroke(surface, *record, 0, surface.Bounds());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    for (const int32_t bandHeight : {0, 268, 1}) LoadAndSave(data, size, bandHeight);
    Scan(data, size);
    return 0;
}
