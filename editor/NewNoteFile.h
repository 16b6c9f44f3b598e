#pragma once

#include <string>

#include "editor/FileNamePattern.h"
#include "platform/File.h"

namespace platform {
class Window;
}

namespace editor {

// Makes the file of a note that has none yet: proposes a name, lets the user change it, and creates the file
// under a name that is free in the folder.
// `notePath` is the target folder (ends in "\"; empty: the default folder of new notes) and becomes the new
// file's path; when the user cancels, it becomes what the proposed name would have made of it, and the
// returned file is not open.
platform::File CreateNewNoteFile(platform::Window* owner, NoteKind kind, std::wstring& notePath);

}  // namespace editor
