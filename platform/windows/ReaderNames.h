#pragma once

#include <string>

#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

// Tells screen readers what a window is whose text does not say it.
void NameForReaders(HWND window, const std::wstring& name);

}  // namespace platform::windows
