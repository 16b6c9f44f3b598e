// The editor over one note. Whatever a test looks at, what is shown is compared with a repaint of what is
// saved.
#pragma once

#include "ink/InkPainter.h"
#include "res/resource.h"
#include "tests/support/DeskSteps.h"

namespace testing_support {

constexpr int kViewWidth = 224;
constexpr int kViewHeight = 268;
constexpr wchar_t kNote[] = L"\\Ink\\a.ikw";

class EditorTest : public DeskSteps {
  protected:
    EditorTest() { PutNote({}); }

    void PutNote(const std::vector<int32_t>& rows) { device.files.Put(kNote, NoteOfDots(rows, kViewHeight)); }
    void UsePenOf(ink::PenStyle style, uint32_t tenths) {
        device.SetSetting(L"PenInfo", 0x7F000000 | static_cast<uint32_t>(style) << 16 | tenths);
        style_ = style;
        width_ = tenths * 0.1;
    }

    // Runs the script on the note and closes it; the page as it was saved.
    std::unique_ptr<ink::InkPage> Edited(const Script& script) {
        Run(kNote, All({script, {Close()}}));
        auto page = ReadBack(kNote, kViewHeight);
        EXPECT_TRUE(shown_ == Repainted(*page, position_)) << "a repaint shows something else";
        return page;
    }
    std::unique_ptr<ink::InkPage> Written(const Script& script) {
        PutNote({});
        return Edited(script);
    }
    std::vector<int> RowsAt(const std::wstring& path) { return Rows(*ReadBack(path)); }

    // A drag with the tool in use, of which the device tells in batches. The last place is reached before the
    // lift, so a line is complete by then.
    Step Write(const Trace& trace) {
        return [=] {
            Desk().PenDown(trace.front());
            for (size_t i = 0; i < trace.size(); i += 50)
                Desk().PenMove(trace[std::min(i + 50, trace.size()) - 1],
                               Trace(trace.data() + i, trace.data() + std::min(i + 50, trace.size())));
            const Picture live = ShownPixels();
            Desk().PenUp(trace.back());
            EXPECT_FALSE(Desk().Top()->HasPen());
            // A tap shows when it ends, and so does the end dot of the classic pen.
            const bool isTap = trace.size() == 1;
            EXPECT_TRUE(!hand.Tool(IDM_PEN).checked || isTap || style_ == ink::PenStyle::Classic ||
                        live == ShownPixels());
        };
    }
    Step Close() {
        return [this] {
            shown_ = ShownPixels();
            position_ = Desk().Top()->GetScroll().position;
            Desk().Command(platform::kIdOk);
        };
    }
    Step ExpectDiscard(const std::wstring& path, platform::MessageAnswer answer) {
        return ExpectBox(L"Saving '" + path + L"' failed!\nDiscard changes?", L" Error", answer);
    }
    // These stand together in the frame's menu; the first one is chosen.
    Step ExpectFrameMenu(const Texts& entries) {
        return [=] {
            hand.ChooseEntries({entries.front()});
            Desk().OpenFrameMenu();
            const Texts& all = hand.Menu();
            EXPECT_NE(std::search(all.begin(), all.end(), entries.begin(), entries.end()), all.end());
        };
    }
    Step ExpectPosition(int row) {
        return [=] { EXPECT_EQ(Desk().Top()->GetScroll().position, row); };
    }
    Step ExpectMaximum(int row) {
        return [=] { EXPECT_EQ(Desk().Top()->GetScroll().maximum, row); };
    }
    Step ExpectRepaint(int row) {
        return [=] { EXPECT_TRUE(ShownPixels() == Repainted(*ReadBack(kNote), row)) << "at row " << row; };
    }
    Step ExpectInk(const Trace& there, const Trace& notThere = {}) {
        return [=] {
            for (const Point place : there) EXPECT_NE(hand.PixelAt(place), 0xFFFFFFu) << place.x;
            for (const Point place : notThere) EXPECT_EQ(hand.PixelAt(place), 0xFFFFFFu) << place.x;
        };
    }
    Picture Repainted(const ink::InkPage& page, int row) {
        const ink::Rect view = Desk().scale.ToSurface({0, 0, kViewWidth, kViewHeight});
        Picture pixels(static_cast<size_t>(view.right) * static_cast<size_t>(view.bottom));
        ink::PixelSurface surface{pixels.data(), view.right, view.bottom, view.right};
        ink::InkPainter painter;
        painter.SetPen(style_, width_, Desk().scale);
        painter.Repaint(surface, page, row, surface.Bounds());
        return pixels;
    }

  private:
    ink::PenStyle style_ = ink::PenStyle::Smooth;
    double width_ = 1.0;
    Picture shown_;  // when the editor closed
    int position_ = 0;
};

}  // namespace testing_support
