#pragma once

#include <string>

namespace platform {
class Window;
}

namespace manager {

// Reads every note below the root, which ends in "\", while a dialog tells how far it is; then tells which of
// them can't be read whole. The strokes of those that are whole go into a note beside each; the damaged files
// stay as they are. True when the store has new notes.
bool CheckNotes(platform::Window& owner, const std::wstring& rootPrefix);

}  // namespace manager
