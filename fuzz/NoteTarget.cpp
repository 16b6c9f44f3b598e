// Reads any bytes as a note, looks at them the way the preview does, saves what was read, erases in it and
// moves its ink, and paints views of it.
#include <algorithm>

#include "fuzz/Target.h"
#include "ink/InkPainter.h"
#include "ink/NoteSalvage.h"
#include "ink/NoteScanner.h"
#include "ink/PageHistory.h"

namespace fuzz {

namespace {

constexpr int32_t kSide = 64;
constexpr int64_t kMostSlots = 5000;  // a page takes time for each, and a few bytes can name a million
uint32_t pixels[kSide * kSide];
ink::PixelSurface view{pixels, kSide, kSide, kSide};

// Made once: preparing a pen takes longer than reading a small note.
ink::InkPainter& Painter(size_t style) {
    static ink::InkPainter painters[3];
    for (static uint8_t i = 0; i < 3; ++i)
        Require(painters[i].SetPen(static_cast<ink::PenStyle>(i), 3.0, ink::Scale(96 + 72 * i)), "a pen");
    return painters[style];
}

void PaintViews(const ink::InkPage& page, Care care) {
    if (care == Care::Quick || page.SlotCount() > kMostSlots) return;
    for (size_t i = 0; i < 12; ++i) {
        constexpr int32_t kScrolls[] = {0, 500, INT32_MIN, INT32_MAX};
        Painter(i / 4).Repaint(view, page, kScrolls[i % 4], {3, 0, kSide, kSide - 7});
    }
}

// Of all slots: a file may have strokes where no repaint looks.
int64_t CountPoints(const ink::InkPage& page) {
    int64_t points = 0;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        if (page.Band(slot) == nullptr) continue;
        for (const ink::StrokeRecord* record : *page.Band(slot)) points += record->count;
    }
    return points;
}

void Edit(ink::InkPage& page, Care care) {
    const int64_t before = CountPoints(page);
    page.TrimTrailingBands();
    const Bytes unchanged = Save(page);
    ink::PageHistory history(page);
    for (const int64_t rows : {40, -500, 3000}) {
        history.MoveStrokes(20, rows, 2);
        Require(CountPoints(page) == before, "moving loses nothing");
    }
    static ink::SweptRegion region;  // swept once: that takes longer than erasing in a small note
    for (static int64_t i = 0; i < 40; ++i) Require(region.AddSquare(i * 5 - 20, i * 9 - 10), "a square");
    history.EraseStrokes(region);
    Require(CountPoints(page) <= before, "erasing adds nothing");
    page.TrimTrailingBands();
    PaintViews(page, care);
    ink::RowSpan rows;
    history.Undo(rows);
    Require(Save(page) == unchanged, "every edit can be taken back");
}

// The last slot that strokes are in, or would be filed in anew.
int64_t Scan(ink::MemorySource source, const ink::NoteFileHeader& header, const ink::InkPage& page,
             Care care) {
    ink::StrokePool pool;
    ink::NoteScanner scanner(source, header, page.bandHeight, pool, ink::NoteScanner::Mode::Visit);
    ink::StrokeRecord* record = nullptr;
    int64_t last = 0;
    while (scanner.Next(record) == ink::ScanResult::Record) {
        last = std::max({last, scanner.Block(), page.SlotOf(record->minY, record->maxY)});
        if (care == Care::Thorough) Painter(2).PaintStroke(view, *record, 0, view.Bounds());
    }
    return last;
}

}  // namespace

Bytes Save(const ink::InkPage& page) {
    ink::MemorySink saved;
    Require(ink::WriteNote(saved, page), "writing to memory");
    return saved.Bytes();
}

ink::LoadResult Load(const Bytes& note, ink::InkPage& page) {
    ink::MemorySource source(note.data(), note.size());
    ink::NoteFileHeader header;
    if (!ink::ReadNoteHeader(source, header)) return ink::LoadResult::Damaged;
    return ink::ReadNoteBody(source, header, page);
}

void RequireWhole(ink::InkPage& page, size_t size, Care care) {
    Require(page.Pool().Capacity() <= 4 * size + 16 * 1024 * 1024, "memory in proportion to the file");
    if (care == Care::Quick && page.SlotCount() > 100) return;
    ink::InkPage copy;
    copy.bandHeight = page.bandHeight;
    const Bytes saved = Save(page);
    Require(Load(saved, copy) == ink::LoadResult::Loaded, "a saved note loads");
    Require(Save(copy) == saved, "a saved note stays the same");
    PaintViews(page, care);
}

void TryNote(const Bytes& bytes, Care care) {
    ink::MemorySource source(bytes.data(), bytes.size());
    ink::NoteFileHeader header;
    if (!ink::ReadNoteHeader(source, header)) return;
    for (const int32_t bandHeight : {header.bandHeight, 268, 1}) {
        ink::InkPage page;
        page.bandHeight = bandHeight;
        const int64_t lastSlot = Scan(source, header, page, care);
        if (care == Care::Quick && lastSlot > 100) continue;
        const bool isLoaded = Load(bytes, page) == ink::LoadResult::Loaded;
        RequireWhole(page, bytes.size(), care);
        Require(isLoaded || page.SlotCount() == 0, "nothing kept of a damaged note");
        if (lastSlot <= kMostSlots) Edit(page, care);
    }
}

// What is kept of a damaged note is a note like any other, and of a whole note everything is kept.
void TrySalvage(const Bytes& bytes, Care care) {
    ink::MemorySource source(bytes.data(), bytes.size());
    ink::InkPage page, whole;
    if (!ink::SalvageNote(source, page)) return Require(page.SlotCount() == 0, "nothing on the page");
    RequireWhole(page, bytes.size(), care);
    whole.bandHeight = page.bandHeight;
    const bool isWhole = Load(bytes, whole) == ink::LoadResult::Loaded;
    Require(!isWhole || Save(whole) == Save(page), "of a whole note everything is kept");
}

}  // namespace fuzz
