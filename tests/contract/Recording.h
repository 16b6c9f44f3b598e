// Windows of the contract tests: they write down what reaches them.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/contract/Driver.h"

namespace contract {

// Records every event as a short text and can be given something to do in a command.
template <typename Kind>
class Recording : public Kind {
  public:
    using Kind::Kind;

    std::vector<std::string> log;
    std::function<bool()> create;
    std::function<void(int)> command;
    std::function<void()> penMove;
    bool capturesPen = false;
    bool leaves = true;  // when another copy takes over
    int timers = 0;

    bool OnCreate() override { return !create || create(); }
    void OnDestroy() override { log.emplace_back("destroy"); }
    void OnPenDown(platform::Point place) override {
        if (capturesPen) this->CapturePen();
        Write("down", place);
        lastPlace_ = place;
    }
    void OnPenMove(platform::Point place) override {
        // A system may repeat the last position; that is no movement.
        if (place != lastPlace_) Write("move", place);
        if (place != lastPlace_ && penMove) penMove();
        lastPlace_ = place;
    }
    void OnPenUp(platform::Point place) override { Write("up", place); }
    void OnCaptureLost() override { log.emplace_back("lost"); }
    void OnTimer(int id) override {
        ++timers;
        if (command) command(-id);
    }
    void OnScroll(platform::ScrollCode code, int position) override {
        Write("scroll", {static_cast<int>(code), position});
    }
    bool OnKeyDown(platform::Key key) override {
        log.push_back("key " + std::to_string(static_cast<int>(key)));
        return false;
    }
    bool OnShortcut(wchar_t letter) override {
        log.push_back(std::string("shortcut ") + static_cast<char>(letter));
        return true;
    }
    void OnCommand(int id) override {
        log.push_back("command " + std::to_string(id));
        if (command) {
            command(id);
        } else {
            this->EndModal(id);
        }
    }
    void OnControlChanged(int id) override { log.push_back("changed " + std::to_string(id)); }
    void OnPrivateMessage(uint32_t code, intptr_t payload) override {
        Write("private", {static_cast<int>(code), static_cast<int>(payload)});
    }

    void OnTakeOver() override {
        log.emplace_back("take over");
        if (leaves) this->EndModal(9);
    }

  private:
    platform::Point lastPlace_;

    void Write(const char* what, platform::Point numbers) {
        log.push_back(std::string(what) + " " + std::to_string(numbers.x) + " " + std::to_string(numbers.y));
    }
};

class WindowContract : public testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(driver_.AllStepsDone()) << "a window ended before its script"; }

    // Opens the screen, does the steps one after another, closes it.
    template <typename... Steps>
    int Run(Recording<platform::Screen>& screen, Steps... steps) {
        (driver_.Then(steps), ...);
        driver_.Then([&screen] { screen.EndModal(100); });
        return screen.RunModal(nullptr);
    }

    Driver driver_;
};

}  // namespace contract
