#pragma once

#include "ink/InkPage.h"
#include "ink/PaletteBitmap.h"

namespace editor {

// Where a view may be narrower than what was written, its ink decides.
enum class PictureWidth { OfView, OfInk };

// The whole note in its colours and the current pen style, at least as wide as the view and as tall as its
// ink, with the program's line in the bottom right corner. False when memory is short; `picture` is then of
// no use.
bool MakeNotePicture(const ink::InkPage& page, PictureWidth wanted, ink::PaletteBitmap& picture);

}  // namespace editor
