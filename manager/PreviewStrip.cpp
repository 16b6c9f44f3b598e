#include "manager/PreviewStrip.h"

#include "app/FileStreams.h"
#include "app/StorePaths.h"
#include "ink/InkPainter.h"
#include "ink/NoteFile.h"
#include "ink/NoteScanner.h"
#include "manager/NodeKind.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "res/resource.h"

namespace manager {

namespace {

constexpr platform::Font kFont{85, false};
constexpr float kShade = -0.15f;   // the paper, a little darker
constexpr int32_t kHeadRows = 45;  // strokes that begin in these page rows are shown
// A stroke that begins in the head is filed by its last row, and no pen draws over more views than this: what
// lies in later blocks of the file need not be read.
constexpr int64_t kLastHeadBlock = 2;
constexpr int kNoteMarkTop = 20;
constexpr int kMemoMarkRight = 18;
constexpr int kMemoMarkTop = 4;
constexpr platform::Rect kCaptionInset{4, 2, 4, 2};
constexpr ink::ColorRef kWhite = 0xFFFFFF;
constexpr ink::ColorRef kCaptionColor = ink::MakeColor(96, 96, 96);  // ink may lie below it

}  // namespace

bool PreviewStrip::Update(const std::wstring& notePath, int width) {
    if (picture_.Width() != width) picture_ = platform::Image::Make(width, kHeight);
    if (!picture_.IsValid()) return false;
    if (notePath.empty()) {
        DrawNoNote();
    } else {
        DrawNote(notePath);
    }
    platform::Canvas(picture_).Fill({0, 0, width, 1}, platform::ColorOf(platform::SystemColor::WindowFrame));
    return true;
}

void PreviewStrip::DrawNoNote() {
    const platform::Image banner = platform::Image::FromResource(IDB_BANNER);
    const int width = picture_.Width();
    platform::Canvas canvas(picture_);
    const ink::ColorRef edge = banner.IsValid() ? ink::ColorOf(banner.Surface().pixels[0]) : kWhite;
    canvas.Fill({0, 0, width, kHeight}, edge);
    canvas.Draw(banner, {(width - banner.Width()) / 2, kHeight - banner.Height()});
}

void PreviewStrip::DrawNote(const std::wstring& notePath) {
    DrawInk(notePath);
    platform::Canvas canvas(picture_);
    const int width = picture_.Width();
    platform::DateTime written;
    if (platform::LastWriteTime(notePath, written)) {
        const platform::Rect clip{kCaptionInset.left, kCaptionInset.top, width - kCaptionInset.right,
                                  kHeight - kCaptionInset.bottom};
        canvas.Text(platform::DateAndTime(written), {clip.left, clip.top}, kFont, kCaptionColor, clip);
    }
    if (platform::Exists(app::MemoPath(notePath))) {
        canvas.Draw(images_, kMemoMarkImage, {width - kMemoMarkRight, kMemoMarkTop});
    }
}

// Reads no further than needed: the records are looked at as they pass, none is kept.
void PreviewStrip::DrawInk(const std::wstring& notePath) {
    const int width = picture_.Width();
    const ink::PixelSurface surface = picture_.Surface();
    platform::Canvas canvas(picture_);
    platform::File file = platform::File::OpenForReading(notePath, platform::File::Share::Read);
    app::FileSource source(file);
    ink::NoteFileHeader header;
    const bool isNote = file.IsOpen() && ink::ReadNoteHeader(source, header);
    const ink::ColorRef paper = isNote && header.HasBackground() ? header.backgroundColor : kWhite;
    canvas.Fill({0, 0, width, kHeight}, ink::Shade(paper, kShade));
    const platform::Image mark = platform::Image::FromResource(IDB_NOTE_MARK);
    canvas.Draw(mark, {width - mark.Width(), kNoteMarkTop});
    if (!isNote) return;

    ink::InkPainter painter;
    ink::StrokePool pool;
    ink::NoteScanner scanner(source, header, header.bandHeight, pool, ink::NoteScanner::Mode::Visit);
    ink::StrokeRecord* record = nullptr;
    if (!painter.SetPen(pen_.penStyle, pen_.penSize * 0.1)) return;
    while (scanner.Next(record) == ink::ScanResult::Record && scanner.Block() <= kLastHeadBlock) {
        if (record->count < 1 || record->minY >= kHeadRows) continue;
        ink::PixelSurface target = surface;
        painter.PaintStroke(target, *record, 0, surface.Bounds());
    }
}

}  // namespace manager
