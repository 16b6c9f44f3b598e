#include "platform/windows/DialogEvents.h"

#include "platform/windows/HandheldPlace.h"
#include "platform/windows/MonthTaps.h"
#include "platform/windows/ScreenScale.h"

namespace platform::windows {

namespace {

// Buttons and commands sent by hand go to OnCommand; other controls report a change of their content.
bool ControlEvent(Window& window, HWND handle, WPARAM wParam, LPARAM lParam) {
    const WORD code = HIWORD(wParam);
    const bool isCommand = lParam == 0 || code == BN_CLICKED;
    if (isCommand) return DispatchEvent(window, handle, WM_COMMAND, wParam, lParam);
    const LRESULT kind = SendMessageW(reinterpret_cast<HWND>(lParam), WM_GETDLGCODE, 0, 0);
    const bool isButton = (kind & DLGC_BUTTON) != 0;
    const bool changed = code == EN_CHANGE || code == CBN_SELCHANGE || code == CBN_EDITCHANGE;
    const Window::Impl& state = *window.Handle();
    if (changed && !isButton && !state.fillingControls && !state.ended)
        Guarded(window, [&] { window.OnControlChanged(LOWORD(wParam)); });
    return changed;
}

}  // namespace

void Centre(HWND dialog) {
    RECT place{};
    GetWindowRect(dialog, &place);
    const SIZE size{place.right - place.left, place.bottom - place.top};
    const HWND owner = GetWindow(dialog, GW_OWNER);
    RECT around{};
    POINT corner = CentredPlace(size);
    if (owner && GetWindowRect(owner, &around)) {
        corner = {(around.left + around.right - size.cx) / 2, (around.top + around.bottom - size.cy) / 2};
    }
    const RECT onMonitor = OntoMonitor(dialog, {corner.x, corner.y, corner.x + size.cx, corner.y + size.cy});
    SetWindowPos(dialog, nullptr, onMonitor.left, onMonitor.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

INT_PTR OpenDialog(HWND handle, Window& window) {
    Attach(handle, &window);
    Window::Impl& state = *window.Handle();
    state.frame = state.page = handle;
    state.scale = ScaleFor(DotsAt(handle));
    WatchMonthTaps(handle);
    bool opens = false;
    Guarded(window, [&] { opens = window.OnCreate(); });
    if (!opens) state.ended = true;
    return state.focusPlaced ? FALSE : TRUE;
}

INT_PTR DialogEvent(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowOf(handle);
    if (!window) return FALSE;
    Window::Impl& state = *window->Handle();
    switch (message) {
        case WM_CLOSE:
            return DispatchEvent(*window, handle, WM_COMMAND, kIdCancel, 0);
        case WM_COMMAND:
            return ControlEvent(*window, handle, wParam, lParam);
        case WM_NOTIFY: {
            const NMHDR& notice = *reinterpret_cast<const NMHDR*>(lParam);
            const bool changed = notice.code == DTN_DATETIMECHANGE && !state.fillingControls;
            if (changed) Guarded(*window, [&] { window->OnControlChanged(static_cast<int>(notice.idFrom)); });
            return FALSE;
        }
        case WM_DPICHANGED:  // the system enlarges the dialog and its controls
            state.scale = ScaleFor(LOWORD(wParam));
            window->Invalidate();
            return FALSE;
        case WM_ENDSESSION:
            if (wParam && !state.ended) Guarded(*window, [&] { window->OnSessionEnd(); });
            return TRUE;
        case WM_DESTROY:
            Guarded(*window, [&] { window->OnDestroy(); });
            return FALSE;
        case WM_NCDESTROY:
            Attach(handle, nullptr);
            state.frame = state.page = nullptr;
            state.ended = true;
            return FALSE;
        case WM_VSCROLL:
            return FALSE;  // the dialog's controls have it
        default:
            return DispatchEvent(*window, handle, message, wParam, lParam);
    }
}

}  // namespace platform::windows
