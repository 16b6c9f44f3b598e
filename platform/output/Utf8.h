// Paths of the host are UTF-8 here, the system's UTF-16.
#pragma once

#include <string>

namespace platform {

std::string ToUtf8(const std::wstring& text);
std::wstring FromUtf8(const std::string& text);

}  // namespace platform
