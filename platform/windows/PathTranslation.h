#pragma once

#include <functional>
#include <string>
#include <vector>

// Handheld paths (see platform/FileSystem.h) to and from host paths, by rules alone: nothing here asks the
// system anything.
namespace platform::windows {

// What the handheld's names stand for. Folders of the host have no "\" at their end; an empty one can't be
// reached.
struct HostPlaces {
    bool isDevice = false;  // one folder of the host is the whole handheld
    std::wstring root;
    std::wstring documents;                                      // not for a device
    std::function<std::wstring(const std::wstring& name)> card;  // empty when that card is not in
};

enum class PathFault { None, BadName, NoStorage };

// The place of a handheld path, absolute and with the prefix that lifts the length limit and switches off
// device names. Empty parts, "." and ".." are dropped, so nothing leads out of the handheld's file system.
// Only the root of a storage ends in "\". Empty when a part holds a character that no file name may hold, or
// when the storage is not there: nothing else may stand in for it.
std::wstring TranslateToHost(const std::wstring& handheldPath, const HostPlaces& places, PathFault& fault);

// The inverse for a full host path.
std::wstring TranslateToHandheld(const std::wstring& fullPath, const HostPlaces& places);

// "\\?\X:\a" as "X:\a", "\\?\UNC\server\share" as "\\server\share".
std::wstring WithoutLongPrefix(const std::wstring& hostPath);

// "X:..."
bool BeginsWithDrive(const std::wstring& path);

// True for a path that leads to the same place whatever the current directory and drive are.
bool IsAbsolute(const std::wstring& path);

std::wstring Unquoted(const std::wstring& path);

// The entries of a search path (the variable PATH) that are absolute, without quotes and "\" at the end.
std::vector<std::wstring> AbsoluteFolders(const std::wstring& searchPath);

}  // namespace platform::windows
