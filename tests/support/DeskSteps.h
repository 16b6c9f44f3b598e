// More words for scripts at a device in memory; notes, and what is on their pages.
#pragma once

#include <algorithm>
#include <utility>

#include "platform/host/HostWindow.h"
#include "tests/support/DeskTest.h"
#include "tests/support/FaultSweep.h"

namespace testing_support {

using ink::Point;
using platform::host::FileCall;
using Picture = std::vector<uint32_t>;
using Trace = std::vector<Point>;

constexpr int kNoStroke = -1;

// The file of a note on white paper: in each slot one dot in column 100 of this page row, or none.
inline std::string NoteOfDots(const std::vector<int32_t>& rows, int32_t bandHeight) {
    std::string note = Words({5, 0xFFFFFF, static_cast<int32_t>(rows.size()), bandHeight});
    for (const int32_t y : rows) note += y == kNoStroke ? Words({0}) : Words({1, 1, 0, 0, 0, y, y, 100, y});
    return note;
}

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
    for (const ink::StrokeRecord* record : Records(page))
        traces.emplace_back(record->Points(), record->Points() + record->count);
    return traces;
}

inline Trace Line(Point from, int steps) {
    Trace line;
    for (int i = 0; i <= steps; ++i) line.push_back({from.x + 4 * i, from.y});
    return line;
}

// For goldens: who changes a picture on purpose looks at it and takes its new number.
inline uint32_t Hash(const Picture& picture) {
    uint32_t hash = 2166136261;
    for (const uint32_t pixel : picture) hash = (hash ^ pixel) * 16777619;
    return hash;
}

// Each box that was shown was expected and looks like its kind: what loses something asks by the second
// button.
class DeskSteps : public DeskTest {
  protected:
    ~DeskSteps() override {
        CheckBoxes();
        EXPECT_EQ(Desk().outOfMemoryBoxes, shortages_);
        for (const auto& box : Desk().messages) {
            const auto begins = [&box](const wchar_t* text) { return box.text.find(text) == 0; };
            const bool asks = box.buttons != platform::MessageButtons::Ok || box.caption == L" Inkwright";
            const bool discards = box.text.find(L"Discard changes?") != std::wstring::npos;
            const bool isDone = begins(L"Alarm is successfully set!") || begins(L"Done!") ||
                                begins(L"Inkwright") || begins(L"All notes can be read.") ||
                                box.caption == L" Note Changed";
            EXPECT_EQ(box.icon == platform::MessageIcon::Question, asks && !discards);
            EXPECT_EQ(box.icon == platform::MessageIcon::Information, isDone);
            EXPECT_EQ(box.defaultButton == platform::DefaultButton::Second,
                      discards || begins(L"Contents will permanently") || begins(L"Destination folder"));
        }
    }
    // So often the user is to hear that memory is short.
    int shortages_ = 0;

    static Script All(std::initializer_list<Script> parts) {
        Script script;
        for (const Script& part : parts) script.insert(script.end(), part.begin(), part.end());
        return script;
    }

    Step Ok() { return Press(platform::kIdOk); }
    Step Scroll(platform::ScrollCode code, int thumb = 0) {
        return [=] { Desk().Scroll(code, thumb); };
    }
    Step Resize(int width, int height) {
        return [=] { Desk().Resize({width, height}); };
    }
    Step ExpectMenu(const Texts& entries) {
        return [=] { EXPECT_EQ(hand.Menu(), entries); };
    }
    Step ExpectErase(platform::MessageAnswer answer) {
        return ExpectBox(L"Notes will be completely erased. Continue?", L" Confirm Full Erase", answer);
    }
    Step ExpectPicture(uint32_t golden) {
        return [=] { EXPECT_EQ(Hash(ShownPixels()), golden); };
    }
    Step PaintAnew() {
        return [=] { Desk().Top()->Invalidate(); };
    }
    Step Turn(int item, int16_t position) {
        return [=] { Desk().Turn(item, position); };
    }
    Step ExpectChoice(int item, int index) {
        return [=] { EXPECT_EQ(Dialog().Choice(item), index); };
    }
    Step ExpectSpin(int item, uint32_t position, bool isEnabled = true) {
        return [=] {
            EXPECT_EQ(Dialog().Spin(item), position);
            EXPECT_EQ(IsItemEnabled(item), isEnabled);
        };
    }
    Step ExpectFocus(int item) {
        return [=] { EXPECT_EQ(Dialog().Handle()->focusedItem, item); };
    }
    Step ExpectItem(int item, const std::wstring& text) {
        return [=] { EXPECT_EQ(Dialog().ItemText(item), text); };
    }
    // From now on so many calls of these kinds fail, for files whose path contains the text; Fail({}) mends
    // all. What is written down for the next start (".ikj", ".iki") is a net: it has tests of its own.
    Step Fail(const std::vector<FileCall>& kinds, int times = 1 << 30, const std::wstring& in = L"") {
        return [=] {
            FailWhere(kinds, [=, left = times](const std::wstring& path) mutable {
                return path.find(in) != std::wstring::npos && left-- > 0;
            });
        };
    }
    // Runs with every file call of these kinds failing in turn, see SweepFaults.
    int SweepFiles(const std::vector<FileCall>& kinds, const std::function<void(Fault&)>& run) {
        return SweepFaults([&](Fault& fault) {
            FailWhere(kinds, [&](const std::wstring&) { return fault.Strikes(); });
            run(fault);
            device.files.fault = nullptr;
        });
    }
    void FailWhere(const std::vector<FileCall>& kinds, std::function<bool(const std::wstring&)> fails) {
        device.files.fault = [kinds, fails = std::move(fails)](FileCall call, const std::wstring& path) {
            const bool isNet = path.find(L".ik", path.size() - 4) != std::wstring::npos &&
                               path.back() != L'w' && path.back() != L'~';
            const bool isListed = call == FileCall::List && path.find(L"\\Temp") != std::wstring::npos;
            const bool isMeant = std::find(kinds.begin(), kinds.end(), call) != kinds.end();
            const bool isFailing = isMeant && !isNet && !isListed && fails(path);
            return isFailing ? platform::FileError::Other : platform::FileError::None;
        };
    }
    // All memory for pictures but for some is in use until the step is over.
    Step WithPictures(int left, const Step& step) {
        return [=] {
            const int before = std::exchange(device.picturesLeft, left);
            step();
            device.picturesLeft = before;
        };
    }

    platform::Dialog& Dialog() { return dynamic_cast<platform::Dialog&>(*Desk().Top()); }
    Picture ShownPixels() { return {Shown().pixels, Shown().pixels + Shown().width * Shown().height}; }
};

}  // namespace testing_support
