// Sending a note: the picture that is made of it, read back by a reader of its own, and what fails.
#include <cstring>

#include "app/store/PenSettings.h"
#include "editor/InkCanvas.h"
#include "ink/InkPainter.h"
#include "ink/NoteFile.h"
#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::FileError;
using platform::host::FileCall;
using testing_support::Words;

const wchar_t kPicture[] = L"\\My Documents\\Inkwright\\Temp\\memo_2007-03-05(143012).bmp";
constexpr int kHeight = 268;

// An 8-bit BMP as any other program reads it.
struct Bmp {
    int width = 0;
    int height = 0;
    std::string bytes;

    explicit Bmp(const std::string& file) : bytes(file) {
        EXPECT_EQ(bytes.substr(0, 2), "BM");
        EXPECT_EQ(Word(2), bytes.size());
        EXPECT_EQ(bytes[28], 8) << "bits per pixel";
        width = static_cast<int>(Word(18));
        height = static_cast<int>(Word(22));
    }
    uint32_t Word(size_t at) const {
        uint32_t word = 0;
        std::memcpy(&word, bytes.data() + at, sizeof word);
        return word;
    }
    // 0x00RRGGBB
    uint32_t Pixel(int x, int y) const {
        const size_t stride = (static_cast<size_t>(width) + 3) & ~size_t{3};
        const size_t place = Word(10) + static_cast<size_t>(height - 1 - y) * stride + static_cast<size_t>(x);
        return Word(54 + 4 * static_cast<uint8_t>(bytes[place]));
    }
};

class Mail : public testing_support::DeskTest {
  protected:
    // A note with one diagonal in each band of three; colours as given.
    void PutNote(const std::vector<ink::ColorRef>& colors) {
        ink::InkPage page;
        page.bandHeight = kHeight;
        page.background = 0xF0FFFF;
        for (size_t i = 0; i < colors.size(); ++i) {
            const int top = 20 + static_cast<int>(i) * 600 / static_cast<int>(colors.size());
            const ink::Point points[] = {{10, top}, {100, top + 30}, {200, top + 7}};
            page.AddStroke(points, 3, top, top + 30, colors[i]);
        }
        ink::MemorySink sink;
        ink::WriteNote(sink, page);
        device.files.Put(L"\\a.ikw", std::string(sink.Bytes().begin(), sink.Bytes().end()));
    }
    void Send() {
        Then([this] { Desk().Command(IDM_SEND_EMAIL); });
        Then(Close());
        Run(L"\\a.ikw");
    }
    // What the editor would show of the whole note.
    void Paint(std::vector<uint32_t>& pixels, int width, int height) {
        const auto page = ReadBack(L"\\a.ikw", kHeight);
        pixels.resize(static_cast<size_t>(width) * static_cast<size_t>(height));
        ink::PixelSurface surface{pixels.data(), width, height, width};
        ink::InkPainter painter;
        painter.SetPen(ink::PenStyle::Smooth, 2.0);
        painter.Repaint(surface, *page, 0, surface.Bounds());
    }
};

TEST_F(Mail, ThePictureShowsTheWholeNote) {
    device.SetSetting(L"PenInfo", 0x00020014);
    std::vector<ink::ColorRef> many;
    for (uint32_t i = 0; i < 40; ++i) many.push_back(ink::MakeColor(i * 6, 255 - i * 6, i % 2 * 200));
    for (const std::vector<ink::ColorRef>& colors :
         {std::vector<ink::ColorRef>{0, 0x0000C0, 0xC04000}, many}) {
        PutNote(colors);
        Send();
        ASSERT_EQ(device.mailed.back(), kPicture);
        const Bmp bmp(device.files.Get(kPicture));
        ASSERT_EQ(bmp.width, 224);
        ASSERT_GT(bmp.height, 430);
        std::vector<uint32_t> pixels;
        Paint(pixels, bmp.width, bmp.height);
        int worst = 0;
        const int lineTop = bmp.height - 24;
        for (int y = 0; y < lineTop; ++y) {
            for (int x = 0; x < bmp.width; ++x) {
                const uint32_t wanted = pixels[static_cast<size_t>(y * bmp.width + x)];
                for (int shift = 0; shift < 24; shift += 8) {
                    const int difference = static_cast<int>(bmp.Pixel(x, y) >> shift & 255) -
                                           static_cast<int>(wanted >> shift & 255);
                    worst = std::max(worst, std::abs(difference));
                }
            }
        }
        EXPECT_LE(worst, colors.size() <= 3 ? 8 : 48) << colors.size() << " colours";
        int line = 0;
        for (int y = lineTop; y < bmp.height; ++y) {
            for (int x = 0; x < bmp.width; ++x) line += bmp.Pixel(x, y) != 0xFFFFF0 ? 1 : 0;
        }
        EXPECT_GT(line, 50) << "the program's line";
    }
}

TEST_F(Mail, WhatCannotBeSent) {
    const auto lastMessage = [this] {
        return Desk().messages.empty() ? L""
                                       : Desk().messages.back().text + L"|" + Desk().messages.back().caption;
    };
    PutNote({});
    Send();
    EXPECT_EQ(lastMessage(), L"Cannot send empty notes!| Error");

    PutNote({0});
    for (const FileCall call : {FileCall::Create, FileCall::Write}) {
        device.files.fault = [call](FileCall made, const std::wstring& path) {
            return made == call && path == kPicture ? FileError::Other : FileError::None;
        };
        Desk().messages.clear();
        Send();
        EXPECT_EQ(lastMessage(), L"Creating temporary file failed!| Memory Error");
        EXPECT_FALSE(device.files.Has(kPicture));
    }
    device.files.fault = nullptr;
    Desk().messages.clear();
    Then([this] {
        device.picturesLeft = 0;
        Desk().Command(IDM_SEND_EMAIL);
        device.picturesLeft = 1000;
    });
    Then(Close());
    Run(L"\\a.ikw");
    EXPECT_EQ(lastMessage(), L"Creating temporary file failed!| Memory Error");
    EXPECT_TRUE(device.mailed.empty());
}

}  // namespace
