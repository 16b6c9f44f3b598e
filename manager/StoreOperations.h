#pragma once

#include <string>

namespace platform {
class Window;
}

// What changes the note store on disk. Paths are whole; folders that are passed end in "\". Every failure is
// shown to the user where it happens; nothing is rolled back. Alarms and memos follow their notes.
namespace manager {

// Moves a note and its memo. A file of that name in the way is overwritten, or another name taken, as the
// user says; `destination` is then where the note really went. False when it did not move.
bool MoveNote(platform::Window* owner, const std::wstring& source, std::wstring& destination);

// Asks, and deletes a note with its memo and alarms. True when it is gone.
bool DeleteNote(platform::Window* owner, const std::wstring& path);
// Asks, and deletes a folder with all that is in it; `shownName` is how the user knows it.
enum class FolderDeletion { NotWanted, Failed, Done };
FolderDeletion DeleteFolder(platform::Window* owner, const std::wstring& folder,
                            const std::wstring& shownName);

// The first free of "New Folder", "New Folder (1)", ... is made in the folder; its name, empty on failure.
std::wstring CreateFolder(const std::wstring& folder);

enum class CopyResult { Done = 1, Cancelled = 2, Failed = 3 };
CopyResult CopyFolderTree(platform::Window* owner, const std::wstring& source,
                          const std::wstring& destination);

// Folders without their trailing "\". A folder can't move to a reserved name under the root.
bool MoveFolder(platform::Window* owner, const std::wstring& source, const std::wstring& destination,
                const std::wstring& rootPrefix);

// True for a name that may not be used directly under the root; tells the user.
bool RefuseReservedName(platform::Window* owner, const std::wstring& name);
void ShowRenameFailure(platform::Window* owner);

}  // namespace manager
