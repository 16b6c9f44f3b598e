#pragma once

#include "platform/Dialog.h"
#include "platform/Popup.h"
#include "platform/Screen.h"
#include "res/resource.h"
#include "tests/contract/OnDevice.h"

namespace contract {

// Records every event as a short text and can be given something to do in a command.
template <typename Kind>
class Recording : public Kind {
  public:
    using Kind::Kind;

    std::vector<std::string> log;
    std::function<bool()> create;
    std::function<void(int)> command;
    bool leaves = true;     // when another copy takes over
    size_t penSamples = 0;  // takes the pen and reads so many of what the system merged into a move
    std::vector<platform::Point> samples;
    std::vector<platform::Point> moves;  // a system may repeat the last position

    bool OnCreate() override { return !create || create(); }
    void OnDestroy() override { Write("destroy"); }
    void OnPenDown(platform::Point place) override {
        if (penSamples > 0) this->CapturePen();
        Write("down", place.x, place.y);
    }
    void OnPenMove(platform::Point place) override {
        if (!this->HasPen()) return;
        const size_t before = samples.size();
        samples.resize(before + penSamples);
        samples.resize(before + this->PenSamples(samples.data() + before, penSamples));
        moves.push_back(place);
    }
    void OnPenUp(platform::Point place) override { Write("up", place.x, place.y); }
    void OnCaptureLost() override { Write("lost"); }
    void OnTimer(int id) override { Write("timer", id); }
    void OnScroll(platform::ScrollCode code, int position) override {
        Write("scroll", static_cast<int>(code), position);
    }
    bool OnKeyDown(platform::Key key) override {
        if (key != platform::Key::Other) Write("key", static_cast<int>(key));
        return false;
    }
    bool OnShortcut(wchar_t letter) override {
        Write("shortcut", letter);
        return true;
    }
    void OnCommand(int id) override {
        Write("command", id);
        command ? command(id) : this->EndModal(id);
    }
    void OnControlChanged(int id) override { Write("changed", id); }
    void OnPrivateMessage(uint32_t code, intptr_t payload) override {
        Write("private", static_cast<int>(code), static_cast<int>(payload));
    }
    void OnTakeOver() override {
        Write("take over");
        if (leaves) this->EndModal(9);
    }

  protected:
    template <typename... Numbers>
    void Write(std::string event, Numbers... numbers) {
        ((event += " " + std::to_string(numbers)), ...);
        log.push_back(event);
    }
};

using TestScreen = Recording<platform::Screen>;
using TestDialog = Recording<platform::Dialog>;

class Contract : public testing::Test, protected HasDevice, public testing_support::Steps {
  protected:
    Contract() : Steps(device_.Hand()) {}
    void TearDown() override { EXPECT_TRUE(hand_.IsDone()) << "a window ended before its script"; }

    void Run(const Script& script) {
        Play(script);
        hand_.Then([this] { screen_.EndModal(0); });
        screen_.RunModal(nullptr);
    }
    int RunDialog(platform::Dialog& dialog, const Script& script) {
        Play(script);
        return dialog.RunModal(nullptr);
    }
    void RunCommand(const std::function<void()>& act) {
        screen_.command = [&](int) { act(); };
        Run({Post(screen_, 1)});
    }
    Step Post(platform::Window& window, int command) {
        return [&window, command] { window.PostCommand(command); };
    }
    Step ExpectPixel(platform::Point place, uint32_t color) {
        return [=] { EXPECT_EQ(hand_.PixelAt(place), color) << place.x << " " << place.y; };
    }

    TestScreen screen_{platform::Screen::ScrollBar::Vertical};
};

}  // namespace contract
