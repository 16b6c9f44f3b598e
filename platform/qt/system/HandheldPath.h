#pragma once

#include <string>
#include <vector>

// Handheld paths (see platform/FileSystem.h) to and from paths of this system:
//
//   \My Documents           the user's documents folder
//   \Storage Card...        removable media that are mounted
//   \File System\home\...   any other place of this system
//   \X:\..., \\server\...   nothing
//   anything else           below the user's data folder
//
// With INKWRIGHT_DEVICE that folder is all there is, and the cards are its sub-folders of such names.
namespace platform::qt {

// The place of a handheld path; of each level the entry of exactly that name, else one that differs in letter
// case only, else what would have to be made. Empty when it has none, with errno telling why: EINVAL for a
// name that no file may have, ENODEV for a storage that is not there.
std::string ToHostPath(const std::wstring& handheldPath);

// The inverse for an absolute path that comes from outside.
std::wstring ToHandheldPath(const std::string& hostPath);

// False for names that a system of the handheld's family keeps for devices ("con", "nul.txt"): they are found
// where they are, but none is made.
bool MayBeMade(const std::string& hostPath);

// True for any place of this system that has no name of its own on the handheld.
bool IsElsewhere(const std::wstring& handheldPath);

// Cards that are in now, in order. Not for a device folder, where they are sub-folders.
std::vector<std::wstring> ReadableCards();

// The folder that stands for the whole handheld (INKWRIGHT_DEVICE), absolute; empty when none does.
std::string DeviceFolder();

}  // namespace platform::qt
