#pragma once

#include <string>

namespace platform::qt {

// Opens a new message of the user's mail program with the file attached. False when there is none; one that
// is still busy after a moment has opened it.
bool OpenMailMessage(const std::string& file);

}  // namespace platform::qt
