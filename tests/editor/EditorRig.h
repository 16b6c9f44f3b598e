// The editor over one note on a device in memory. What it shows is compared with a repaint of what it saved,
// and the ink under the pen with the ink of a lift, whatever else a test looks at.
#pragma once

#include "ink/InkPainter.h"
#include "platform/host/HostWindow.h"
#include "res/resource.h"
#include "tests/support/DeskTest.h"

namespace testing_support {

constexpr int kViewWidth = 224;
constexpr int kViewHeight = 268;
constexpr wchar_t kNote[] = L"\\Ink\\a.ikw";
constexpr int kNoStroke = -1;

using ink::Point;
using Trace = std::vector<Point>;
using Picture = std::vector<uint32_t>;

class EditorTest : public DeskTest {
  protected:
    EditorTest() { PutNote({}); }
    ~EditorTest() override {
        CheckBoxes();
        EXPECT_EQ(Desk().outOfMemoryBoxes, shortages_);
        for (const auto& box : Desk().messages) {
            const bool isQuestion = box.text.find(L"Continue?") != std::wstring::npos;
            const bool isDone = box.text == L"Alarm is successfully set!";
            EXPECT_EQ(box.icon, isQuestion ? platform::MessageIcon::Question
                                : isDone   ? platform::MessageIcon::Information
                                           : platform::MessageIcon::Error);
            EXPECT_EQ(box.defaultButton == platform::DefaultButton::Second,
                      box.text.find(L"Discard changes?") != std::wstring::npos);
        }
    }

    // The note, on white paper: in each slot one dot in column 100 of this page row, or none.
    void PutNote(const std::vector<int32_t>& rows) {
        std::vector<int32_t> words{5, 0xFFFFFF, static_cast<int32_t>(rows.size()), kViewHeight};
        for (const int32_t y : rows) {
            const bool isEmpty = y == kNoStroke;
            for (const int32_t word :
                 isEmpty ? std::vector<int32_t>{0} : std::vector<int32_t>{1, 1, 0, 0, 0, y, y, 100, y})
                words.push_back(word);
        }
        device.files.Put(kNote, Words(words));
    }
    void UsePenOf(ink::PenStyle style, uint32_t tenths) {
        device.SetSetting(L"PenInfo", static_cast<uint32_t>(style) << 16 | tenths);
        style_ = style;
        width_ = tenths * 0.1;
    }

    // Runs the script on the note and closes it; the page as it was saved.
    std::unique_ptr<ink::InkPage> Edited(const Script& script) {
        Run(kNote, Joined(script, {Close()}));
        auto page = ReadBack(kNote, kViewHeight);
        EXPECT_TRUE(shown_ == Repainted(*page, position_)) << "a repaint shows something else";
        return page;
    }
    static Script Joined(Script script, const Script& more) {
        script.insert(script.end(), more.begin(), more.end());
        return script;
    }

    // Steps.
    Step Down(Point place) {
        return [=] { Desk().PenDown(place); };
    }
    Step Move(Point place, const Trace& samples = {}) {
        return [=] { Desk().PenMove(place, samples); };
    }
    Step Up(Point place, const Trace& samples = {}) {
        return [=] { Desk().PenUp(place, samples); };
    }
    // A drag with the tool in use, of which the device tells in batches. The last place is reached before the
    // lift, so a line is complete by then.
    Step Write(const Trace& trace) {
        return [=] {
            Desk().PenDown(trace.front());
            for (size_t i = 0; i < trace.size(); i += 50) {
                const auto end = trace.begin() + static_cast<std::ptrdiff_t>(std::min(i + 50, trace.size()));
                Desk().PenMove(end[-1], Trace(trace.begin() + static_cast<std::ptrdiff_t>(i), end - 1));
            }
            const Picture live = ShownPixels();
            Desk().PenUp(trace.back());
            if (IsChecked(IDM_PEN) && trace.size() > 1 && style_ != ink::PenStyle::Classic) {
                EXPECT_TRUE(live == ShownPixels()) << "the lift changed what was written";
            }
        };
    }
    Step Scroll(platform::ScrollCode code, int thumb = 0) {
        return [=] { Desk().Scroll(code, thumb); };
    }
    Step Wait(uint32_t milliseconds) {
        return [=] { Desk().PassTime(milliseconds); };
    }
    Step Shortcut(wchar_t letter) {
        return [=] { Desk().PressShortcut(letter); };
    }
    Step Close() {
        return [this] {
            shown_ = ShownPixels();
            position_ = Position();
            Desk().Command(platform::kIdOk);
        };
    }
    Step ExpectPosition(int row) {
        return [=] { EXPECT_EQ(Position(), row); };
    }
    Step ExpectMaximum(int row) {
        return [=] { EXPECT_EQ(Desk().Top()->GetScroll().maximum, row); };
    }
    // What is shown is the note as it lies on the disk, from this page row on.
    Step ExpectRepaint(int row) {
        return [=] { EXPECT_TRUE(ShownPixels() == Repainted(*ReadBack(kNote), row)) << "at row " << row; };
    }
    Step ExpectInk(std::vector<Point> there, std::vector<Point> notThere = {}) {
        return [=] {
            for (const Point place : there) EXPECT_NE(Shown().Row(place.y)[place.x], 0xFFFFFFu) << place.x;
            for (const Point place : notThere) EXPECT_EQ(Shown().Row(place.y)[place.x], 0xFFFFFFu) << place.x;
        };
    }
    // All memory for pictures is in use until the step is over.
    Step WithoutPictures(const Step& step) {
        return [=] {
            const int before = std::exchange(device.picturesLeft, 0);
            step();
            device.picturesLeft = before;
        };
    }

    // So often the user is to hear that memory is short.
    int shortages_ = 0;

    int Position() { return Desk().Top()->GetScroll().position; }
    bool IsChecked(int command) {
        platform::ToolBar* tools = Desk().Top()->Handle()->tools;
        return tools != nullptr && tools->IsChecked(command);
    }
    Picture ShownPixels() { return {Shown().pixels, Shown().pixels + Shown().width * Shown().height}; }
    // The page from this row on, painted anew.
    void Paint(ink::PixelSurface& surface, const ink::InkPage& page, int row) {
        ink::InkPainter painter;
        painter.SetPen(style_, width_);
        painter.Repaint(surface, page, row, surface.Bounds());
    }
    Picture Repainted(const ink::InkPage& page, int row) {
        Picture pixels(kViewWidth * kViewHeight);
        ink::PixelSurface surface{pixels.data(), kViewWidth, kViewHeight, kViewWidth};
        Paint(surface, page, row);
        return pixels;
    }

  private:
    ink::PenStyle style_ = ink::PenStyle::Smooth;
    double width_ = 1.0;
    Picture shown_;  // when the editor closed
    int position_ = 0;
};

// The records as they are drawn: from the highest slot to the lowest.
inline std::vector<const ink::StrokeRecord*> Records(const ink::InkPage& page) {
    std::vector<const ink::StrokeRecord*> records;
    for (size_t slot = page.SlotCount(); slot-- > 0;) {
        const ink::StrokeBand* band = page.Band(slot);
        for (size_t i = 0; band != nullptr && i < band->Count(); ++i) records.push_back(&band->At(i));
    }
    return records;
}

inline std::vector<int> Rows(const ink::InkPage& page) {
    std::vector<int> rows;
    for (const ink::StrokeRecord* record : Records(page)) rows.push_back(record->minY);
    return rows;
}

inline std::vector<Trace> Traces(const ink::InkPage& page) {
    std::vector<Trace> traces;
    for (const ink::StrokeRecord* record : Records(page)) traces.push_back(PointsOf(*record));
    return traces;
}

inline Trace Line(Point from, int steps) {
    Trace line;
    for (int i = 0; i <= steps; ++i) line.push_back({from.x + 4 * i, from.y});
    return line;
}

}  // namespace testing_support
