#pragma once

#include <string>

// Handheld paths (see platform/FileSystem.h) to and from paths that Windows takes.
namespace platform::windows {

// The place of a handheld path, absolute and with the prefix that lifts the length limit and switches off
// device names. Empty parts, "." and ".." are dropped, so nothing leads out of the handheld's file system.
// Empty when a part holds a character that no file name may hold.
std::wstring ToHostPath(const std::wstring& handheldPath);

// The same place without that prefix, for the parts of the system that know no such paths.
std::wstring ToShellPath(const std::wstring& handheldPath);

// True for the root of a drive, which searches do not find.
bool IsDriveRoot(const std::wstring& hostPath);

// The inverse for a path that comes from outside.
std::wstring ToHandheldPath(const std::wstring& hostPath);

// Names in the handheld's root that are no entries of the folder behind it.
std::wstring StorageCardName(int index);  // "Storage Card", "Storage Card2", ...
int StorageCardCount();
constexpr wchar_t kDocumentsName[] = L"My Documents";

// True when a folder stands for the whole handheld (INKWRIGHT_DEVICE).
bool HasDeviceFolder();

}  // namespace platform::windows
