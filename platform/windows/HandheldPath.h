#pragma once

#include <string>
#include <vector>

// Handheld paths (see platform/FileSystem.h) to and from paths that Windows takes, with the folders and
// drives of this machine. PathTranslation.h has the rules.
namespace platform::windows {

// The place of a handheld path. Empty when it has none, with the system's last error telling why: a name that
// no file may have, or a storage that is not there.
std::wstring ToHostPath(const std::wstring& handheldPath);

// The same place without the prefix for long paths, for the parts of the system that know no such paths.
std::wstring ToShellPath(const std::wstring& handheldPath);

// True for the root of a drive or a share, which searches do not find.
bool IsStorageRoot(const std::wstring& hostPath);

// The inverse for a path that comes from outside.
std::wstring ToHandheldPath(const std::wstring& hostPath);

// Storage cards that can be read now, in order: names in the handheld's root that are no entries of the
// folder behind it. Not for a device folder, where they are.
std::vector<std::wstring> ReadableCards();

// An absolute path without "\" at its end; empty on failure.
std::wstring FullPath(const std::wstring& path);

// The folder that stands for the whole handheld (INKWRIGHT_DEVICE), as a full path; empty when none does.
std::wstring DeviceFolder();

}  // namespace platform::windows
