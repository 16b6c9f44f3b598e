#include "platform/qt/PointerInput.h"

#include <QInputDevice>
#include <QPointingDevice>
#include <QTabletEvent>
#include <QTouchEvent>
#include <algorithm>

#include "platform/qt/ScreenScale.h"
#include "platform/qt/WindowImpl.h"

namespace platform::qt {

namespace {

bool HasDevice(QInputDevice::DeviceType type) {
    const QList<const QInputDevice*> devices = QInputDevice::devices();
    return std::any_of(devices.begin(), devices.end(),
                       [type](const QInputDevice* device) { return device->type() == type; });
}

// Only on a machine that has nothing better, or where they are told to.
bool FingersWrite() {
    using Type = QInputDevice::DeviceType;
    const bool hasBetter = HasDevice(Type::Mouse) || HasDevice(Type::Stylus);
    return (HasDevice(Type::TouchScreen) && !hasBetter) || qgetenv("INKWRIGHT_FINGERS") == "write";
}

// Both ends of one pen are one pointer: it is turned, not exchanged.
uint32_t NumberOf(const QTabletEvent& event) {
    return static_cast<uint32_t>(event.pointingDevice()->uniqueId().numericId()) | 0x80000000u;
}

PointerPacket PacketOf(const QTabletEvent& event) {
    PointerPacket packet;
    packet.pointer = NumberOf(event);
    packet.place = PagePixelAt(event.position());
    packet.time = static_cast<uint32_t>(event.timestamp());
    packet.isDown = event.buttons().testFlag(Qt::LeftButton);
    packet.isInverted = event.pointerType() == QPointingDevice::PointerType::Eraser;
    packet.hasButton = (event.buttons() & (Qt::RightButton | Qt::MiddleButton)) != 0;
    return packet;
}

PointerPacket PacketOf(const QWidget& page, const QEventPoint& point, uint32_t time) {
    PointerPacket packet;
    packet.pointer = static_cast<uint32_t>(point.id()) & 0x7FFFFFFFu;
    packet.kind = PointerKind::Touch;
    packet.place = PagePixelAt(page.mapFromGlobal(point.globalPosition()));
    packet.time = time;
    packet.isNear = packet.isDown = point.state() != QEventPoint::Released;
    return packet;
}

}  // namespace

PointerInput::PointerInput(Window& window, WindowEvents& events)
    : PenRelay(window), events_(events), pens_(*this) {
    pens_.LetFingersWrite(FingersWrite());
}

// Movements that come in one go are handed on as one; what begins or ends a contact at once.
void PointerInput::TakePen(const QTabletEvent& event) {
    Wait(PacketOf(event));
    if (event.type() != QEvent::TabletMove) HandOn();
}

void PointerInput::Wait(const PointerPacket& packet) {
    if (!waiting_.empty() && waiting_.back().pointer != packet.pointer) HandOn();
    if (waiting_.empty())
        QMetaObject::invokeMethod(
            this, [this] { HandOn(); }, Qt::QueuedConnection);
    waiting_.push_back(packet);
}

void PointerInput::HandOn() {
    const std::vector<PointerPacket> packets = std::exchange(waiting_, {});
    if (window_.Handle()->ended) return;
    Guarded(window_, [&] { pens_.Take(packets.data(), packets.size()); });
}

void PointerInput::TakeProximity(const QTabletEvent& event) {
    if (event.type() != QEvent::TabletLeaveProximity) return;
    PointerPacket packet = PacketOf(event);
    packet.isNear = packet.isDown = false;
    Wait(packet);
    HandOn();
}

void PointerInput::TakeTouch(const QTouchEvent& event) {
    const auto time = static_cast<uint32_t>(event.timestamp());
    if (event.type() == QEvent::TouchCancel) return fingers_.Forget();
    for (const QEventPoint& point : event.points()) TakeFinger(point, time);
}

void PointerInput::TakeFinger(const QEventPoint& point, uint32_t time) {
    if (point.state() == QEventPoint::Stationary) return;
    const PointerPacket packet = PacketOf(*window_.Handle()->page, point, time);
    bool isTaken = false;
    Guarded(window_, [&] { isTaken = pens_.Take(&packet, 1); });
    if (!isTaken) Gesture(point, packet);
}

// The hand of somebody who writes moves too.
void PointerInput::Gesture(const QEventPoint& point, const PointerPacket& packet) {
    int rows = 0;
    bool isTap = false;
    if (point.state() == QEventPoint::Pressed) fingers_.Down(packet.pointer, packet.place, packet.time);
    if (point.state() == QEventPoint::Updated) rows = fingers_.Move(packet.pointer, packet.place);
    if (point.state() == QEventPoint::Released) isTap = fingers_.Up(packet.pointer, packet.time);
    if (window_.Handle()->ended || pens_.IsPenAbout(packet.time)) return;
    if (rows != 0) Guarded(window_, [&] { window_.OnPan(rows); });
    if (isTap) Guarded(window_, [&] { window_.OnTwoFingerTap(); });
}

void PointerInput::PenLost() {
    LosePen(window_);
    end_ = PenEnd::Tip;
}

}  // namespace platform::qt
