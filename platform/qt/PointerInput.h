#pragma once

#include <QEventPoint>
#include <QObject>

#include "platform/PenTranslator.h"
#include "platform/Window.h"
#include "platform/qt/FingerGestures.h"

class QTabletEvent;
class QTouchEvent;

namespace platform::qt {

class WindowEvents;

// The pens and fingers over one page.
class PointerInput : public QObject, private PenListener {
  public:
    PointerInput(Window& window, WindowEvents& events);
    PointerInput(const PointerInput&) = delete;
    PointerInput& operator=(const PointerInput&) = delete;
    ~PointerInput() override = default;

    void TakePen(const QTabletEvent& event);
    void TakeProximity(const QTabletEvent& event);
    void TakeTouch(const QTouchEvent& event);

    void ContactTaken() { pens_.ContactTaken(); }
    bool HasContact() const { return pens_.HasContact() || !before_.empty(); }
    PenEnd End() const { return end_; }
    // Where the pen was between the event before and the one that is being handled.
    const std::vector<Point>& Before() const { return before_; }

  private:
    void Wait(const PointerPacket& packet);
    void HandOn();
    void TakeFinger(const QEventPoint& point, uint32_t time);
    void Gesture(const QEventPoint& point, const PointerPacket& packet);

    void PenDown(Point place, PenEnd end) override;
    void PenMove(Point place, const std::vector<Point>& before) override;
    void PenUp(Point place, const std::vector<Point>& before) override;
    void PenLost() override;
    void PenHovers(Point place, PenEnd end) override;
    void PenLeaves() override;

    Window& window_;
    WindowEvents& events_;
    PenTranslator pens_;
    FingerGestures fingers_;
    PenEnd end_ = PenEnd::Tip;
    std::vector<PointerPacket> waiting_;  // of one pen, not handed on yet
    std::vector<Point> before_;
};

}  // namespace platform::qt
