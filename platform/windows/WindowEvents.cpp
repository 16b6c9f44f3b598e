// From window messages to the handlers of a window object.
#include <new>

#include "platform/MessageBox.h"
#include "platform/windows/WindowImpl.h"

namespace platform::windows {

namespace {

struct Event {
    Window& window;
    Window::Impl& state;
    HWND handle;
    WPARAM wParam;
    LPARAM lParam;
};

Point PointOf(const Event& event) {
    return {static_cast<int16_t>(LOWORD(event.lParam)), static_cast<int16_t>(HIWORD(event.lParam))};
}

bool PenDown(Event& event) {
    event.state.pen.Begin(event.handle, PointOf(event));
    event.window.OnPenDown(PointOf(event));
    return true;
}

bool PenMove(Event& event) {
    // A pen that does not touch the screen is not there.
    if (!event.state.holdsPen && (event.wParam & MK_LBUTTON) == 0) return false;
    event.state.pen.Arrive(event.handle, PointOf(event));
    event.window.OnPenMove(PointOf(event));
    event.state.pen.Leave();
    return true;
}

bool PenUp(Event& event) {
    event.state.pen.Arrive(event.handle, PointOf(event));
    event.window.OnPenUp(PointOf(event));
    event.state.pen.Leave();
    return true;
}

bool CaptureChanged(Event& event) {
    if (!event.state.holdsPen || reinterpret_cast<HWND>(event.lParam) == event.handle) return false;
    event.state.holdsPen = false;
    event.window.OnCaptureLost();
    return true;
}

bool Paint(Event& event) {
    PAINTSTRUCT paint;
    const HDC before = event.state.paintDc;
    event.state.paintDc = BeginPaint(event.handle, &paint);
    event.window.OnPaint();
    event.state.paintDc = before;
    EndPaint(event.handle, &paint);
    return true;
}

bool Timer(Event& event) {
    event.window.OnTimer(static_cast<int>(event.wParam));
    return true;
}

bool Command(Event& event) {
    event.window.OnCommand(LOWORD(event.wParam));
    return true;
}

bool PrivateMessage(Event& event) {
    event.window.OnPrivateMessage(static_cast<uint32_t>(event.wParam), event.lParam);
    return true;
}

ScrollCode ScrollCodeOf(WORD systemCode) {
    constexpr struct {
        WORD system;
        ScrollCode code;
    } kCodes[] = {{SB_LINEUP, ScrollCode::LineUp},
                  {SB_LINEDOWN, ScrollCode::LineDown},
                  {SB_PAGEUP, ScrollCode::PageUp},
                  {SB_PAGEDOWN, ScrollCode::PageDown},
                  {SB_THUMBPOSITION, ScrollCode::ThumbPosition},
                  {SB_TOP, ScrollCode::Top},
                  {SB_BOTTOM, ScrollCode::Bottom}};
    for (const auto& known : kCodes) {
        if (known.system == systemCode) return known.code;
    }
    return ScrollCode::Other;
}

// The message carries 16 bits of the thumb's position. The system knows all of them, but only about a thumb
// that was really dragged, so its number counts only where the two agree.
int ThumbPosition(const Event& event) {
    const int sent = HIWORD(event.wParam);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    if (!GetScrollInfo(event.state.page, SB_VERT, &info)) return sent;
    return (info.nTrackPos & 0xFFFF) == sent ? info.nTrackPos : sent;
}

bool VerticalScroll(Event& event) {
    const ScrollCode code = ScrollCodeOf(LOWORD(event.wParam));
    event.window.OnScroll(code, code == ScrollCode::ThumbPosition ? ThumbPosition(event) : 0);
    return true;
}

bool Wheel(Event& event) {
    if (!event.state.hasScrollBar) return false;
    int& rest = event.state.wheelRest;
    rest += GET_WHEEL_DELTA_WPARAM(event.wParam);
    for (; rest >= WHEEL_DELTA; rest -= WHEEL_DELTA) event.window.OnScroll(ScrollCode::LineUp, 0);
    for (; rest <= -WHEEL_DELTA; rest += WHEEL_DELTA) event.window.OnScroll(ScrollCode::LineDown, 0);
    return true;
}

bool KeyDown(Event& event) { return event.window.OnKeyDown(KeyOf(event.wParam)); }

constexpr struct {
    UINT message;
    bool (*handle)(Event&);
} kEvents[] = {{WM_MOUSEMOVE, PenMove},
               {WM_LBUTTONDOWN, PenDown},
               {WM_LBUTTONUP, PenUp},
               {WM_CAPTURECHANGED, CaptureChanged},
               {WM_PAINT, Paint},
               {WM_TIMER, Timer},
               {WM_COMMAND, Command},
               {WM_VSCROLL, VerticalScroll},
               {WM_KEYDOWN, KeyDown},
               {WM_MOUSEWHEEL, Wheel},
               {kPrivateMessage, PrivateMessage}};

}  // namespace

Key KeyOf(WPARAM virtualKey) {
    constexpr struct {
        int code;
        Key key;
    } kKeys[] = {{VK_LEFT, Key::Left},     {VK_UP, Key::Up},         {VK_RIGHT, Key::Right},
                 {VK_DOWN, Key::Down},     {VK_PRIOR, Key::PageUp},  {VK_NEXT, Key::PageDown},
                 {VK_HOME, Key::Home},     {VK_END, Key::End},       {VK_RETURN, Key::Enter},
                 {VK_ESCAPE, Key::Escape}, {VK_DELETE, Key::Delete}, {VK_F2, Key::F2}};
    for (const auto& known : kKeys) {
        if (static_cast<int>(virtualKey) == known.code) return known.key;
    }
    return Key::Other;
}

bool TakeShortcut(Window& window, const MSG& message) {
    const Window::Impl& state = *window.Handle();
    if (message.message != WM_KEYDOWN || message.wParam < 'A' || message.wParam > 'Z') return false;
    // The edit box of a tree's label is none of these.
    const bool isOurs =
        message.hwnd == state.frame || message.hwnd == state.page || message.hwnd == state.control;
    // Ctrl with Alt writes characters on some keyboards.
    const bool hasCtrl = GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0;
    return isOurs && hasCtrl && window.OnShortcut(static_cast<wchar_t>(message.wParam));
}

bool DispatchEvent(Window& window, HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    for (const auto& known : kEvents) {
        if (known.message != message) continue;
        Event event{window, *window.Handle(), handle, wParam, lParam};
        // Nothing may be thrown through the system's own frames on the stack.
        try {
            return known.handle(event);
        } catch (const std::bad_alloc&) {
            ShowOutOfMemory(&window);
            return true;
        }
    }
    return false;
}

}  // namespace platform::windows
