#include "platform/qt/WindowEvents.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTabletEvent>
#include <QTouchEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>

#include "platform/WheelTurns.h"
#include "platform/qt/PointerInput.h"
#include "platform/qt/ScreenFrame.h"
#include "platform/qt/ScreenScale.h"
#include "platform/qt/WindowImpl.h"

namespace platform::qt {

Key KeyOf(int toolkitKey) {
    constexpr struct {
        int code;
        Key key;
    } kKeys[] = {
        {Qt::Key_Left, Key::Left},   {Qt::Key_Up, Key::Up},         {Qt::Key_Right, Key::Right},
        {Qt::Key_Down, Key::Down},   {Qt::Key_PageUp, Key::PageUp}, {Qt::Key_PageDown, Key::PageDown},
        {Qt::Key_Home, Key::Home},   {Qt::Key_End, Key::End},       {Qt::Key_Return, Key::Enter},
        {Qt::Key_Enter, Key::Enter}, {Qt::Key_Escape, Key::Escape}, {Qt::Key_Delete, Key::Delete},
        {Qt::Key_F2, Key::F2},       {Qt::Key_F1, Key::F1},         {Qt::Key_F11, Key::F11}};
    for (const auto& known : kKeys) {
        if (toolkitKey == known.code) return known.key;
    }
    return Key::Other;
}

bool TakeShortcut(Window& window, const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool withShift = modifiers == (Qt::ControlModifier | Qt::ShiftModifier);
    const bool isLetter = event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z;
    if (!isLetter || (modifiers != Qt::ControlModifier && !withShift) || window.Handle()->ended) return false;
    const int letter = event.key() - Qt::Key_A + (withShift ? L'a' : L'A');
    bool isTaken = false;
    Guarded(window, [&] { isTaken = window.OnShortcut(static_cast<wchar_t>(letter)); });
    return isTaken;
}

WindowEvents::WindowEvents(Window& window) : window_(window) {
    const Window::Impl& state = *window.Handle();
    state.page->installEventFilter(this);
    if (state.frame != state.page) state.frame->installEventFilter(this);
}

WindowEvents::~WindowEvents() = default;

void WindowEvents::TakePens() {
    pointers_ = std::make_unique<PointerInput>(window_, *this);
    window_.Handle()->page->setAttribute(Qt::WA_AcceptTouchEvents);
    window_.Handle()->page->setTabletTracking(true);
}

void WindowEvents::TakeProximity(const QTabletEvent& event) {
    if (pointers_) pointers_->TakeProximity(event);
}

// A pen that touches on is not the window's any more.
void WindowEvents::TakePenAway() {
    if (pointers_) pointers_->ContactTaken();
    LosePen(window_);
}

void WindowEvents::CapturePen() { holdsPen_ = true; }

bool WindowEvents::ReleasePen() { return std::exchange(holdsPen_, false); }

PenEnd WindowEvents::EndOfPen() const { return pointers_ ? pointers_->End() : PenEnd::Tip; }

// Where there is no room for all, the latest.
size_t WindowEvents::Samples(Point* samples, size_t capacity) const {
    if (pointers_ && pointers_->HasContact()) return pointers_->Samples(samples, capacity);
    const size_t count = std::min(capacity, samples_.size());
    std::copy(samples_.end() - static_cast<std::ptrdiff_t>(count), samples_.end(), samples);
    return count;
}

bool WindowEvents::eventFilter(QObject* watched, QEvent* event) {
    const Window::Impl& state = *window_.Handle();
    if (watched == state.frame && FrameEvent(*event)) return true;
    return watched == state.page && PageEvent(*event);
}

bool WindowEvents::FrameEvent(QEvent& event) {
    Window::Impl& state = *window_.Handle();
    switch (event.type()) {
        case QEvent::Close:
            event.ignore();  // what closes is for the window to say
            DispatchCommand(window_, state.screen ? kIdOk : kIdCancel);
            return true;
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::WindowStateChange:
            if (state.screen) state.screen->Follow();
            return false;
        case QEvent::PaletteChange:
            if (state.screen) state.screen->FollowLooks();
            return false;
        case QEvent::KeyPress:
            return KeyDown(static_cast<QKeyEvent&>(event));
        default:
            return false;
    }
}

bool WindowEvents::PageEvent(QEvent& event) {
    const Window::Impl& state = *window_.Handle();
    switch (event.type()) {
        case QEvent::Paint:
            Paint(static_cast<QPaintEvent&>(event).rect());
            return false;
        case QEvent::Hide:
        case QEvent::UngrabMouse:
            TakePenAway();
            return false;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseMove:
            return !state.ended && Mouse(static_cast<QMouseEvent&>(event));
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
            if (!pointers_) return false;
            event.accept();
            if (!state.ended) pointers_->TakePen(static_cast<QTabletEvent&>(event));
            return true;
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
            if (!pointers_) return false;
            event.accept();
            if (!state.ended) pointers_->TakeTouch(static_cast<QTouchEvent&>(event));
            return true;
        case QEvent::Wheel:
            TurnWheel(static_cast<QWheelEvent&>(event));
            return state.hasScrollBar;
        case QEvent::KeyPress:
            return state.page != state.frame && KeyDown(static_cast<QKeyEvent&>(event));
        case QEvent::ContextMenu:
            return MenuAsked(event);
        default:
            return false;
    }
}

void WindowEvents::Paint(const QRect& area) {
    Window::Impl& state = *window_.Handle();
    FollowMonitor();
    if (state.needsPaint) {
        state.needsPaint = false;
        state.painting = true;
        Guarded(window_, [this] { window_.OnPaint(); });
        state.painting = false;
    }
    if (state.shown.isNull()) return;
    QPainter painter(state.page);
    painter.setClipRect(area);
    painter.drawImage(0, 0, state.shown);
}

// Whatever becomes of a window's scale, painting comes after it.
void WindowEvents::FollowMonitor() {
    Window::Impl& state = *window_.Handle();
    const ink::Scale scale = ScaleOf(*state.page);
    if (state.deviceScale == scale) return;
    state.deviceScale = scale;
    QMetaObject::invokeMethod(
        this, [this, scale] { ChangeScale(window_, scale); }, Qt::QueuedConnection);
}

bool WindowEvents::Mouse(QMouseEvent& event) {
    // Mouse events that are made of fingers: those do not write.
    if (pointers_ && event.source() != Qt::MouseEventNotSynthesized) return true;
    if (event.type() == QEvent::MouseMove) {
        MouseMoved(event);
        return true;
    }
    if (event.button() != Qt::LeftButton) return false;
    const Point place = PagePixelAt(event.position());
    GoOn();
    Guarded(window_, [&] {
        event.type() == QEvent::MouseButtonRelease ? window_.OnPenUp(place) : window_.OnPenDown(place);
    });
    return true;
}

// What comes in one go is handed on as one movement. A mouse that does not press is not there.
void WindowEvents::MouseMoved(const QMouseEvent& event) {
    if (!holdsPen_ && !event.buttons().testFlag(Qt::LeftButton)) return;
    if (waiting_.empty())
        QMetaObject::invokeMethod(
            this, [this] { GoOn(); }, Qt::QueuedConnection);
    waiting_.push_back(PagePixelAt(event.position()));
}

void WindowEvents::GoOn() {
    if (waiting_.empty() || window_.Handle()->ended) return waiting_.clear();
    samples_.swap(waiting_);
    waiting_.clear();
    const Point place = samples_.back();
    samples_.pop_back();
    Guarded(window_, [&] { window_.OnPenMove(place); });
    samples_.clear();
}

void WindowEvents::TurnWheel(const QWheelEvent& event) {
    const Window::Impl& state = *window_.Handle();
    if (!state.hasScrollBar || state.ended) return;
    const auto lines = static_cast<uint32_t>(std::max(1, QApplication::wheelScrollLines()));
    const WheelSteps steps = StepsOfTurn(event.angleDelta().y(), lines, wheelRest_);
    for (int i = 0; i < std::abs(steps.count); ++i) DispatchScroll(window_, steps.code, 0);
}

bool WindowEvents::KeyDown(QKeyEvent& event) {
    Window::Impl& state = *window_.Handle();
    if (state.ended || TakeShortcut(window_, event)) return true;
    const bool isMenuKey = event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
    if (isMenuKey && MenuAsked(event)) return true;
    const Key key = KeyOf(event.key());
    const bool isDialog = !state.items.empty();
    // The toolkit presses a dialog's default button, and around a page there is a sheet.
    if (isDialog && (key == Key::Enter || !state.owned)) return false;
    bool isHandled = isDialog && key == Key::Escape;
    if (!isHandled) Guarded(window_, [&] { isHandled = window_.OnKeyDown(key); });
    if (key == Key::Escape && !state.screen && (isDialog || !isHandled)) DispatchCommand(window_, kIdCancel);
    return isHandled || !isDialog;
}

bool WindowEvents::MenuAsked(QEvent& event) {
    const Window::Impl& state = *window_.Handle();
    const bool byMouse = event.type() == QEvent::ContextMenu &&
                         static_cast<QContextMenuEvent&>(event).reason() == QContextMenuEvent::Mouse;
    if (!state.screen || state.frameMenu.empty() || byMouse) return false;
    state.screen->OpenFrameMenu();
    return true;
}

}  // namespace platform::qt
