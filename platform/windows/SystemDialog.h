#pragma once

#include "platform/windows/WindowImpl.h"

namespace platform::windows {

// Stands while one of the system's own dialogs runs over a window of ours (null: over none). When another
// copy takes over, what it sends reaches that dialog, which knows nothing of it: the dialog is then ended by
// the command `refusal`, and the window is told afterwards.
class SystemDialog {
  public:
    SystemDialog(Window* owner, WORD refusal);
    SystemDialog(const SystemDialog&) = delete;
    SystemDialog& operator=(const SystemDialog&) = delete;
    ~SystemDialog();

  private:
    static LRESULT CALLBACK Look(int code, WPARAM wParam, LPARAM lParam);

    HWND owner_;
    WORD refusal_;
    bool takenOver_ = false;
    SystemDialog* outer_;
    HHOOK hook_;
};

}  // namespace platform::windows
