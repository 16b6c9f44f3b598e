#include "fuzz/NoteTarget.h"

#include <algorithm>
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
// A page takes time for each of its slots, and a few bytes can name a million of them.
constexpr int64_t kManySlots = 100;
constexpr int64_t kMostSlots = 5000;

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

void PaintViews(const ink::InkPage& page, Care care) {
    if (care == Care::Quick) return;
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

// Swept once: making it takes longer than erasing in a small note.
ink::SweptRegion MakeRegion() {
    ink::SweptRegion region;
    for (int64_t i = 0; i < 40; ++i) Require(region.AddSquare(i * 5 - 20, i * 9 - 10), "a square");
    return region;
}

void Edit(ink::InkPage& page, Care care) {
    const Ink before = Count(page);
    for (const int64_t rows : {40, -500, 3000}) {
        ink::MoveStrokes(page, 20, rows, 2);
        const Ink after = Count(page);
        Require(after.strokes == before.strokes && after.points == before.points, "moving loses nothing");
    }
    static const ink::SweptRegion region = MakeRegion();
    ink::EraseStrokes(page, region);
    Require(Count(page).points <= before.points, "erasing adds nothing");
    page.TrimTrailingBands();
    PaintViews(page, care);
}

// The last slot that a note's strokes are in, or would be filed in anew.
int64_t LastSlot(ink::MemorySource source, const ink::NoteFileHeader& header, const ink::InkPage& page) {
    ink::StrokePool pool;
    ink::NoteScanner scanner(source, header, page.bandHeight, pool, ink::NoteScanner::Mode::Visit);
    ink::StrokeRecord* record = nullptr;
    int64_t last = 0;
    while (scanner.Next(record) == ink::ScanResult::Record) {
        last = std::max({last, scanner.Block(), page.SlotOf(record->minY, record->maxY)});
    }
    return last;
}

void LoadAndSave(const uint8_t* data, size_t size, int32_t bandHeight, Care care) {
    ink::MemorySource source(data, size);
    ink::NoteFileHeader header;
    if (!ink::ReadNoteHeader(source, header)) return;
    ink::InkPage page;
    page.bandHeight = bandHeight == 0 ? header.bandHeight : bandHeight;
    const int64_t lastSlot = LastSlot(source, header, page);
    if (care == Care::Quick && lastSlot > kManySlots) return;
    const ink::LoadResult result = ink::ReadNoteBody(source, header, page);
    Require(page.Pool().Capacity() <= 4 * size + kFixedMemory, "memory in proportion to the file");
    if (result != ink::LoadResult::Loaded) {
        Require(page.SlotCount() == 0, "nothing kept of a damaged note");
        return;
    }
    if (lastSlot > kMostSlots) return;
    PaintViews(page, care);
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
    Edit(copy, care);
}

void Scan(const uint8_t* data, size_t size, Care care) {
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
        if (care == Care::Thorough) painter.PaintStroke(surface, *record, 0, surface.Bounds());
    }
}

// One input of 128, picked by all of its bytes: most draw what others drew before.
Care CareOf(const uint8_t* data, size_t size) {
    uint32_t hash = 2166136261;
    for (size_t i = 0; i < size; ++i) hash = (hash ^ data[i]) * 16777619;
    return hash >> 25 == 0 ? Care::Thorough : Care::Quick;
}

}  // namespace

void TryNote(const uint8_t* data, size_t size, Care care) {
    for (const int32_t bandHeight : {0, 268, 1}) LoadAndSave(data, size, bandHeight, care);
    Scan(data, size, care);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    TryNote(data, size, CareOf(data, size));
    return 0;
}
