#pragma once

#include <string>

// Texts as they are stored: in UTF-16, whatever size the system's wide characters have.
namespace platform {

std::u16string ToUtf16(const std::wstring& text);

// Halves of a pair that stand alone are kept as they are.
std::wstring FromUtf16(const std::u16string& units);

}  // namespace platform
