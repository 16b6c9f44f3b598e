#pragma once

#include <QRect>
#include <QWidget>

#include "platform/Screen.h"

// Where the handheld's screen is on the desktop.
namespace platform::qt {

// INKWRIGHT_SCREEN asks for a screen of exactly one size: frames can't be sized then, and none is remembered.
bool HasFixedScreen();

// The frame of the Screen that `window` (may be null) is or lies over; null when there is none.
QWidget* ScreenBelow(const Window* window);

// The handheld's top left corner: over the Screen below `window`, in the middle of the desktop without one.
QPoint HandheldOrigin(const Window* window);

inline ink::Rect ToHandheld(const Window* window, const QRect& desktop) {
    const QRect moved = desktop.translated(-HandheldOrigin(window));
    return {moved.x(), moved.y(), moved.x() + moved.width(), moved.y() + moved.height()};
}
inline QRect ToDesktop(const Window* window, const ink::Rect& handheld) {
    return QRect(handheld.left, handheld.top, handheld.Width(), handheld.Height())
        .translated(HandheldOrigin(window));
}
inline Point ToHandheld(const Window* window, QPoint desktop) {
    const QPoint moved = desktop - HandheldOrigin(window);
    return {moved.x(), moved.y()};
}

// As little moved as needed to lie on the monitor that holds `around` (may be null).
QRect OntoMonitor(const QWidget* around, const QRect& desktop);

// The top left corner that puts a frame of this size into the middle of the desktop.
QPoint CentredPlace(QSize frame);

}  // namespace platform::qt
