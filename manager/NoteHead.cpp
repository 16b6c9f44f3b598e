#include "manager/NoteHead.h"

#include "ink/InkPainter.h"
#include "ink/NoteScanner.h"

namespace manager {

namespace {

// A stroke that begins in the head is filed by its last row, and no pen draws over more views than this: what
// lies in later blocks of the file need not be read.
constexpr int64_t kLastHeadBlock = 2;
constexpr ink::ColorRef kWhite = 0xFFFFFF;

}  // namespace

bool NoteHead::ReadHeader() {
    isNote_ = ink::ReadNoteHeader(source_, header_);
    return isNote_;
}

ink::ColorRef NoteHead::PaperColor() const {
    return isNote_ && header_.HasBackground() ? header_.backgroundColor : kWhite;
}

// The records are looked at as they pass, none is kept.
void NoteHead::Paint(const ink::PixelSurface& surface, const app::PenSettings& pen) {
    ink::InkPainter painter;
    if (!isNote_ || !painter.SetPen(pen.penStyle, pen.penSize * 0.1)) return;
    ink::StrokePool pool;
    ink::NoteScanner scanner(source_, header_, header_.bandHeight, pool, ink::NoteScanner::Mode::Visit);
    ink::StrokeRecord* record = nullptr;
    while (scanner.Next(record) == ink::ScanResult::Record && scanner.Block() <= kLastHeadBlock) {
        if (record->count < 1 || record->minY >= ink::kHeadRows) continue;
        ink::PixelSurface target = surface;
        painter.PaintStroke(target, *record, 0, surface.Bounds());
    }
}

}  // namespace manager
