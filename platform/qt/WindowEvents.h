#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "platform/Window.h"

class QKeyEvent;
class QMouseEvent;
class QTabletEvent;
class QWheelEvent;

namespace platform::qt {

class PointerInput;

Key KeyOf(int toolkitKey);

// Gives Ctrl and a letter to the window; true when it took them.
bool TakeShortcut(Window& window, const QKeyEvent& event);

// From what happens to a window's widgets to the handlers of its object. It watches the page, and the frame
// around it where that is another widget.
class WindowEvents : public QObject {
  public:
    explicit WindowEvents(Window& window);
    WindowEvents(const WindowEvents&) = delete;
    WindowEvents& operator=(const WindowEvents&) = delete;
    ~WindowEvents() override;

    // The page is written on: pens and fingers have events of their own.
    void TakePens();
    void TakeProximity(const QTabletEvent& event);
    void TurnWheel(const QWheelEvent& event);

    void TakePenAway();
    void CapturePen();
    // True when the pen was held: then the window is to be told.
    bool ReleasePen();
    bool HasPen() const { return holdsPen_; }
    PenEnd EndOfPen() const;
    size_t Samples(Point* samples, size_t capacity) const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool PageEvent(QEvent& event);
    bool FrameEvent(QEvent& event);
    void Paint(const QRect& area);
    void FollowMonitor();
    bool Mouse(QMouseEvent& event);
    void MouseMoved(const QMouseEvent& event);
    void GoOn();
    bool KeyDown(QKeyEvent& event);
    bool MenuAsked(QEvent& event);

    Window& window_;
    std::unique_ptr<PointerInput> pointers_;
    bool holdsPen_ = false;
    std::vector<Point> waiting_;  // where the mouse was that the window has not heard of
    std::vector<Point> samples_;  // of the event that is being handled
    int wheelRest_ = 0;
};

}  // namespace platform::qt
