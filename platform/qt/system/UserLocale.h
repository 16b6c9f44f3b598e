#pragma once

#include <QLocale>

namespace platform::qt {

// The user's, or the handheld's own, English of the United States, where none is set.
QLocale UserLocale();

}  // namespace platform::qt
