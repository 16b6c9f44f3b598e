// More words for scripts at a device in memory: the pen bit by bit, scrolling, time, dialogs and failing
// files.
#pragma once

#include <algorithm>
#include <utility>

#include "platform/host/HostWindow.h"
#include "tests/support/FaultSweep.h"
#include "tests/support/Pages.h"

namespace testing_support {

using Picture = std::vector<uint32_t>;

// A picture in a number, for goldens: who changes a picture on purpose looks at it and takes its new number.
inline uint32_t Hash(const Picture& picture) {
    uint32_t hash = 2166136261;
    for (const uint32_t pixel : picture) hash = (hash ^ pixel) * 16777619;
    return hash;
}

// After each test, the boxes that were shown are those that its scripts expected, and each looks like its
// kind: what loses something for good asks twice by its default button.
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
                                begins(L"Inkwright") || begins(L"All notes can be read.");
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
    Step Move(Point place, const Trace& samples = {}) {
        return [=] { Desk().PenMove(place, samples); };
    }
    Step Up(Point place, const Trace& samples = {}) {
        return [=] { Desk().PenUp(place, samples); };
    }
    Step TakePenAway() {
        return [=] { Desk().TakePenAway(); };
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
    Step TakeOver() {
        return [=] { Desk().PrivateMessage(platform::kTakeOver); };
    }
    Step ShowPage(size_t index) {
        return [=] { Desk().ShowPage(index); };
    }
    Step Choose(int item, int index) {
        return [=] { Desk().Choose(item, index); };
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
    Step Fail(const std::vector<platform::host::FileCall>& failing, int times = 1 << 30,
              const std::wstring& in = L"") {
        return [=] {
            FailWhere([=, left = times](platform::host::FileCall call, const std::wstring& path) mutable {
                const bool isMeant = std::find(failing.begin(), failing.end(), call) != failing.end();
                return isMeant && path.find(in) != std::wstring::npos && left-- > 0;
            });
        };
    }
    // Runs with every file call of these kinds failing in turn, see SweepFaults.
    int SweepFiles(const std::vector<platform::host::FileCall>& kinds,
                   const std::function<void(Fault&)>& run) {
        return SweepFaults([&](Fault& fault) {
            FailWhere([&](platform::host::FileCall call, const std::wstring&) {
                const bool isMeant = std::find(kinds.begin(), kinds.end(), call) != kinds.end();
                return isMeant && fault.Strikes();
            });
            run(fault);
            device.files.fault = nullptr;
        });
    }
    void FailWhere(std::function<bool(platform::host::FileCall, const std::wstring&)> fails) {
        device.files.fault = [fails = std::move(fails)](platform::host::FileCall call,
                                                        const std::wstring& path) mutable {
            const bool isNet = path.find(L".ik", path.size() - 4) != std::wstring::npos &&
                               path.back() != L'w' && path.back() != L'~';
            const bool isListed =
                call == platform::host::FileCall::List && path.find(L"\\Temp") != std::wstring::npos;
            return !isNet && !isListed && fails(call, path) ? platform::FileError::Other
                                                            : platform::FileError::None;
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
