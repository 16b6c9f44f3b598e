#include "platform/qt/PressAndHold.h"

#include <QApplication>
#include <algorithm>
#include <utility>

namespace platform::qt {

namespace {

// Longer than a slow double click's half, shorter than a person's patience; a system setting that makes
// double clicks slower makes this slower too.
constexpr int kShortestHold = 600;

}  // namespace

PressAndHold::PressAndHold(QWidget* watched, std::function<void(QPoint)> hold)
    : watched_(watched), hold_(std::move(hold)) {
    timer_.setSingleShot(true);
    timer_.callOnTimeout(this, [this] {
        isHeld_ = true;
        const std::unique_ptr<QMouseEvent> press = std::move(press_);
        hold_(press->position().toPoint());
    });
    watched->installEventFilter(this);
}

void PressAndHold::PassOn() {
    timer_.stop();
    const std::unique_ptr<QMouseEvent> press = std::move(press_);
    isPassedOn_ = true;
    QCoreApplication::sendEvent(watched_, press.get());
    isPassedOn_ = false;
}

bool PressAndHold::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress: {
            const auto& press = static_cast<const QMouseEvent&>(*event);
            if (isPassedOn_ || press.button() != Qt::LeftButton) return false;
            isHeld_ = false;
            press_.reset(press.clone());
            timer_.start(std::max(kShortestHold, QApplication::doubleClickInterval()));
            return true;
        }
        case QEvent::MouseMove: {
            const QPointF place = static_cast<QMouseEvent*>(event)->position();
            const bool isStill =
                press_ && (place - press_->position()).manhattanLength() < QApplication::startDragDistance();
            if (press_ && !isStill) PassOn();
            return isStill || isHeld_;
        }
        case QEvent::MouseButtonRelease:
            if (press_) PassOn();
            return std::exchange(isHeld_, false);
        default:
            return false;
    }
}

}  // namespace platform::qt
