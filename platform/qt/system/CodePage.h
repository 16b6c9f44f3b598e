#pragma once

#include <string>

namespace platform::qt {

// The code page of memo texts, as Windows has it for the language of a locale such as "pl_PL.UTF-8"; 1252 for
// all others. A store goes from system to system byte for byte.
int CodePageOf(const std::string& locale);

// Of this user: INKWRIGHT_CODEPAGE, else by the locale of the user's texts.
int UserCodePage();

// As ToAnsi and FromAnsi of TextEncoding.h, in this code page. False also where this system has no such page.
bool ToCodePage(int codePage, const std::wstring& text, std::string& bytes);
bool FromCodePage(int codePage, const std::string& bytes, std::wstring& text);

}  // namespace platform::qt
