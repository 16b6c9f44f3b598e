// Sending a note: the picture that is made of it, read back by a reader of its own, and what fails.
#include <cstring>

#include "ink/NoteFile.h"
#include "platform/Canvas.h"
#include "platform/Image.h"
#include "tests/editor/EditorRig.h"

namespace {

using ink::ColorRef;
using platform::host::FileCall;
using namespace testing_support;

const wchar_t kPicture[] = L"\\My Documents\\Inkwright\\Temp\\memo_2007-03-05(143012).bmp";
const wchar_t kLine[] = L"Created with Inkwright.";
constexpr platform::Font kFont{80, false};

class Mail : public EditorTest {
  protected:
    // On this paper, one bent stroke in each of some colours, all over three bands.
    void PutStrokes(uint32_t count, ColorRef paper) {
        ink::InkPage page;
        page.bandHeight = kViewHeight;
        page.background = paper;
        for (uint32_t i = 0; i < count; ++i) {
            const int top = 20 + static_cast<int>(i * 600 / count);
            const Point points[] = {{10, top}, {100, top + 30}, {200, top + 7}};
            ink::StrokeChange change;
            page.AddStroke(points, 3, top, top + 30,
                           ink::MakeColor(i * 251 / count, 255 - i * 251 / count, i % 2 * 200), change);
        }
        ink::MemorySink sink;
        ink::WriteNote(sink, page);
        device.files.Put(kNote, std::string(sink.Bytes().begin(), sink.Bytes().end()));
    }
    // Sends the note and reads the picture as any program would: an 8-bit BMP; pixels 0x00RRGGBB, top row
    // first.
    void Send() {
        Run(kNote, {Press(IDM_SEND_EMAIL), [this] { EXPECT_EQ(Desk().waitCursors % 2, 0); }, Ok()});
        EXPECT_EQ(device.mailed.back(), kPicture);
        const std::string file = device.files.Get(kPicture);
        const auto word = [&file](size_t at) {
            uint32_t read = 0;
            std::memcpy(&read, file.data() + at, sizeof read);
            return read;
        };
        ASSERT_TRUE(file.substr(0, 2) == "BM" && word(2) == file.size() && file[28] == 8);
        width_ = static_cast<int>(word(18));
        height_ = static_cast<int>(word(22)) - platform::Canvas::TextSize(kLine, kFont).bottom - 2 * 8;
        const size_t stride = (word(18) + size_t{3}) & ~size_t{3};
        pixels_.clear();
        for (size_t y = word(22); y-- > 0;) {
            for (size_t x = 0; x < word(18); ++x)
                pixels_.push_back(
                    word(54 + 4 * size_t{static_cast<uint8_t>(file[word(10) + y * stride + x])}));
        }
    }
    // How far a colour is at most from that of the note as the editor shows it, with the line in the corner.
    int Worst(ColorRef lineColor) {
        const platform::Rect line = platform::Canvas::TextSize(kLine, kFont);
        const platform::Image image = platform::Image::Make(width_, height_ + line.bottom + 16);
        ink::PixelSurface surface = image.Surface();
        Paint(surface, *ReadBack(kNote), 0);
        platform::Canvas(image).Text(kLine, {width_ - line.right - 8, height_ + 8}, kFont, lineColor,
                                     surface.Bounds());
        int worst = 0;
        for (size_t i = 0; i < pixels_.size(); ++i) {
            for (int shift = 0; shift < 24; shift += 8)
                worst = std::max(worst, std::abs(static_cast<int>(pixels_[i] >> shift & 255) -
                                                 static_cast<int>(surface.pixels[i] >> shift & 255)));
        }
        return worst;
    }
    Picture pixels_;
    int width_ = 0;
    int height_ = 0;  // of the note: the line stands below
};

// Soft edges get what the inks leave of the palette. The line is grey that stands out from the paper.
TEST_F(Mail, ThePictureShowsTheWholeNote) {
    const struct {
        ink::PenStyle style;
        uint32_t inks, paper, line;
        int worst;
    } kCases[] = {{ink::PenStyle::Simple, 3, 0xF0FFFF, 0x808080, 0},
                  {ink::PenStyle::Simple, 3, 0x303030, 0x808080, 0},
                  {ink::PenStyle::Simple, 3, 0xA08080, 0x282828, 0},
                  {ink::PenStyle::Smooth, 3, 0xF0FFFF, 0x808080, 4},
                  {ink::PenStyle::Smooth, 40, 0xF0FFFF, 0x808080, 38},
                  {ink::PenStyle::Smooth, 300, 0xF0FFFF, 0x808080, 119}};
    for (const auto& c : kCases) {
        UsePenOf(c.style, 20);
        PutStrokes(c.inks, c.paper);
        Send();
        EXPECT_EQ(width_, kViewWidth);
        EXPECT_LE(Worst(c.line), c.worst) << c.inks << " inks on " << c.paper;
    }
}

// Down to where the pen reaches. What no view can show is not in it either: rows beyond the note's slots, and
// those of a record without points. The line is wider than a narrow view.
TEST_F(Mail, ThePictureIsAsLargeAsWhatItShows) {
    const std::pair<std::vector<int32_t>, int> kRecords[] = {
        {{1, 0, 0, 0, 60, 60, 100, 60}, 60 + 1 + 5},
        {{1, 0, 0, 0, 10, 10, 100, 10}, 45},  // the head's rows
        {{1, 0, 0, 0, 60, 5000, 100, 60}, kViewHeight},
        {{0, 0, 0, 0, 60, 100}, 45}};
    UsePenOf(ink::PenStyle::Smooth, 100);
    Desk().screen = {140, 320};
    for (const auto& [record, rows] : kRecords) {
        device.files.Put(kNote, Words({5, 0xFFFFFF, 1, kViewHeight, 1}) + Words(record));
        Send();
        EXPECT_EQ(height_, rows);
        EXPECT_EQ(width_, platform::Canvas::TextSize(kLine, kFont).right + 16);
    }
}

TEST_F(Mail, WhatCannotBeSent) {
    const Step cannot = ExpectBox(L"Creating temporary file failed!", L" Memory Error");
    const Step send = Press(IDM_SEND_EMAIL);
    Edited({ExpectBox(L"Cannot send empty notes!", L" Error"), send});
    PutNote({60});
    for (const FileCall call : {FileCall::Create, FileCall::Write}) {
        Edited({cannot, Fail({call}), send, [this] { EXPECT_FALSE(device.files.Has(kPicture)); }});
        device.files.fault = nullptr;
    }
    Edited({cannot, WithPictures(0, send)});
    EXPECT_TRUE(device.mailed.empty());
}

}  // namespace
