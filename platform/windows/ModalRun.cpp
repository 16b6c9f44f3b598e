#include "platform/windows/ModalRun.h"

namespace platform::windows {

namespace {

void HandleMessages(Window& window, KeyNavigation keys) {
    Window::Impl& state = *window.Handle();
    while (!state.ended) {
        if (state.takenOver) {
            TakeOver(window);
            if (state.ended) return;
        }
        MSG message;
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == -1) return;
        if (got == 0) {  // the end of the program: for the loops outside this one too
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (TakeShortcut(window, message)) continue;
        if (keys == KeyNavigation::Dialog && IsDialogMessageW(state.frame, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// Where the system keeps a window from coming to the front, its task bar button flashes until it does.
void BringToFront(HWND frame) {
    if (SetForegroundWindow(frame)) return;
    FLASHWINFO flash{sizeof flash, frame, FLASHW_ALL | FLASHW_TIMERNOFG, 0, 0};
    FlashWindowEx(&flash);
}

}  // namespace

DisabledOwner::DisabledOwner(HWND owner) : owner_(owner && IsWindowEnabled(owner) ? owner : nullptr) {
    if (owner_) EnableWindow(owner_, FALSE);
}

DisabledOwner::~DisabledOwner() {
    if (owner_) EnableWindow(owner_, TRUE);
}

int RunToEnd(Window& window, HWND owner, KeyNavigation keys) {
    Window::Impl& state = *window.Handle();
    {
        const DisabledOwner disabled(owner);
        if (!state.ended) {
            ShowWindow(state.frame, SW_SHOW);
            BringToFront(state.frame);
            UpdateWindow(state.page);
        }
        state.running = true;
        HandleMessages(window, keys);
        state.running = false;
    }
    if (state.takenOver) PassTakeOverOn(owner);
    return GiveUp(window);
}

int GiveUp(Window& window) {
    Window::Impl& state = *window.Handle();
    if (state.frame) DestroyWindow(state.frame);
    state.frame = state.page = nullptr;
    return state.result;
}

int CannotOpen(HWND owner) {
    ShowOutOfMemory(owner ? WindowOf(owner) : nullptr);
    return -1;
}

void PassTakeOverOn(HWND owner) {
    Window* window = owner ? WindowOf(owner) : nullptr;
    if (!window) return;
    window->Handle()->takenOver = true;
    PostMessageW(owner, WM_NULL, 0, 0);
}

}  // namespace platform::windows
