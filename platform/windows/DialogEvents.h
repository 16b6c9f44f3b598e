#pragma once

#include "platform/windows/WindowImpl.h"

namespace platform::windows {

// Connects a new dialog to its object and lets that fill the controls; the answer to WM_INITDIALOG.
INT_PTR OpenDialog(HWND handle, Window& window);

// Any other message of a dialog; the answer of its dialog procedure.
INT_PTR DialogEvent(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

// Moves the dialog over the middle of its owner, or of the desktop; never off the desktop's top left.
void Centre(HWND dialog);

inline HWND Item(HWND dialog, int id) { return dialog ? GetDlgItem(dialog, id) : nullptr; }

// Whether the control is an edit of many lines.
bool IsTextEdit(HWND control);

}  // namespace platform::windows
