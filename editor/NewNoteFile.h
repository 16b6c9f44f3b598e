#pragma once

#include <string>

#include "app/store/SafeFile.h"
#include "editor/FileNamePattern.h"

namespace platform {
class Window;
}

namespace editor {

// Makes the file of a note that has none yet: proposes a name, lets the user change it, and opens the file
// for a name that is free in the folder. `notePath` is the target folder (ends in "\"; empty: the default
// folder of new notes) and becomes the new file's path; when the user cancels, it becomes what the proposed
// name would have made of it, and the returned file is not open.
store::SafeFile CreateNewNoteFile(platform::Window* owner, NoteKind kind, std::wstring& notePath);

// Where such a note would go if nobody changed the proposed name; the folder need not exist yet.
std::wstring ProposedNotePath(NoteKind kind, const std::wstring& notePath);

}  // namespace editor
