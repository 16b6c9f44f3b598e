// What can be had of a note file that the reader refuses.
#pragma once

#include "ink/NoteFile.h"

namespace ink {

// Clears the page and fills it with the strokes that lie whole in the file, each in the file's own band, up
// to the first place where the file breaks off, can't be read or makes no sense. Paper and band height become
// the file's. False, with no stroke on the page, when there is none to be had or memory is short.
bool SalvageNote(ByteSource& source, InkPage& page);

}  // namespace ink
