#pragma once

#include <QFont>

#include "ink/Scale.h"

namespace platform::qt {

// The desktop's own font in a size in tenths of a point; in the toolkit's own windows for the usual scale,
// which makes it as fine as the screen.
QFont FontOf(int tenthPoints, bool isBold, ink::Scale scale = ink::Scale());

}  // namespace platform::qt
