#include "manager/NoteHead.h"

#include "ink/InkPainter.h"
#include "ink/NoteScanner.h"

namespace manager {

namespace {

constexpr ink::ColorRef kWhite = 0xFFFFFF;

}  // namespace

bool NoteHead::ReadHeader() {
    isNote_ = ink::ReadNoteHeader(source_, header_);
    return isNote_;
}

ink::ColorRef NoteHead::PaperColor() const {
    return isNote_ && header_.HasBackground() ? header_.backgroundColor : kWhite;
}

// A tall stroke that begins in the head may lie in any block of the file. The records are looked at as they
// pass, none is kept.
void NoteHead::Paint(const platform::Image& picture, const store::PenSettings& pen) {
    ink::InkPainter painter;
    if (!isNote_ || !painter.SetPen(pen.penStyle, pen.penSize * 0.1, picture.PageScale())) return;
    ink::StrokePool pool;
    ink::NoteScanner scanner(source_, header_, header_.bandHeight, pool, ink::NoteScanner::Mode::Visit);
    ink::StrokeRecord* record = nullptr;
    while (scanner.Next(record) == ink::ScanResult::Record) {
        if (record->count < 1 || record->minY >= ink::kHeadRows) continue;
        ink::PixelSurface target = picture.Surface();
        painter.PaintStroke(target, *record, 0, target.Bounds());
    }
}

}  // namespace manager
