#include "platform/windows/SystemDialog.h"

#include <utility>

#include "platform/windows/ModalRun.h"

namespace platform::windows {

namespace {

// A hook gets nothing to tell it whose it is; there is one innermost dialog for each thread.
thread_local SystemDialog* innermost = nullptr;

}  // namespace

SystemDialog::SystemDialog(Window* owner, WORD refusal)
    : owner_(FrameOf(owner)),
      refusal_(refusal),
      outer_(std::exchange(innermost, this)),
      hook_(SetWindowsHookExW(WH_GETMESSAGE, Look, nullptr, GetCurrentThreadId())) {}

SystemDialog::~SystemDialog() {
    if (hook_) UnhookWindowsHookEx(hook_);
    innermost = outer_;
    if (takenOver_) PassTakeOverOn(owner_);
}

LRESULT CALLBACK SystemDialog::Look(int code, WPARAM wParam, LPARAM lParam) {
    auto& message = *reinterpret_cast<MSG*>(lParam);
    const bool isTakeOver = code == HC_ACTION && wParam == PM_REMOVE && message.message == kPrivateMessage &&
                            message.wParam == kTakeOver && message.hwnd != innermost->owner_;
    if (isTakeOver) {
        innermost->takenOver_ = true;
        PostMessageW(message.hwnd, WM_COMMAND, innermost->refusal_, 0);
        message.message = WM_NULL;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace platform::windows
