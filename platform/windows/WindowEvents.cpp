// From window messages to the handlers of a window object.
#include <cstdlib>

#include "platform/WheelTurns.h"
#include "platform/windows/PointerTrail.h"
#include "platform/windows/SystemText.h"
#include "platform/windows/WindowImpl.h"

namespace platform::windows {

namespace {

struct Event {
    Window& window;
    Window::Impl& state;
    HWND handle;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

Point ClientPixelOf(const Event& event) {
    const POINT place = PointIn(event.lParam);
    return {place.x, place.y};
}

Point PointOf(const Event& event) { return event.state.scale.ToView(ClientPixelOf(event)); }

// A finger's mouse messages are no pen's.
bool IsIdleFinger(const Event& event) { return event.state.pointers && event.state.pointers->IsFromFinger(); }

bool PenDown(Event& event) {
    if (IsIdleFinger(event)) return true;
    event.state.pen.Begin(TrailOf(event.handle, ClientPixelOf(event)));
    event.window.OnPenDown(PointOf(event));
    return true;
}

bool PenMove(Event& event) {
    // A mouse that does not press is not there.
    if (IsIdleFinger(event)) return true;
    if (!event.state.holdsPen && (event.wParam & MK_LBUTTON) == 0) return false;
    event.state.pen.Arrive(TrailOf(event.handle, ClientPixelOf(event)), InSendMessage() != FALSE);
    event.window.OnPenMove(PointOf(event));
    event.state.pen.Leave();
    return true;
}

bool PenUp(Event& event) {
    if (IsIdleFinger(event)) return true;
    event.state.pen.Arrive(TrailOf(event.handle, ClientPixelOf(event)), InSendMessage() != FALSE);
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

// A painting that was begun ends, or the system asks for it for ever.
class Painting {
  public:
    explicit Painting(const Event& event) : event_(event), before_(event.state.paintDc) {
        event_.state.paintDc = BeginPaint(event_.handle, &paint_);
    }
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;
    ~Painting() {
        event_.state.paintDc = before_;
        EndPaint(event_.handle, &paint_);
    }

  private:
    const Event& event_;
    HDC before_;
    PAINTSTRUCT paint_{};
};

bool Paint(Event& event) {
    const Painting painting(event);
    event.window.OnPaint();
    return true;
}

bool Timer(Event& event) {
    event.window.OnTimer(static_cast<int>(event.wParam));
    return true;
}

// Another copy may ask a window to close that something else is open over: that is to be closed first.
bool IsCovered(const Window::Impl& state) { return state.frame && !IsWindowEnabled(state.frame); }

bool Command(Event& event) {
    if (!IsCovered(event.state)) event.window.OnCommand(LOWORD(event.wParam));
    return true;
}

bool PrivateMessage(Event& event) {
    if (event.wParam == kTakeOver) {
        TakeOver(event.window);
        return true;
    }
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
    UINT linesPerNotch = kUsualWheelLines;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &linesPerNotch, 0);
    const WheelSteps steps =
        StepsOfTurn(GET_WHEEL_DELTA_WPARAM(event.wParam), linesPerNotch, event.state.wheelRest);
    for (int i = 0; i < std::abs(steps.count); ++i) event.window.OnScroll(steps.code, 0);
    return true;
}

bool Pointer(Event& event) {
    return event.state.pointers && event.state.pointers->Take(event.message, event.wParam, event.lParam);
}

bool Gesture(Event& event) {
    return event.state.pointers &&
           event.state.pointers->TakeGesture(event.message, event.wParam, event.lParam);
}

bool KeyDown(Event& event) { return event.window.OnKeyDown(KeyOf(event.wParam)); }

constexpr struct {
    bool (*handle)(Event&);
    UINT message;
    bool afterEnd;  // reaches a window whose modal run has ended
} kEvents[] = {{PenMove, WM_MOUSEMOVE, false},
               {PenDown, WM_LBUTTONDOWN, false},
               {PenUp, WM_LBUTTONUP, false},
               {Pointer, WM_POINTERENTER, false},
               {Pointer, WM_POINTERDOWN, false},
               {Pointer, WM_POINTERUPDATE, false},
               {Pointer, WM_POINTERUP, false},
               {Pointer, WM_POINTERLEAVE, false},
               {Pointer, WM_POINTERCAPTURECHANGED, true},
               {Gesture, WM_GESTURENOTIFY, false},
               {Gesture, WM_GESTURE, false},
               {CaptureChanged, WM_CAPTURECHANGED, true},
               {Paint, WM_PAINT, true},
               {Timer, WM_TIMER, false},
               {Command, WM_COMMAND, false},
               {VerticalScroll, WM_VSCROLL, false},
               {KeyDown, WM_KEYDOWN, false},
               {Wheel, WM_MOUSEWHEEL, false},
               {PrivateMessage, kPrivateMessage, true}};

}  // namespace

Key KeyOf(WPARAM virtualKey) {
    constexpr struct {
        int code;
        Key key;
    } kKeys[] = {{VK_LEFT, Key::Left},     {VK_UP, Key::Up},         {VK_RIGHT, Key::Right},
                 {VK_DOWN, Key::Down},     {VK_PRIOR, Key::PageUp},  {VK_NEXT, Key::PageDown},
                 {VK_HOME, Key::Home},     {VK_END, Key::End},       {VK_RETURN, Key::Enter},
                 {VK_ESCAPE, Key::Escape}, {VK_DELETE, Key::Delete}, {VK_F1, Key::F1},
                 {VK_F2, Key::F2},         {VK_F11, Key::F11}};
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
    const WPARAM small = GetKeyState(VK_SHIFT) < 0 ? 'a' - 'A' : 0;
    return isOurs && hasCtrl && window.OnShortcut(static_cast<wchar_t>(message.wParam + small));
}

bool DispatchEvent(Window& window, HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    for (const auto& known : kEvents) {
        if (known.message != message) continue;
        Event event{window, *window.Handle(), handle, message, wParam, lParam};
        bool isHandled = true;
        if (known.afterEnd || !event.state.ended) Guarded(window, [&] { isHandled = known.handle(event); });
        return isHandled;
    }
    return false;
}

void TakeOver(Window& window) {
    Window::Impl& state = *window.Handle();
    if (state.ended || IsCovered(state)) return;
    Guarded(window, [&] { window.OnTakeOver(); });
    state.takenOver = state.ended;
}

}  // namespace platform::windows
