// Moving pixels about in surfaces: nothing here asks a system anything.
#pragma once

#include "ink/PixelSurface.h"

namespace platform {

// Copies `source` of one picture to `topLeft` of another, as far as either has room. Returns what was
// covered.
ink::Rect CopyPixels(const ink::PixelSurface& from, const ink::Rect& source, const ink::PixelSurface& to,
                     ink::Point topLeft);
// The same without the pixels that have the value `mask`.
void CopyMasked(const ink::PixelSurface& from, const ink::Rect& source, uint32_t mask,
                const ink::PixelSurface& to, ink::Point topLeft);
void FillPixels(const ink::PixelSurface& surface, const ink::Rect& area, uint32_t pixel);
void InvertPixels(const ink::PixelSurface& surface, const ink::Rect& area);
// Down when `dy` is positive; the uncovered rows keep what they had.
void MoveRows(const ink::PixelSurface& surface, int dy);

}  // namespace platform
