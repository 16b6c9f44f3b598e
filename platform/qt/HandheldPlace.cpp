#include "platform/qt/HandheldPlace.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QScreen>
#include <algorithm>

#include "platform/qt/ImageImpl.h"
#include "platform/qt/ScreenFrame.h"
#include "platform/qt/WindowImpl.h"

namespace platform {

namespace {

constexpr ScreenSize kUsualScreen{480, 640};
constexpr int kShortestSide = 160;
constexpr int kLongestSide = 4096;

}  // namespace

ScreenSize HandheldScreen() {
    static const QRegularExpression form("^(\\d{1,5})[xX](\\d{1,5})$");
    const QRegularExpressionMatch sides = form.match(qEnvironmentVariable("INKWRIGHT_SCREEN"));
    const int width = sides.captured(1).toInt();
    const int height = sides.captured(2).toInt();
    const bool fits = std::min(width, height) >= kShortestSide && std::max(width, height) <= kLongestSide;
    return fits ? ScreenSize{width, height} : kUsualScreen;
}

ScreenSize HandheldScreen(const Window& window) {
    const QWidget* screen = qt::ScreenBelow(&window);
    if (qt::HasFixedScreen() || !screen) return HandheldScreen();
    return {screen->width(), screen->height() + kBarHeight};
}

namespace qt {

bool HasFixedScreen() { return !qEnvironmentVariableIsEmpty("INKWRIGHT_SCREEN"); }

QWidget* ScreenBelow(const Window* window) {
    while (window && !window->Handle()->screen) window = window->Handle()->owner;
    return window ? window->Handle()->screen : nullptr;
}

QPoint HandheldOrigin(const Window* window) {
    if (const QWidget* screen = ScreenBelow(window)) return screen->mapToGlobal(QPoint(0, -kBarHeight));
    const ScreenSize size = HandheldScreen();
    return CentredPlace({size.width, size.height});
}

QRect OntoMonitor(const QWidget* around, const QRect& desktop) {
    const QScreen* monitor = around ? around->screen() : QGuiApplication::screenAt(desktop.center());
    if (!monitor) monitor = QGuiApplication::primaryScreen();
    if (!monitor) return desktop;
    return ToQt(ink::MovedInto(FromQt(desktop), FromQt(monitor->availableGeometry())));
}

QPoint CentredPlace(QSize frame) {
    const QScreen* monitor = QGuiApplication::primaryScreen();
    const QRect area = monitor ? monitor->availableGeometry() : QRect(QPoint(0, 0), frame);
    return {std::max(area.left(), area.left() + (area.width() - frame.width()) / 2),
            std::max(area.top(), area.top() + (area.height() - frame.height()) / 2)};
}

}  // namespace qt

}  // namespace platform
