// The program's paths and texts are UTF-8, the system's UTF-16.
#pragma once

#include <string>

namespace inkexport {

std::string ToUtf8(const std::wstring& text);
std::wstring FromUtf8(const std::string& text);

}  // namespace inkexport
