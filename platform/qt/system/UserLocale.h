#pragma once

#include <QLocale>
#include <string>

namespace platform::qt {

// What the user's environment says of a category such as "LC_TIME"; empty when nothing.
std::string LocaleName(const char* category);

// The user's, or the handheld's own, English of the United States, where none is set.
QLocale UserLocale(const char* category);
// That of dates and times.
QLocale TimeLocale();

// Years are written in full: a note may be older than its reader thinks.
QString ShortPicture();
// With seconds, without the zone.
QString TimePicture();

}  // namespace platform::qt
