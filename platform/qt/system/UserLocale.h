#pragma once

#include <QLocale>

namespace platform::qt {

// The user's, or the handheld's own, English of the United States, where none is set.
QLocale UserLocale();

// Years are written in full: a note may be older than its reader thinks.
QString ShortPicture();
// With seconds, without the zone.
QString TimePicture();

}  // namespace platform::qt
