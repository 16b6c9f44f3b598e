#pragma once

#include <string>

// Names as they lie on the disk, where they are bytes.
namespace platform::qt {

// UTF-8. False for a text that holds halves of pairs or no characters at all, which no name can hold.
bool ToDisk(const std::wstring& text, std::string& bytes);

// As text, whatever the bytes are. Bytes that are no UTF-8 and characters that the handheld's names can't
// hold stand as U+F000 and their value: the name can be shown, found and opened, and no two names become one.
std::wstring NameFromDisk(const std::string& name);

// A text of the system's that is to be shown; what is no UTF-8 becomes U+FFFD.
std::wstring TextFromDisk(const std::string& bytes);

}  // namespace platform::qt
