#pragma once

#include "platform/windows/WindowImpl.h"

namespace platform::windows {

// Keeps the owner of a modal window from being used. It must be usable again before the modal window is
// destroyed: otherwise the system would activate some other program's window instead.
class DisabledOwner {
  public:
    explicit DisabledOwner(HWND owner);
    DisabledOwner(const DisabledOwner&) = delete;
    DisabledOwner& operator=(const DisabledOwner&) = delete;
    ~DisabledOwner();

  private:
    HWND owner_;  // null when there is nothing to enable again
};

enum class KeyNavigation { None, Dialog };  // Tab, Enter, Esc between controls

// Shows the created window of `window`, handles messages until its modal run ends, and destroys it. Returns
// the result of the run. `owner` may be null.
int RunToEnd(Window& window, HWND owner, KeyNavigation keys);

// Tells the user that a window can't be made; -1, what its modal run gives then. `owner` may be null.
int CannotOpen(HWND owner);

// A window over `owner` (may be null) has ended since another copy takes over: now it is the owner's turn.
void PassTakeOverOn(HWND owner);

// Ends and destroys a window whose OnCreate refused; returns the result it left.
int GiveUp(Window& window);

}  // namespace platform::windows
