#pragma once

#include <QFont>

namespace platform::qt {

// Pixels of a size in tenths of a point at 96 dots per inch: all other sizes of the program are pixels too.
constexpr int PixelsOf(int tenthPoints) { return (tenthPoints * 96 + 360) / 720; }

// The desktop's own font in another size.
QFont FontOf(int tenthPoints, bool isBold);

}  // namespace platform::qt
