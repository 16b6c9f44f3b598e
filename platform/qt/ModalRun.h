#pragma once

#include "platform/qt/WindowImpl.h"

namespace platform::qt {

// Lets the window fill itself, shows it, handles events until its modal run ends, and destroys it. Returns
// the result of the run.
int OpenAndRun(Window& window);

// Tells the user that a window can't be made; -1, what its modal run gives then. `owner` may be null.
int CannotOpen(Window* owner);

// Tells the window that another copy takes this one's place, unless it has ended or something else is open
// over it: that is asked first.
void TakeOver(Window& window);
// What was open over `owner` (may be null) has ended since another copy takes over: now it is the owner's
// turn.
void PassTakeOverOn(Window* owner);

}  // namespace platform::qt
