#pragma once

#include <string>

namespace app {

// One run of the program, from the text after its name to the exit code.
int RunProgram(const std::wstring& commandLine);

}  // namespace app
