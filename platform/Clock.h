#pragma once

#include <cstdint>

#include "platform/DateTime.h"

namespace platform {

DateTime LocalNow();

// Milliseconds since some start; wraps after 49.7 days, so compare differences only.
uint32_t TickMilliseconds();

// Blocks the calling thread.
void Pause(uint32_t milliseconds);

}  // namespace platform
