#include "ink/NoteFile.h"
#include "platform/Canvas.h"
#include "tests/editor/EditorRig.h"

namespace {

using namespace testing_support;

const wchar_t kPicture[] = L"\\My Documents\\Inkwright\\Temp\\memo_2007-03-05(143012).bmp";

class Mail : public EditorTest {
  protected:
    void PutStrokes(uint32_t count, ink::ColorRef paper) {
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
    std::string Sent() {
        Run(kNote, {Press(IDM_SEND_EMAIL), [this] { EXPECT_EQ(Desk().waitCursors % 2, 0); }, Ok()});
        EXPECT_EQ(device.mailed.back(), kPicture);
        return device.files.Get(kPicture);
    }
};

// Soft edges get what the inks leave of the palette. The line is grey that stands out from the paper.
TEST_F(Mail, ThePictureShowsTheWholeNote) {
    const struct {
        ink::PenStyle style;
        uint32_t inks, paper, golden;
    } kCases[] = {{ink::PenStyle::Simple, 3, 0xF0FFFF, 3497121149},
                  {ink::PenStyle::Simple, 3, 0xA08080, 3429861460},
                  {ink::PenStyle::Smooth, 3, 0x303030, 2445887415},
                  {ink::PenStyle::Smooth, 40, 0xF0FFFF, 1087067323},
                  {ink::PenStyle::Smooth, 300, 0xF0FFFF, 816979235}};
    for (const auto& c : kCases) {
        UsePenOf(c.style, 20);
        PutStrokes(c.inks, c.paper);
        const std::string file = Sent();
        EXPECT_EQ(Hash(Picture(file.begin(), file.end())), c.golden) << c.inks << " inks on " << c.paper;
    }
}

// What no view can show is not in it: rows beyond the note's slots, or of a record without points.
TEST_F(Mail, ThePictureIsAsLargeAsWhatItShows) {
    const std::pair<std::vector<int32_t>, int> kRecords[] = {
        {{1, 0, 0, 0, 60, 60, 100, 60}, 60 + 1 + 5},
        {{1, 0, 0, 0, 10, 10, 100, 10}, 45},  // the head's rows
        {{1, 0, 0, 0, 60, 5000, 100, 60}, kViewHeight},
        {{0, 0, 0, 0, 60, 100}, 45}};
    const platform::Rect line = platform::Canvas::TextSize(L"Created with Inkwright.", {80, false});
    UsePenOf(ink::PenStyle::Smooth, 100);
    Desk().screen = {140, 320};
    for (const auto& [record, rows] : kRecords) {
        device.files.Put(kNote, Words({5, 0xFFFFFF, 1, kViewHeight, 1}) + Words(record));
        EXPECT_EQ(Sent().substr(18, 8), Words({line.right + 16, rows + line.bottom + 16}));
    }
}

// A window that was made narrower crops nothing; a damaged file does not make a picture of any width.
TEST_F(Mail, ThePictureOfASizedWindowIsAsWideAsTheInk) {
    UsePenOf(ink::PenStyle::Smooth, 100);
    for (const auto& [x, width] : {std::pair{100, 240 - 16}, {700, 706}, {4090, 4096}, {1 << 30, 4096}}) {
        device.files.Put(kNote, Words({5, 0xFFFFFF, 1, kViewHeight, 1, 1, 0, 0, 0, 60, 60, x, 60}));
        Play({Resize(240, 320)});
        EXPECT_EQ(Sent().substr(18, 4), Words({width})) << x;
    }
}

TEST_F(Mail, WhatCannotBeSent) {
    const Step cannot = ExpectBox(L"Creating temporary file failed!", L" Memory Error");
    PutNote({60});
    for (const FileCall call : {FileCall::Create, FileCall::Write})
        Edited({cannot, Fail({call}), Press(IDM_SEND_EMAIL),
                [this] { EXPECT_FALSE(device.files.Has(kPicture)); }, Fail({})});
    Edited({cannot, WithPictures(0, Press(IDM_SEND_EMAIL))});
    EXPECT_TRUE(device.mailed.empty());
}

}  // namespace
