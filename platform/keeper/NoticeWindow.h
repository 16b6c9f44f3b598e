#pragma once

#include <string>

namespace platform::windows {

// Shows a notification's dialog and returns true when it was dismissed, false when it could not be shown or
// the user's session ends. It comes to the front without taking the keyboard or the pen away from what the
// user is doing; the keyboard reaches it as any other window. Notices that show already stay in sight.
bool ShowNotice(const std::wstring& title, const std::wstring& text);

}  // namespace platform::windows
