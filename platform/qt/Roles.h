#pragma once

#include <QAccessible>

class QWidget;

namespace platform::qt {

// Screen readers hear what a widget of ours is, and find its open menus in it; the toolkit knows only what
// its own are. Comes first, before anything that may be told of the widget.
void GiveRole(QWidget& widget, QAccessible::Role role);

// Once for each run, before there are windows.
void TellRoles();

}  // namespace platform::qt
