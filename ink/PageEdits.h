// What the eraser and the space tool do to a page.
#pragma once

#include <cstdint>

#include "ink/InkPage.h"
#include "ink/SweptRegion.h"

namespace ink {

enum class EditResult { Changed, NothingToDo, OutOfMemory };

// Both fill an empty `change`, with which what they did can be taken back. On OutOfMemory (also when the page
// would get too long) nothing has changed.

// Takes the points inside `region` (page coordinates) out of their strokes; what is left of a stroke on
// either side goes on as strokes of its own in the same place of the drawing order. Points are tested, not
// the lines between them. Slots that become empty at the end stay.
EditResult EraseStrokes(InkPage& page, const SweptRegion& region, StrokeChange& change);

// Moves the strokes that begin at page row `from` or below by `rows`: down to open a gap (positive), or up.
// Strokes that begin above stay, and ink moves up no further than to the row below theirs, nor above the
// page; `reach` is by how many pixels ink reaches beyond its points.
EditResult MoveStrokes(InkPage& page, int64_t from, int64_t rows, int32_t reach, StrokeChange& change);

}  // namespace ink
