#pragma once

namespace platform::qt {

// Whether the desktop's own colours are dark.
bool WantsDark();

}  // namespace platform::qt
