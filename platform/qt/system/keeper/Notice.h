#pragma once

#include <string>

namespace platform::qt {

// Shows a notification's dialog, by the desktop's own service or else in a window of ours, and returns true
// when it was dismissed or its "Open" was chosen, which brings the program to the front. False when it could
// not be shown or the user's session ends.
bool ShowNotice(const std::wstring& title, const std::wstring& text);

}  // namespace platform::qt
