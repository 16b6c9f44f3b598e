#pragma once

#include <string>

// The system's ANSI code page, the encoding of text memo files.
namespace platform {

// Characters without a place in the code page become its default character. False when memory is short.
bool ToAnsi(const std::wstring& text, std::string& bytes);
bool FromAnsi(const std::string& bytes, std::wstring& text);

// Comparison as file names are compared: case-insensitive, by code units, no locale.
bool EqualNoCase(const std::wstring& a, const std::wstring& b);

// The text in lower case, code unit by code unit: equal for texts that EqualNoCase calls equal.
std::wstring LowerCase(std::wstring text);

// The text with its capital letters made small and nothing else changed.
std::wstring SmallLetters(std::wstring text);

// How the user's locale orders two names: negative, zero or positive.
int CompareNames(const std::wstring& a, const std::wstring& b);

}  // namespace platform
