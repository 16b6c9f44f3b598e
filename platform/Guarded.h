#pragma once

#include <new>

#include "platform/MessageBox.h"

namespace platform {

// Runs what handles an event, for the ports: nothing may be thrown through the system's own frames on the
// stack. False when memory was short, which the user was told.
template <typename Handler>
bool Guarded(Window& window, Handler&& handler) {
    try {
        handler();
        return true;
    } catch (const std::bad_alloc&) {
        ShowOutOfMemory(&window);
        return false;
    }
}

}  // namespace platform
