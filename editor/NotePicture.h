#pragma once

#include "ink/InkPage.h"
#include "ink/PaletteBitmap.h"

namespace editor {

// The whole note in its colours and the current pen style, as wide as the view and as tall as its ink, with
// the program's line in the bottom right corner. False when memory is short; `picture` is then of no use.
bool MakeNotePicture(const ink::InkPage& page, ink::PaletteBitmap& picture);

}  // namespace editor
