#pragma once

#include <QMouseEvent>
#include <QObject>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

namespace platform::qt {

// Tells presses that are held still from taps. The widget sees a press only when it is lifted or moved: one
// that is held changes nothing, a selection of text for instance. Watches as long as it lives.
class PressAndHold : public QObject {
  public:
    // `hold` gets the place in `watched`.
    PressAndHold(QWidget* watched, std::function<void(QPoint)> hold);
    PressAndHold(const PressAndHold&) = delete;
    PressAndHold& operator=(const PressAndHold&) = delete;
    ~PressAndHold() override = default;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void PassOn();

    QWidget* watched_;
    std::function<void(QPoint)> hold_;
    QTimer timer_;
    std::unique_ptr<QMouseEvent> press_;  // that waits
    bool isHeld_ = false;
    bool isPassedOn_ = false;  // the press that comes is the one that waited
};

}  // namespace platform::qt
