#include "manager/PreviewStrip.h"

#include "app/store/FileStreams.h"
#include "app/store/StorePaths.h"
#include "manager/NoteHead.h"
#include "manager/StripImages.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "res/resource.h"

namespace manager {

namespace {

constexpr platform::Font kFont{85, false};
constexpr float kShade = -0.15f;  // the paper, a little darker
constexpr int kNoteMarkTop = 20;
constexpr int kMemoMarkRight = 18;
constexpr int kMemoMarkTop = 4;
constexpr platform::Rect kCaptionInset{4, 2, 4, 2};
constexpr ink::ColorRef kWhite = 0xFFFFFF;
constexpr ink::ColorRef kCaptionColor = ink::MakeColor(96, 96, 96);  // ink may lie below it

}  // namespace

void PreviewStrip::Update(const std::wstring& notePath, int width, ink::Scale scale, bool isBare) {
    if (picture_.PageScale() != scale) noteMark_ = {};
    if (picture_.Width() != width || picture_.PageScale() != scale)
        picture_ = platform::Image::Make(width, kHeight, scale);
    if (!picture_.IsValid()) return;
    if (notePath.empty()) {
        DrawNoNote(isBare ? IDB_BEGINNING : IDB_BANNER);
    } else {
        DrawNote(notePath);
    }
    platform::Canvas(picture_).Fill({0, 0, width, 1}, platform::ColorOf(platform::SystemColor::WindowFrame));
}

void PreviewStrip::DrawNoNote(int bannerId) {
    const platform::Image banner = platform::Image::FromResource(bannerId, picture_.PageScale());
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
    if (platform::Exists(store::MemoPath(notePath))) {
        canvas.Draw(images_, kMemoMarkImage, {width - kMemoMarkRight, kMemoMarkTop});
    }
}

void PreviewStrip::DrawInk(const std::wstring& notePath) {
    const int width = picture_.Width();
    platform::Canvas canvas(picture_);
    platform::File file = platform::File::OpenForReading(notePath, platform::File::Share::Read);
    store::FileSource source(file);
    NoteHead head(source);
    const bool isNote = file.IsOpen() && head.ReadHeader();
    canvas.Fill({0, 0, width, kHeight}, ink::Shade(head.PaperColor(), kShade));
    if (!noteMark_.IsValid()) noteMark_ = platform::Image::FromResource(IDB_NOTE_MARK, picture_.PageScale());
    canvas.Draw(noteMark_, {width - noteMark_.Width(), kNoteMarkTop});
    if (isNote) head.Paint(picture_, pen_);
}

}  // namespace manager
