// The host's files and its console: what this program asks of the system, implemented once for each.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ink/ByteStream.h"

namespace inkexport {

// Null with what is wrong, in words for the user.
std::unique_ptr<ink::ByteSource> OpenNote(const std::string& path, std::string& problem);

bool IsFolder(const std::string& path);
bool IsSeparator(char c);

void Print(const std::string& text);
void PrintError(const std::string& text);
// Whether somebody looks at the errors as they come, on a terminal that can wipe a line (ESC [ K).
bool ErrorsAreSeen();

// The program: returns its exit code.
int RunExport(const std::vector<std::string>& words);

}  // namespace inkexport
