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

// An 8-bit BMP as any other program reads it: pixels of 0x00RRGGBB, the top row first.
struct Bmp {
    int width = 0;
    int height = 0;
    Picture pixels;

    explicit Bmp(const std::string& file) {
        const auto word = [&file](size_t at) {
            uint32_t read = 0;
            std::memcpy(&read, file.data() + at, sizeof read);
            return read;
        };
        if (file.substr(0, 2) != "BM" || word(2) != file.size() || file[28] != 8) {
            ADD_FAILURE() << "no picture of 8 bits a pixel";
            return;
        }
        width = static_cast<int>(word(18));
        height = static_cast<int>(word(22));
        const size_t stride = (static_cast<size_t>(width) + 3) & ~size_t{3};
        for (size_t y = word(22); y-- > 0;) {
            for (size_t x = 0; x < word(18); ++x)
                pixels.push_back(
                    word(54 + 4 * size_t{static_cast<uint8_t>(file[word(10) + y * stride + x])}));
        }
    }
};

class Mail : public EditorTest {
  protected:
    // On this paper, one bent stroke in each colour, all over three bands.
    void PutStrokes(const std::vector<ColorRef>& colors, ColorRef paper = 0xF0FFFF) {
        ink::InkPage page;
        page.bandHeight = kViewHeight;
        page.background = paper;
        for (size_t i = 0; i < colors.size(); ++i) {
            const int top = 20 + static_cast<int>(i * 600 / colors.size());
            const Point points[] = {{10, top}, {100, top + 30}, {200, top + 7}};
            page.AddStroke(points, 3, top, top + 30, colors[i]);
        }
        ink::MemorySink sink;
        ink::WriteNote(sink, page);
        device.files.Put(kNote, std::string(sink.Bytes().begin(), sink.Bytes().end()));
    }
    Bmp Sent() {
        Edited({Press(IDM_SEND_EMAIL), [this] { EXPECT_EQ(Desk().waitCursors % 2, 0); }});
        EXPECT_EQ(device.mailed.back(), kPicture);
        return Bmp(device.files.Get(kPicture));
    }
    // The note as the editor shows it, down to its ink, and the line in the corner.
    Picture Expected(const Bmp& sent, ColorRef lineColor) {
        const platform::Font font{80, false};
        const platform::Rect line = platform::Canvas::TextSize(kLine, font);
        const platform::Image image = platform::Image::Make(sent.width, sent.height);
        ink::PixelSurface surface = image.Surface();
        Paint(surface, *ReadBack(kNote), 0);
        platform::Canvas(image).Text(kLine, {sent.width - line.right - 8, sent.height - line.bottom - 8},
                                     font, lineColor, surface.Bounds());
        return {surface.pixels, surface.pixels + surface.width * surface.height};
    }
    // Its room below the ink.
    static int LineRows() { return platform::Canvas::TextSize(kLine, {80, false}).bottom + 16; }
};

TEST_F(Mail, ThePictureShowsTheWholeNote) {
    UsePenOf(ink::PenStyle::Simple, 30);
    for (const auto& [paper, line] :
         {std::pair{0xF0FFFFu, 0x808080u}, {0x303030u, 0x808080u}, {0x8080A0u, 0x282828u}}) {
        PutStrokes({0, 0x0000C0, 0xC04000}, paper);
        const Bmp sent = Sent();
        EXPECT_EQ(sent.width, kViewWidth);
        EXPECT_EQ(sent.height, 420 + 30 + 1 + 1 + LineRows()) << "down to where the pen reaches";
        EXPECT_TRUE(sent.pixels == Expected(sent, line)) << paper;
    }
}

// Soft edges get what the inks leave of the palette.
TEST_F(Mail, NoColourIsFarFromItsOwn) {
    UsePenOf(ink::PenStyle::Smooth, 20);
    for (const auto& [count, furthest] : {std::pair{3u, 4}, {40u, 38}, {300u, 119}}) {
        std::vector<ColorRef> colors;
        for (uint32_t i = 0; i < count; ++i)
            colors.push_back(ink::MakeColor(i * 251 / count, 255 - i * 251 / count, i % 2 * 200));
        PutStrokes(colors);
        const Bmp sent = Sent();
        const Picture wanted = Expected(sent, 0x808080);
        int worst = 0;
        for (size_t i = 0; i < wanted.size(); ++i) {
            for (int shift = 0; shift < 24; shift += 8) {
                const int difference = static_cast<int>(sent.pixels[i] >> shift & 255) -
                                       static_cast<int>(wanted[i] >> shift & 255);
                worst = std::max(worst, std::abs(difference));
            }
        }
        EXPECT_LE(worst, furthest) << count << " colours";
    }
}

// What no view of the note can show is not in its picture either: rows beyond its slots, and those of a
// record without points. The line is wider than a narrow view.
TEST_F(Mail, ThePictureIsAsLargeAsWhatItShows) {
    const struct {
        std::vector<int32_t> record;
        int rows;
    } kCases[] = {{{1, 0, 0, 0, 60, 60, 100, 60}, 60 + 1 + 5},
                  {{1, 0, 0, 0, 10, 10, 100, 10}, 45},  // the head's rows always show
                  {{1, 0, 0, 0, 60, 5000, 100, 60}, kViewHeight},
                  {{0, 0, 0, 0, 60, 100}, 45}};
    UsePenOf(ink::PenStyle::Smooth, 100);
    Desk().screen = {140, 320};
    for (const auto& c : kCases) {
        std::vector<int32_t> words{5, 0xFFFFFF, 1, kViewHeight, 1};
        words.insert(words.end(), c.record.begin(), c.record.end());
        device.files.Put(kNote, Words(words));
        Run(kNote, {Press(IDM_SEND_EMAIL), Press(platform::kIdOk)});
        const Bmp sent(device.files.Get(kPicture));
        EXPECT_EQ(sent.height, c.rows + LineRows());
        EXPECT_EQ(sent.width, platform::Canvas::TextSize(kLine, {80, false}).right + 16);
    }
}

TEST_F(Mail, WhatCannotBeSent) {
    const Step cannot = ExpectBox(L"Creating temporary file failed!", L" Memory Error");
    Edited({ExpectBox(L"Cannot send empty notes!", L" Error"), Press(IDM_SEND_EMAIL)});
    PutNote({60});
    for (const FileCall call : {FileCall::Create, FileCall::Write}) {
        device.files.fault = [call](FileCall made, const std::wstring& path) {
            return made == call && path == kPicture ? platform::FileError::Other : platform::FileError::None;
        };
        Edited({cannot, Press(IDM_SEND_EMAIL)});
        EXPECT_FALSE(device.files.Has(kPicture));
    }
    device.files.fault = nullptr;
    Edited({cannot, WithoutPictures(Press(IDM_SEND_EMAIL))});
    EXPECT_TRUE(device.mailed.empty());
}

}  // namespace
