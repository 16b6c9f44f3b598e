#pragma once

#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

// For functions of user32 that not every version of the system has: what is not there stays null.
template <typename Function>
void LookUp(Function& function, const char* name) {
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32.dll"), name);
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

}  // namespace platform::windows
