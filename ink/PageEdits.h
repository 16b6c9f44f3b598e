// What the eraser and the space tool do to a page.
#pragma once

#include <cstdint>

#include "ink/InkPage.h"
#include "ink/SweptRegion.h"

namespace ink {

enum class EditResult { Changed, NothingToDo, OutOfMemory };

// Takes the points inside `region` (page coordinates) out of their strokes; what is left of a stroke on
// either side goes on as strokes of its own in the same place of the drawing order. Points are tested, not
// the lines between them. Slots that become empty at the end stay. On OutOfMemory a part of the strokes may
// be done; each is either erased or whole.
EditResult EraseStrokes(InkPage& page, const SweptRegion& region);

// Moves the strokes that begin at page row `from` or below by `rows`: down to open a gap (positive), or up.
// Strokes that begin above stay, and ink moves up no further than to the row below theirs, nor above the
// page; `reach` is by how many pixels ink reaches beyond its points. On OutOfMemory (also when the page would
// get too long) nothing has moved.
EditResult MoveStrokes(InkPage& page, int64_t from, int64_t rows, int32_t reach);

}  // namespace ink
