#pragma once

#include <string>

namespace platform {

// One run of the program, from the text after its name to the exit code. The program defines it; a port's
// entry point calls it.
int RunProgram(const std::wstring& commandLine);

}  // namespace platform
