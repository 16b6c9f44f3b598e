#include "app/OtherCopies.h"

#include "app/CommandLine.h"
#include "platform/Clock.h"
#include "platform/Shell.h"
#include "platform/Window.h"

namespace app {

namespace {

constexpr int kRounds = 3;
constexpr uint32_t kRoundMilliseconds = 500;

bool AskOpenWindowsToClose() {
    bool found = false;
    for (const platform::OtherWindow& window : platform::WindowsOfOtherCopies()) {
        if (!window.enabled) continue;
        platform::PostCommandTo(window, platform::kIdOk);
        found = true;
    }
    return found;
}

void TakeOverFromForegroundCopy() {
    for (const platform::OtherWindow& window : platform::WindowsOfOtherCopies()) {
        if (!window.enabled || !window.foreground) continue;
        platform::PostPrivateMessageTo(window, platform::kTakeOver);
        return;
    }
}

}  // namespace

void MakeRoom(const StartRequest& request) {
    if (request.manageMode || request.target.empty()) {
        TakeOverFromForegroundCopy();
        return;
    }
    for (int round = 0; round < kRounds && AskOpenWindowsToClose(); ++round) {
        if (round + 1 < kRounds) platform::Pause(kRoundMilliseconds);
    }
}

}  // namespace app
