#pragma once

#include <QEventPoint>
#include <QObject>

#include "platform/PenRelay.h"
#include "platform/Window.h"
#include "platform/qt/FingerGestures.h"

class QTabletEvent;
class QTouchEvent;

namespace platform::qt {

class WindowEvents;

// The pens and fingers over one page.
class PointerInput : public QObject, public PenRelay {
  public:
    PointerInput(Window& window, WindowEvents& events);
    PointerInput(const PointerInput&) = delete;
    PointerInput& operator=(const PointerInput&) = delete;
    ~PointerInput() override = default;

    void TakePen(const QTabletEvent& event);
    void TakeProximity(const QTabletEvent& event);
    void TakeTouch(const QTouchEvent& event);

    void ContactTaken() { pens_.ContactTaken(); }
    bool HasContact() const { return pens_.HasContact() || !Before().empty(); }

  private:
    void Wait(const PointerPacket& packet);
    void HandOn();
    void TakeFinger(const QEventPoint& point, uint32_t time);
    void Gesture(const QEventPoint& point, const PointerPacket& packet);

    void PenLost() override;

    WindowEvents& events_;
    PenTranslator pens_;
    FingerGestures fingers_;
    std::vector<PointerPacket> waiting_;  // of one pen, not handed on yet
};

}  // namespace platform::qt
