#include "platform/Popup.h"
#include "platform/Screen.h"
#include "platform/windows/HandheldPlace.h"
#include "platform/windows/ModalRun.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/SystemText.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

namespace {

using windows::Attach;
using windows::DispatchEvent;
using windows::WindowOf;

constexpr wchar_t kPopupClass[] = L"InkwrightPopup";
constexpr DWORD kPopupStyle = WS_POPUP | WS_BORDER;

bool IsOutside(HWND handle, LPARAM lParam) {
    RECT client{};
    GetClientRect(handle, &client);
    const POINT place = windows::PointIn(lParam);
    return !PtInRect(&client, place);
}

void Cancel(Window& window, HWND handle) { DispatchEvent(window, handle, WM_COMMAND, kIdCancel, 0); }

// True when the event means that the user turned away from the pop-up.
bool TurnsAway(const Window::Impl& state, HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!state.running || state.ended) return false;
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
            return IsOutside(handle, lParam);
        case WM_ACTIVATE:
            return LOWORD(wParam) == WA_INACTIVE;
        case WM_CLOSE:
            return true;
        default:
            return false;
    }
}

// The capture is what lets a press outside reach the pop-up.
void HoldPointer(const Window::Impl& state, HWND handle, UINT message) {
    const bool lost = message == WM_MOUSEMOVE || message == WM_LBUTTONUP;
    if (lost && state.running && !state.ended && GetCapture() != handle) SetCapture(handle);
}

LRESULT CALLBACK PopupProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        Attach(handle, static_cast<Window*>(creation->lpCreateParams));
    }
    Window* window = WindowOf(handle);
    if (!window) return DefWindowProcW(handle, message, wParam, lParam);
    Window::Impl& state = *window->Handle();
    if (TurnsAway(state, handle, message, wParam, lParam)) {
        Cancel(*window, handle);
        return 0;
    }
    HoldPointer(state, handle, message);
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_DESTROY:
            Guarded(*window, [&] { window->OnDestroy(); });
            return 0;
        case WM_NCDESTROY:
            Attach(handle, nullptr);
            state.frame = state.page = nullptr;
            state.ended = true;
            return DefWindowProcW(handle, message, wParam, lParam);
        default:
            break;
    }
    if (DispatchEvent(*window, handle, message, wParam, lParam)) return 0;
    if (message == WM_KEYDOWN && wParam == VK_ESCAPE) Cancel(*window, handle);
    return DefWindowProcW(handle, message, wParam, lParam);
}

// Window rectangle on the desktop for a client area with this bottom right corner, moved onto the
// handheld's screen.
RECT PopupPlace(HWND owner, Point corner, int width, int height) {
    const ScreenSize screen = owner ? HandheldScreen(*WindowOf(owner)) : HandheldScreen();
    const Rect client{corner.x - width, corner.y - height, corner.x, corner.y};
    RECT outer =
        windows::ToDesktop(owner, ink::MovedInto(client, {1, 1, screen.width - 1, screen.height - 1}));
    AdjustWindowRectEx(&outer, kPopupStyle, FALSE, 0);
    return windows::OntoMonitor(owner, outer);
}

}  // namespace

Popup::Popup() = default;
Popup::~Popup() = default;

int Popup::RunModal(Window* owner, const std::wstring& title, Point corner, int width, int height) {
    if (Exists()) return -1;
    *impl_ = Impl();
    const HWND ownerFrame = windows::FrameOf(owner);
    if (!windows::RegisterWindowClass(kPopupClass, PopupProcedure, CS_SAVEBITS, nullptr))
        return windows::CannotOpen(ownerFrame);
    const RECT place = PopupPlace(ownerFrame, corner, width, height);
    Window* object = this;
    const HWND handle = CreateWindowExW(WS_EX_TOOLWINDOW, kPopupClass, title.c_str(), kPopupStyle, place.left,
                                        place.top, place.right - place.left, place.bottom - place.top,
                                        ownerFrame, nullptr, windows::Module(), object);
    if (!handle) return windows::CannotOpen(ownerFrame);
    impl_->frame = impl_->page = handle;
    impl_->scale = windows::ScaleAt(windows::ScreenBelow(ownerFrame));
    bool opens = false;
    Guarded(*this, [&] { opens = OnCreate(); });
    if (!opens) return windows::GiveUp(*this);
    impl_->holdsPointer = true;
    SetCapture(handle);
    return windows::RunToEnd(*this, ownerFrame, windows::KeyNavigation::None);
}

}  // namespace platform
