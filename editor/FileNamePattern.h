#pragma once

#include <string>

#include "platform/DateTime.h"

namespace editor {

enum class NoteKind { Ordinary, Reminder };

// The name (without extension) that a pattern gives a new note in `targetFolder` (ends in "\") at `moment`.
// %F of an ordinary note is the folder's path below the store root.
std::wstring ExpandFileNamePattern(const std::wstring& pattern, NoteKind kind,
                                   const std::wstring& targetFolder, const platform::DateTime& moment);

}  // namespace editor
