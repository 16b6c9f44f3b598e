#pragma once

#include "app/store/NoteJournal.h"
#include "editor/FileNamePattern.h"
#include "ink/InkPage.h"

namespace platform {
class Window;
}

namespace editor {

// Fills an empty page from the file at its note path. When there is no such file or it can't be read whole,
// the page stays empty and its path is cut back to the folder, so that a save makes a new note there.
void LoadNote(platform::Window* owner, ink::InkPage& page);

// Shows the file's content anew at the place of the page where the view is; the page must be unmodified and
// has no steps left. False, with the page as it was, while the file can't be read whole.
bool ReloadNote(ink::InkPage& page);

// True when the note at the page's path is this page's; false for a new note, and for one whose proposed path
// was kept although the user declined it or the file could not be written.
bool HasFile(const ink::InkPage& page);

// Writes the page to its file; a note without one is named by the user first. A proposed path that somebody
// else has taken meanwhile gives way to the next free one. An empty new note writes nothing and succeeds. The
// memo that waits is written beside the note; the page is cleared or gone after that. False when the note is
// not on disk: then an older version of it is what it was, or where the storage has room for one of them only
// the page is in the journal.
bool SaveNote(platform::Window* owner, NoteKind kind, ink::InkPage& page, store::NoteJournal& journal);

// The same without a word to the user: a new note goes where it would be proposed. Afterwards the page is
// that of its file.
bool SaveWithoutAsking(NoteKind kind, ink::InkPage& page, store::NoteJournal& journal);

// Cuts a note path back to its folder: a path without "\" becomes empty.
void ForgetFile(ink::InkPage& page);

}  // namespace editor
