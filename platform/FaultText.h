#pragma once

#include <string>

namespace platform {

// What the user is told before the program ends for what nobody caught, the exception of this moment. Plain
// ASCII but for what the exception itself says.
std::string FaultText();

}  // namespace platform
