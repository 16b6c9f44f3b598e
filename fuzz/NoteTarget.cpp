// Reads any bytes as a note, looks at them the way the preview does, saves what was read, erases in it and
// moves its ink, and paints views of it. A promise that does not hold ends the program.
#include <algorithm>

#include "fuzz/Target.h"
#include "ink/InkPainter.h"
#include "ink/NoteScanner.h"
#include "ink/PageHistory.h"

namespace fuzz {

namespace {

constexpr int32_t kSide = 64;
constexpr size_t kFixedMemory = 16 * 1024 * 1024;
// A page takes time for each of its slots, and a few bytes can name a million of them.
constexpr int64_t kManySlots = 100;
constexpr int64_t kMostSlots = 5000;

// Something to paint on.
ink::PixelSurface& View() {
    static uint32_t pixels[kSide * kSide];
    static ink::PixelSurface view{pixels, kSide, kSide, kSide};
    return view;
}

// Made once: preparing a pen takes longer than reading a small note.
ink::InkPainter& Painter(ink::PenStyle style) {
    static ink::InkPainter painters[3];
    static const bool isReady = painters[0].SetPen(ink::PenStyle::Simple, 3.0) &&
                                painters[1].SetPen(ink::PenStyle::Classic, 3.0) &&
                                painters[2].SetPen(ink::PenStyle::Smooth, 3.0);
    Require(isReady, "pens");
    return painters[static_cast<size_t>(style)];
}

// Of all slots: a file may have strokes where no repaint looks.
int64_t CountPoints(const ink::InkPage& page) {
    int64_t points = 0;
    for (size_t slot = 0; slot < page.SlotCount(); ++slot) {
        if (page.Band(slot) == nullptr) continue;
        for (const ink::StrokeRecord* record : page.Band(slot)->Records()) points += record->count;
    }
    return points;
}

// Swept once: making it takes longer than erasing in a small note.
ink::SweptRegion MakeRegion() {
    ink::SweptRegion region;
    for (int64_t i = 0; i < 40; ++i) Require(region.AddSquare(i * 5 - 20, i * 9 - 10), "a square");
    return region;
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
    static const ink::SweptRegion region = MakeRegion();
    history.EraseStrokes(region);
    Require(CountPoints(page) <= before, "erasing adds nothing");
    page.TrimTrailingBands();
    PaintViews(page, care);
    ink::RowSpan rows;
    history.Undo(rows);
    Require(Save(page) == unchanged, "every edit can be taken back");
}

// Looks at the strokes as the preview does. The last slot that they are in, or would be filed in anew.
int64_t Scan(ink::MemorySource source, const ink::NoteFileHeader& header, const ink::InkPage& page,
             Care care) {
    ink::StrokePool pool;
    ink::NoteScanner scanner(source, header, page.bandHeight, pool, ink::NoteScanner::Mode::Visit);
    ink::StrokeRecord* record = nullptr;
    int64_t last = 0;
    while (scanner.Next(record) == ink::ScanResult::Record) {
        last = std::max({last, scanner.Block(), page.SlotOf(record->minY, record->maxY)});
        if (care == Care::Thorough)
            Painter(ink::PenStyle::Smooth).PaintStroke(View(), *record, 0, View().Bounds());
    }
    return last;
}

void LoadAndSave(const Bytes& bytes, int32_t bandHeight, Care care) {
    ink::MemorySource source(bytes.data(), bytes.size());
    ink::NoteFileHeader header;
    if (!ink::ReadNoteHeader(source, header)) return;
    ink::InkPage page;
    page.bandHeight = bandHeight == 0 ? header.bandHeight : bandHeight;
    const int64_t lastSlot = Scan(source, header, page, care);
    if (care == Care::Quick && lastSlot > kManySlots) return;
    const ink::LoadResult result = Load(bytes, page);
    RequireModest(page, bytes.size());
    if (result != ink::LoadResult::Loaded)
        return Require(page.SlotCount() == 0, "nothing kept of a damaged note");
    if (lastSlot > kMostSlots) return;
    PaintViews(page, care);
    RequireWhole(page);
    Edit(page, care);
}

}  // namespace

void RequireModest(ink::InkPage& page, size_t size) {
    Require(page.Pool().Capacity() <= 4 * size + kFixedMemory, "modest memory");
}

Bytes Save(const ink::InkPage& page) {
    ink::MemorySink saved;
    Require(ink::WriteNote(saved, page), "writing to memory");
    return saved.Bytes();
}

ink::LoadResult Load(const Bytes& note, ink::InkPage& page) {
    ink::MemorySource source(note.data(), note.size());
    ink::NoteFileHeader header;
    return ink::ReadNoteHeader(source, header) ? ink::ReadNoteBody(source, header, page)
                                               : ink::LoadResult::Damaged;
}

void RequireWhole(const ink::InkPage& page) {
    ink::InkPage copy;
    copy.bandHeight = page.bandHeight;
    const Bytes saved = Save(page);
    Require(Load(saved, copy) == ink::LoadResult::Loaded, "a saved note loads");
    Require(Save(copy) == saved, "a saved note stays the same");
}

void PaintViews(const ink::InkPage& page, Care care) {
    if (care == Care::Quick || static_cast<int64_t>(page.SlotCount()) > kMostSlots) return;
    for (const ink::PenStyle style : {ink::PenStyle::Simple, ink::PenStyle::Classic, ink::PenStyle::Smooth}) {
        for (const int32_t scroll : {0, INT32_MIN, INT32_MAX})
            Painter(style).Repaint(View(), page, scroll, View().Bounds());
        Painter(style).Repaint(View(), page, 500, {3, 5, 40, 33});
    }
}

void TryNote(const Bytes& bytes, Care care) {
    for (const int32_t bandHeight : {0, 268, 1}) LoadAndSave(bytes, bandHeight, care);
}

}  // namespace fuzz
