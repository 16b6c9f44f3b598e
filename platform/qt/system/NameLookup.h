#pragma once

#include <string>

namespace platform::qt {

// The entry of a folder that the handheld would find under this name; `asTyped` is the name in UTF-8, which
// no entry has. Empty when there is none.
std::string EntryLike(const std::string& folder, const std::wstring& name, const std::string& asTyped);

}  // namespace platform::qt
