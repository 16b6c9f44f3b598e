#pragma once

#include <string>
#include <vector>

// The text that the program is started with (see platform/ProgramEntry.h) and the arguments of a process.
namespace platform::qt {

// Paths and addresses of files of this system become the handheld's, in quotes. A word such as "/manage" is a
// switch, unless there is such a file.
std::wstring CommandTextOf(const std::vector<std::string>& arguments);

// The words of a text, those in quotes whole and without them.
std::vector<std::string> SplitCommandText(const std::wstring& text);

}  // namespace platform::qt
