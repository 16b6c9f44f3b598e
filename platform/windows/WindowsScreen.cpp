#include <algorithm>

#include "platform/Screen.h"
#include "platform/windows/HandheldPlace.h"
#include "platform/windows/ModalRun.h"
#include "platform/windows/ToolBarImpl.h"
#include "platform/windows/TreeViewImpl.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

namespace windows {

namespace {

constexpr wchar_t kPageClass[] = L"InkwrightPage";
constexpr wchar_t kMenuBarClass[] = L"InkwrightMenuBar";
constexpr DWORD kFrameStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;

// The pen service waits for gestures before it passes a press on, and draws rings around it. Ink must begin
// at once.
constexpr wchar_t kPenServiceProperty[] = L"MicrosoftTabletPenServiceProperty";
constexpr UINT_PTR kNoPressAndHold = 0x00000001;
constexpr UINT_PTR kNoTapFeedback = 0x00000008;
constexpr UINT_PTR kNoBarrelFeedback = 0x00000010;
constexpr UINT_PTR kNoFlicks = 0x00010000;

SIZE FrameSize() {
    const ScreenSize screen = HandheldScreen();
    RECT frame{0, 0, screen.width, screen.height - kBarHeight};
    AdjustWindowRectEx(&frame, kFrameStyle, FALSE, 0);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

// A handheld screen may be larger than the desktop, or too narrow for a caption.
void AllowAnySize(LPARAM lParam) {
    auto* limits = reinterpret_cast<MINMAXINFO*>(lParam);
    const SIZE size = FrameSize();
    limits->ptMinTrackSize = {1, 1};
    limits->ptMaxTrackSize = {size.cx, size.cy};
}

void RememberWindow(HWND handle, LPARAM lParam) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    Attach(handle, static_cast<Window*>(creation->lpCreateParams));
}

void EnableFrameEntries(Screen& screen) {
    const Window::Impl& state = *screen.Handle();
    for (const int command : state.frameCommands) {
        bool isOffered = false;
        Guarded(screen, [&] { isOffered = screen.OffersInFrame(command); });
        EnableMenuItem(GetSystemMenu(state.frame, FALSE), static_cast<UINT>(command),
                       static_cast<UINT>(MF_BYCOMMAND | (isOffered ? MF_ENABLED : MF_GRAYED)));
    }
}

LRESULT CALLBACK FrameProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETMINMAXINFO) AllowAnySize(lParam);
    if (message == WM_NCCREATE) RememberWindow(handle, lParam);
    Window* window = WindowOf(handle);
    if (!window) return DefWindowProcW(handle, message, wParam, lParam);
    Window::Impl& state = *window->Handle();
    switch (message) {
        case WM_GETMINMAXINFO:
            return 0;
        case WM_SETFOCUS:
            SetFocus(state.control ? state.control : state.page);
            return 0;
        case WM_CLOSE:
            DispatchEvent(*window, handle, WM_COMMAND, kIdOk, 0);
            return 0;
        case WM_INITMENUPOPUP:
            if (HIWORD(lParam) != 0) EnableFrameEntries(static_cast<Screen&>(*window));
            break;
        case WM_SYSCOMMAND: {
            const int command = static_cast<int>(wParam & 0xFFF0);  // the system uses the lowest bits
            const auto& commands = state.frameCommands;
            if (std::find(commands.begin(), commands.end(), command) == commands.end()) break;
            DispatchEvent(*window, handle, WM_COMMAND, static_cast<WPARAM>(command), 0);
            return 0;
        }
        case WM_ENDSESSION:
            if (wParam && !state.ended) Guarded(*window, [&] { window->OnSessionEnd(); });
            return 0;
        case WM_DESTROY:
            Guarded(*window, [&] { window->OnDestroy(); });
            return 0;
        case WM_NCDESTROY:
            Attach(handle, nullptr);
            state.frame = state.page = nullptr;
            state.ended = true;
            break;
        // The page covers the frame's client area: a pen or timer message sent to the frame means the page.
        case WM_LBUTTONDOWN:
        case WM_MOUSEMOVE:
        case WM_LBUTTONUP:
        case WM_TIMER:
            if (state.page) return SendMessageW(state.page, message, wParam, lParam);
            break;
        case WM_COMMAND:
        case WM_VSCROLL:
        case WM_KEYDOWN:
        case WM_MOUSEWHEEL:
        case kPrivateMessage:
            if (DispatchEvent(*window, handle, message, wParam, lParam)) return 0;
            break;
        default:
            break;
    }
    return DefWindowProcW(handle, message, wParam, lParam);
}

LRESULT CALLBACK PageProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) RememberWindow(handle, lParam);
    if (message == WM_ERASEBKGND) return 1;
    // A tree passes on what its label edit tells about itself; commands come without a control.
    if (message == WM_COMMAND && lParam != 0) return 0;
    if (message == WM_NOTIFY) return TreeNotice(*reinterpret_cast<NMHDR*>(lParam));
    if (message == WM_DESTROY) RemovePropW(handle, kPenServiceProperty);
    if (message == WM_NCDESTROY) Attach(handle, nullptr);
    Window* window = WindowOf(handle);
    if (window && DispatchEvent(*window, handle, message, wParam, lParam)) return 0;
    return DefWindowProcW(handle, message, wParam, lParam);
}

LRESULT CALLBACK MenuBarProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) RememberWindow(handle, lParam);
    auto* screen = static_cast<Screen*>(WindowOf(handle));
    if (screen && message == WM_COMMAND && DispatchEvent(*screen, handle, message, wParam, lParam)) return 0;
    if (screen && message == WM_NOTIFY && screen->Tools().Handle()) {
        screen->Tools().Handle()->GiveToolTip(*reinterpret_cast<NMHDR*>(lParam));
        return 0;
    }
    return DefWindowProcW(handle, message, wParam, lParam);
}

bool RegisterClasses() {
    return RegisterWindowClass(kScreenClass, FrameProcedure, 0, nullptr) &&
           RegisterWindowClass(kPageClass, PageProcedure, CS_OWNDC, nullptr) &&
           RegisterWindowClass(kMenuBarClass, MenuBarProcedure, 0,
                               reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
}

void SetIcon(HWND frame, WPARAM which, int widthMetric, int heightMetric) {
    const HANDLE icon = LoadImageW(Module(), MAKEINTRESOURCEW(kProgramIcon), IMAGE_ICON,
                                   GetSystemMetrics(widthMetric), GetSystemMetrics(heightMetric), LR_SHARED);
    if (icon) SendMessageW(frame, WM_SETICON, which, reinterpret_cast<LPARAM>(icon));
}

// A screen that opens over another one takes its place, as on the handheld.
POINT FramePlace(HWND owner) {
    RECT above{};
    if (owner && GetWindowRect(owner, &above)) return {above.left, above.top};
    return CentredPlace(FrameSize());
}

bool CreateWindows(Screen& screen, bool withScrollBar, HWND owner) {
    if (!RegisterClasses()) return false;
    const SIZE size = FrameSize();
    const POINT place = FramePlace(owner);
    Window::Impl& state = *screen.Handle();
    Window* object = &screen;
    state.frame = CreateWindowExW(0, kScreenClass, L"", kFrameStyle, place.x, place.y, size.cx, size.cy,
                                  owner, nullptr, Module(), object);
    if (!state.frame) return false;
    SetIcon(state.frame, ICON_BIG, SM_CXICON, SM_CYICON);
    SetIcon(state.frame, ICON_SMALL, SM_CXSMICON, SM_CYSMICON);

    const ScreenSize handheld = HandheldScreen();
    const int pageHeight = handheld.height - 2 * kBarHeight;
    const DWORD scrollStyle = withScrollBar ? WS_VSCROLL : 0;
    state.hasScrollBar = withScrollBar;
    state.page = CreateWindowExW(0, kPageClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | scrollStyle, 0,
                                 0, handheld.width, pageHeight, state.frame, nullptr, Module(), object);
    const HWND menuBar =
        CreateWindowExW(0, kMenuBarClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, pageHeight,
                        handheld.width, kBarHeight, state.frame, nullptr, Module(), object);
    if (!state.page || !menuBar) return false;
    if (withScrollBar) state.pointers = std::make_unique<PointerInput>(screen);  // it is written on
    SetPropW(state.page, kPenServiceProperty,
             reinterpret_cast<HANDLE>(kNoPressAndHold | kNoTapFeedback | kNoBarrelFeedback | kNoFlicks));
    return true;
}

}  // namespace

}  // namespace windows

Screen::Screen(ScrollBar scrollBar) : scrollBar_(scrollBar) {}
Screen::~Screen() = default;

int Screen::RunModal(Window* owner) {
    if (Exists()) return -1;
    *impl_ = Impl();
    const HWND ownerFrame = windows::FrameOf(owner);
    const bool made = windows::CreateWindows(*this, scrollBar_ == ScrollBar::Vertical, ownerFrame);
    if (!made) {
        if (impl_->frame) windows::Attach(impl_->frame, nullptr);
        windows::GiveUp(*this);
        return windows::CannotOpen(ownerFrame);
    }
    bool opens = false;
    windows::Guarded(*this, [&] { opens = OnCreate(); });
    const int result =
        opens ? windows::RunToEnd(*this, ownerFrame, windows::KeyNavigation::None) : windows::GiveUp(*this);
    tools_.Handle().reset();
    return result;
}

void Screen::AddToFrameMenu(int command, const std::wstring& text) {
    const HMENU menu = impl_->frame ? GetSystemMenu(impl_->frame, FALSE) : nullptr;
    if (!menu) return;
    const auto place = static_cast<UINT>(impl_->frameCommands.size());
    if (place == 0) InsertMenuW(menu, 0, MF_BYPOSITION | MF_SEPARATOR, 0, nullptr);
    InsertMenuW(menu, place, MF_BYPOSITION | MF_STRING, static_cast<UINT_PTR>(command), text.c_str());
    impl_->frameCommands.push_back(command);
}

bool Screen::CreateMenuBar(const ToolBarLayout& layout) {
    const HWND strip =
        impl_->frame ? FindWindowExW(impl_->frame, nullptr, windows::kMenuBarClass, nullptr) : nullptr;
    if (!strip) return false;
    auto tools = std::make_unique<ToolBar::Impl>();
    if (!tools->Create(strip, layout)) return false;
    tools_.Handle() = std::move(tools);
    return true;
}

}  // namespace platform
