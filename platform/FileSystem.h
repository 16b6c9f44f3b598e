#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/DateTime.h"

// Files and folders by handheld path: rooted with "\", no drive letter, no current directory; a path
// without its leading "\" names the same entry. Matching is case-insensitive, as on the handheld. On a
// storage that is not there (StoragePaths.h), or that can't be reached, everything fails.
namespace platform {

class Window;

enum class EntryKind { Missing, File, Folder };

struct FolderEntry {
    std::wstring name;
    bool isFolder = false;
    DateTime lastWrite;  // local time
};

// What a search for exactly this path finds. A trailing "\" makes the search fail: strip it first.
EntryKind FindEntry(const std::wstring& path);

// Entries of `folder` whose names match `pattern` ("*.ikw", "*.*"), "." and ".." left out. False when
// the folder can't be enumerated; a folder without a match gives true and an empty list.
bool ListFolder(const std::wstring& folder, const std::wstring& pattern, std::vector<FolderEntry>& entries);

// When the file was last written, local time.
bool LastWriteTime(const std::wstring& path, DateTime& moment);
// How many bytes the file holds, without opening it.
bool FileSize(const std::wstring& path, uint64_t& bytes);

// True for any entry that has attributes of its own: also for a path with a trailing "\".
bool Exists(const std::wstring& path);

// Whether an existing file can be opened for writing now, and how many bytes it holds. It stays as it is.
bool CanWriteTo(const std::wstring& path, uint64_t& bytes);

// True when there is certainly no such entry. A missing card, or a share that can't be reached, leaves that
// open.
bool IsGone(const std::wstring& path);

bool MakeFolder(const std::wstring& path);  // one level; never a storage
bool DropFolder(const std::wstring& path);  // must be empty
bool EraseFile(const std::wstring& path);
bool MoveEntry(const std::wstring& from, const std::wstring& to);   // file or folder; never overwrites
bool CopyFileTo(const std::wstring& from, const std::wstring& to);  // overwrites; the copy is on the disk
// Puts the file `from` in the place of the file `to` of the same folder in one step: whoever looks finds the
// old one or the new one, whole. It takes over the attributes of the old one. Without an old one it is a
// MoveEntry. On failure both are what they were.
bool PutInPlace(const std::wstring& from, const std::wstring& to);

// Bytes that the caller may still use on the storage that holds `folder`.
bool FreeBytes(const std::wstring& folder, uint64_t& bytes);

// The user's personal documents folder, made when missing and possible; no trailing "\".
std::wstring DocumentsFolder();

// Folders in the root that are storage cards, such as "Storage Card", in order.
std::vector<std::wstring> StorageCards();

// Lets the user choose any folder, starting at `start`. False when the choice was cancelled.
bool ChooseFolder(Window* owner, const std::wstring& title, const std::wstring& start, std::wstring& chosen);

// A path of the host system (drive letter, share) as the handheld path of the same place; a text that is
// no host path comes back unchanged.
std::wstring FromHostPath(const std::wstring& path);

}  // namespace platform
