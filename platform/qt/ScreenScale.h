#pragma once

#include <QPointF>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "ink/Geometry.h"
#include "ink/Scale.h"

// A page pixel is the toolkit's own pixel; how many of the screen's it takes is what the toolkit says of the
// monitor that a window lies on.
namespace platform::qt {

// INKWRIGHT_SCALE asks for another number. To be called before there is an application.
void TakeScaleAskedFor();

inline ink::Scale ScaleOf(const QWidget& widget) {
    return ink::Scale(static_cast<int32_t>(std::lround(widget.devicePixelRatioF() * ink::Scale::kPageDots)));
}

// How many page pixels so many screen pixels take, a last one that is only begun included.
inline int WholePagePixels(int screenPixels, ink::Scale scale) {
    return screenPixels <= 0 ? 0 : static_cast<int>(scale.ToPage(screenPixels - 1)) + 1;
}

// All page pixels that lie in an area of screen pixels, if in part only.
inline QRect PagePixelsIn(const ink::Rect& screen, ink::Scale scale) {
    const ink::Point first = scale.ToView({screen.left, screen.top});
    const ink::Point last = scale.ToView({screen.right - 1, screen.bottom - 1});
    return {QPoint(first.x, first.y), QPoint(last.x, last.y)};
}

// The page pixel that a place lies in; pens tell of places within one.
inline ink::Point PagePixelAt(const QPointF& place) {
    return {static_cast<int32_t>(std::floor(place.x())), static_cast<int32_t>(std::floor(place.y()))};
}

}  // namespace platform::qt
