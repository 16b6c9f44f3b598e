#include "platform/qt/ModalRun.h"

#include <QEventLoop>

#include "platform/qt/Application.h"

namespace platform::qt {

namespace {

void Show(Window::Impl& state) {
    if (state.opensMaximised) {
        state.frame->showMaximized();
    } else if (state.opensFullScreen) {
        state.frame->showFullScreen();
    } else {
        state.frame->show();
    }
    if (state.sizing) state.sizing->FillMonitor(*state.frame);
    state.frame->raise();
    state.frame->activateWindow();
    if (!state.focusPlaced && state.hasOwnFocus) (state.control ? state.control : state.page)->setFocus();
}

void HandleEvents(Window::Impl& state) {
    QEventLoop loop;
    state.loop = &loop;
    while (!state.ended) loop.exec();
    state.loop = nullptr;
}

}  // namespace

int OpenAndRun(Window& window) {
    Window::Impl& state = *window.Handle();
    Window* owner = state.owner;
    {
        const OpenHere open(window);
        bool opens = false;
        Guarded(window, [&] { opens = window.OnCreate(); });
        if (!opens || Application::The().IsEnding()) state.ended = true;
        if (!state.ended) {
            Show(state);
            state.running = true;
            HandleEvents(state);
            state.running = false;
        }
        CloseWindow(window);
    }
    if (state.takenOver) PassTakeOverOn(owner);
    return state.result;
}

int CannotOpen(Window* owner) {
    ShowOutOfMemory(owner);
    return -1;
}

void TakeOver(Window& window) {
    Window::Impl& state = *window.Handle();
    if (state.ended || !Application::The().IsOnTop(window)) return;
    Guarded(window, [&] { window.OnTakeOver(); });
    state.takenOver = state.ended;
}

void PassTakeOverOn(Window* owner) {
    if (!owner || !owner->Exists()) return;
    QMetaObject::invokeMethod(
        owner->Handle()->frame, [owner] { TakeOver(*owner); }, Qt::QueuedConnection);
}

}  // namespace platform::qt
