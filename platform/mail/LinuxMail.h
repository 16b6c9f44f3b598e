#pragma once

#include <string>

// The mail program of the system that Wine runs on.
namespace platform::windows {

// Opens a new message with the file attached. False when this is not Wine, or that system has no mail
// program. Waits a few seconds for the answer: a mail program that is still busy then has opened it.
bool OpenLinuxMail(const std::wstring& hostPath);

}  // namespace platform::windows
