#pragma once

#include <string>
#include <vector>

#include "platform/DateTime.h"

// What handheld paths (see FileSystem.h) are made of, by rules that hold on every system.
namespace platform {

constexpr wchar_t kDocumentsName[] = L"My Documents";

// The names on the way, outermost first. Trailing dots and blanks of a name do not count, so "." and ".." are
// none and nothing leads upwards.
std::vector<std::wstring> PartsOf(const std::wstring& path);

// Whether all characters are such as a file's name may hold.
bool IsName(const std::wstring& part);

// The whole path is "\" or nothing.
bool IsRoot(const std::wstring& path);

// "*.ikw" goes by the end of the name, "*.*" and "*" mean every name, anything else is a name.
bool MatchesPattern(const std::wstring& name, const std::wstring& pattern);

// The place that must answer before an entry of it can be missing for certain.
std::wstring MemoryOf(const std::wstring& path);

}  // namespace platform
