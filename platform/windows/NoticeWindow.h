#pragma once

#include <string>

namespace platform::windows {

// Shows a notification's dialog and returns when it was dismissed. It comes to the front without taking the
// keyboard or the pen away from what the user is doing.
void ShowNotice(const std::wstring& title, const std::wstring& text);

}  // namespace platform::windows
