#include <algorithm>
#include <utility>

#include "platform/Canvas.h"
#include "platform/Screen.h"
#include "platform/windows/HandheldPlace.h"
#include "platform/windows/Looks.h"
#include "platform/windows/ModalRun.h"
#include "platform/windows/ReaderNames.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/ToolBarImpl.h"
#include "platform/windows/TreeViewImpl.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

namespace windows {

namespace {

constexpr wchar_t kPageClass[] = L"InkwrightPage";
constexpr wchar_t kMenuBarClass[] = L"InkwrightMenuBar";

// The pen service waits for gestures before it passes a press on, and draws rings around it. Ink must begin
// at once.
constexpr wchar_t kPenServiceProperty[] = L"MicrosoftTabletPenServiceProperty";
constexpr UINT_PTR kNoPressAndHold = 0x00000001;
constexpr UINT_PTR kNoTapFeedback = 0x00000008;
constexpr UINT_PTR kNoBarrelFeedback = 0x00000010;
constexpr UINT_PTR kNoFlicks = 0x00010000;

SIZE FixedFrame(HWND like) {
    const ScreenSize screen = HandheldScreen();
    return FrameAroundPage({screen.width, screen.height - 2 * kBarHeight}, kFixedFrameStyle, like);
}

// A handheld screen may be larger than the desktop, or too narrow for a caption.
void LimitSizes(HWND frame, LPARAM lParam) {
    auto* limits = reinterpret_cast<MINMAXINFO*>(lParam);
    if (!HasFixedScreen()) {
        const SIZE least = LeastFrame(frame);
        limits->ptMinTrackSize = {least.cx, least.cy};
        return;
    }
    const SIZE size = FixedFrame(frame);
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

SIZE ClientSizeOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

int BarPixels(ink::Scale scale) { return static_cast<int>(scale.ToScreen(kBarHeight)); }

// The page fills the frame but for the menu bar at its foot.
void LayOut(Screen& screen) {
    const Window::Impl& state = *screen.Handle();
    const HWND strip = FindWindowExW(state.frame, nullptr, kMenuBarClass, nullptr);
    const SIZE room = ClientSizeOf(state.frame);
    const int bar = BarPixels(state.scale);
    const int pageHeight = std::max<int>(0, room.cy - bar);
    MoveWindow(state.page, 0, 0, room.cx, pageHeight, TRUE);
    MoveWindow(strip, 0, pageHeight, room.cx, bar, TRUE);
    if (screen.Tools().Handle()) screen.Tools().Handle()->Place(ClientSizeOf(strip), state.scale);
    // What moves along with the strip may be the page's pixels, which lay there before.
    RedrawWindow(strip, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// While a frame is minimised nothing changes for what is in it.
void FollowFrame(Screen& screen) {
    Window::Impl& state = *screen.Handle();
    if (!state.page || IsIconic(state.frame)) return;
    if (state.sizing) state.sizing->Follow(state.frame);
    if (!state.sizing && state.shownScale == state.scale) return;
    LayOut(screen);
    const SIZE size = ClientSizeOf(state.page);
    const bool isSame = size.cx == state.clientSize.cx && size.cy == state.clientSize.cy;
    if (isSame && state.shownScale == state.scale) return;
    state.clientSize = size;
    state.shownScale = state.scale;
    if (TreeView::Impl* tree = TreeOf(state.control)) tree->Rescale();
    if (!state.ended) Guarded(screen, [&] { screen.OnSize(); });
}

// The system says how large the frame is to be there, so that a pen's width away stays one.
void ChangeScale(Screen& screen, UINT dots, const RECT& frame) {
    Window::Impl& state = *screen.Handle();
    state.scale = ScaleFor(dots);
    SetWindowPos(state.frame, nullptr, frame.left, frame.top, frame.right - frame.left,
                 frame.bottom - frame.top, SWP_NOZORDER | SWP_NOACTIVATE);
    FollowFrame(screen);
    screen.Invalidate();
}

void FollowColors(Screen& screen) {
    Window::Impl& state = *screen.Handle();
    const HWND strip = FindWindowExW(state.frame, nullptr, kMenuBarClass, nullptr);
    ColorFrame(state.frame);
    if (screen.Tools().Handle()) screen.Tools().Handle()->Follow(ClientSizeOf(strip));
    if (!state.ended) Guarded(screen, [&] { screen.OnSize(); });
    RedrawWindow(state.frame, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

LRESULT CALLBACK FrameProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETMINMAXINFO) LimitSizes(handle, lParam);
    if (message == WM_NCCREATE) RememberWindow(handle, lParam);
    Window* window = WindowOf(handle);
    if (!window) return DefWindowProcW(handle, message, wParam, lParam);
    Window::Impl& state = *window->Handle();
    if (TellsOfColors(message, lParam) && state.page) FollowColors(static_cast<Screen&>(*window));
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
        case WM_MOVE:
        case WM_SIZE:
            FollowFrame(static_cast<Screen&>(*window));
            return 0;
        case WM_DPICHANGED:
            ChangeScale(static_cast<Screen&>(*window), LOWORD(wParam),
                        *reinterpret_cast<const RECT*>(lParam));
            return 0;
        case WM_DESTROY:
            if (state.sizing) Guarded(*window, [&] { state.sizing->Remember(); });
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

void EraseMenuBar(HWND strip, HDC dc) {
    RECT area{};
    GetClientRect(strip, &area);
    SetDCBrushColor(dc, ColorOf(SystemColor::BarFace));
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

// The tool bar is as dark as the menu bar below it.
bool LeavesErasing(const NMHDR& notice) {
    const auto& drawing = reinterpret_cast<const NMTBCUSTOMDRAW&>(notice).nmcd;
    if (notice.code != NM_CUSTOMDRAW || drawing.dwDrawStage != CDDS_PREERASE || !WantsDark()) return false;
    EraseMenuBar(notice.hwndFrom, drawing.hdc);
    return true;
}

LRESULT CALLBACK MenuBarProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ERASEBKGND) {
        EraseMenuBar(handle, reinterpret_cast<HDC>(wParam));
        return 1;
    }
    if (message == WM_NCCREATE) RememberWindow(handle, lParam);
    auto* screen = static_cast<Screen*>(WindowOf(handle));
    if (screen && message == WM_COMMAND && DispatchEvent(*screen, handle, message, wParam, lParam)) return 0;
    if (screen && message == WM_NOTIFY && screen->Tools().Handle()) {
        auto& notice = *reinterpret_cast<NMHDR*>(lParam);
        screen->Tools().Handle()->GiveToolTip(notice);
        return LeavesErasing(notice) ? CDRF_SKIPDEFAULT : CDRF_DODEFAULT;
    }
    return DefWindowProcW(handle, message, wParam, lParam);
}

bool RegisterClasses() {
    return RegisterWindowClass(kScreenClass, FrameProcedure, 0, nullptr) &&
           RegisterWindowClass(kPageClass, PageProcedure, CS_OWNDC, nullptr) &&
           RegisterWindowClass(kMenuBarClass, MenuBarProcedure, 0, nullptr);
}

void SetIcon(HWND frame, WPARAM which, int widthMetric, int heightMetric) {
    const HANDLE icon = LoadImageW(Module(), MAKEINTRESOURCEW(kProgramIcon), IMAGE_ICON,
                                   GetSystemMetrics(widthMetric), GetSystemMetrics(heightMetric), LR_SHARED);
    if (icon) SendMessageW(frame, WM_SETICON, which, reinterpret_cast<LPARAM>(icon));
}

// A screen that opens over another one takes its place, as on the handheld.
WindowPlace FixedPlace(HWND owner) {
    const SIZE size = FixedFrame(owner);
    RECT below{};
    POINT corner = CentredPlace(size);
    if (owner && GetWindowRect(owner, &below)) corner = {below.left, below.top};
    return {{corner.x, corner.y, corner.x + size.cx, corner.y + size.cy}, false};
}

// The frame, which of the two kinds it is, without anything in it.
bool CreateFrame(Screen& screen, const std::wstring& kind, HWND owner) {
    Window::Impl& state = *screen.Handle();
    const SizedFrame* below = owner ? WindowOf(owner)->Handle()->sizing.get() : nullptr;
    if (!HasFixedScreen()) state.sizing = std::make_unique<SizedFrame>(kind);
    const WindowPlace place = state.sizing ? state.sizing->PlaceToOpen(below) : FixedPlace(owner);
    const DWORD style = state.sizing ? kSizedFrameStyle : kFixedFrameStyle;
    Window* object = &screen;
    state.frame = CreateWindowExW(0, kScreenClass, L"", style | (place.isMaximised ? WS_MAXIMIZE : 0),
                                  place.frame.left, place.frame.top, place.frame.Width(),
                                  place.frame.Height(), owner, nullptr, Module(), object);
    if (state.frame && below && below->IsFullScreen()) state.sizing->ToggleFullScreen(state.frame);
    return state.frame != nullptr;
}

// A desktop that is too small for a fixed screen cuts the frame, but not what is in it.
SIZE RoomInFrame(const Window::Impl& state) {
    if (state.sizing) return ClientSizeOf(state.frame);
    const ScreenSize handheld = HandheldScreen();
    const RECT room = ToDesktop(Rect{0, 0, handheld.width, handheld.height - 2 * kBarHeight}, state.scale);
    return {room.right, room.bottom + BarPixels(state.scale)};
}

bool CreateWindows(Screen& screen, const std::wstring& kind, bool withScrollBar, HWND owner) {
    if (!RegisterClasses() || !CreateFrame(screen, kind, owner)) return false;
    Window::Impl& state = *screen.Handle();
    Window* object = &screen;
    ColorFrame(state.frame);
    SetIcon(state.frame, ICON_BIG, SM_CXICON, SM_CYICON);
    SetIcon(state.frame, ICON_SMALL, SM_CXSMICON, SM_CYSMICON);

    state.scale = state.shownScale = ScaleFor(DotsAt(state.frame));
    const int bar = BarPixels(state.scale);
    const SIZE room = RoomInFrame(state);
    const int pageHeight = room.cy - bar;
    const DWORD scrollStyle = withScrollBar ? WS_VSCROLL : 0;
    state.hasScrollBar = withScrollBar;
    state.page = CreateWindowExW(0, kPageClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | scrollStyle, 0,
                                 0, room.cx, pageHeight, state.frame, nullptr, Module(), object);
    const HWND menuBar = CreateWindowExW(0, kMenuBarClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                                         pageHeight, room.cx, bar, state.frame, nullptr, Module(), object);
    if (!state.page || !menuBar) return false;
    state.clientSize = ClientSizeOf(state.page);
    if (withScrollBar) state.pointers = std::make_unique<PointerInput>(screen);  // it is written on
    SetPropW(state.page, kPenServiceProperty,
             reinterpret_cast<HANDLE>(kNoPressAndHold | kNoTapFeedback | kNoBarrelFeedback | kNoFlicks));
    return true;
}

}  // namespace

}  // namespace windows

Screen::Screen(ScrollBar scrollBar, std::wstring kind) : scrollBar_(scrollBar), kind_(std::move(kind)) {}
Screen::~Screen() = default;

int Screen::RunModal(Window* owner) {
    if (Exists()) return -1;
    *impl_ = Impl();
    const HWND ownerFrame = windows::FrameOf(owner);
    const bool made = windows::CreateWindows(*this, kind_, scrollBar_ == ScrollBar::Vertical, ownerFrame);
    if (!made) {
        if (impl_->frame) windows::Attach(impl_->frame, nullptr);
        windows::GiveUp(*this);
        return windows::CannotOpen(ownerFrame);
    }
    bool opens = false;
    Guarded(*this, [&] { opens = OnCreate(); });
    const int result =
        opens ? windows::RunToEnd(*this, ownerFrame, windows::KeyNavigation::None) : windows::GiveUp(*this);
    tools_.Handle().reset();
    return result;
}

bool Screen::CanBeSized() const { return impl_->sizing != nullptr; }

void Screen::NameClient(const std::wstring& name) { windows::NameForReaders(impl_->page, name); }

void Screen::ToggleFullScreen() {
    if (impl_->sizing && impl_->frame) impl_->sizing->ToggleFullScreen(impl_->frame);
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
    if (!tools->Create(strip, layout, impl_->scale)) return false;
    tools_.Handle() = std::move(tools);
    return true;
}

}  // namespace platform
