#pragma once

#include <functional>
#include <string>

namespace platform::windows {

// Virus scanners, indexers and programs that synchronise folders hold a file for moments. Makes `attempt`,
// which is to leave the system's last error, again for about 300 ms in all while such a hold of `hostPath`
// can be what makes it fail. An answer that is final is given at once.
bool TryThroughHolds(const std::wstring& hostPath, const std::function<bool()>& attempt);

}  // namespace platform::windows
