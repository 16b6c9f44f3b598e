#pragma once

#include "ink/Geometry.h"
#include "ink/Scale.h"

// Bitmaps of the program's resources are drawn in several sizes, so that small pictures are crisp on every
// screen: the one for page pixels under its own id, the larger ones under ids that follow from it.
namespace platform {

struct ArtworkSize {
    ink::Scale scale;
    int idOffset = 0;
};

constexpr ArtworkSize kArtworkSizes[] = {
    {ink::Scale(96), 0}, {ink::Scale(144), 1000}, {ink::Scale(192), 2000}, {ink::Scale(288), 3000}};

// The largest that is not larger than `scale`: pictures are shown as they were drawn, never stretched.
constexpr ArtworkSize ArtworkFor(ink::Scale scale) {
    ArtworkSize found = kArtworkSizes[0];
    for (const ArtworkSize& size : kArtworkSizes) {
        if (size.scale.Dots() <= scale.Dots()) found = size;
    }
    return found;
}

// Where a picture of this size, in screen pixels, begins in the room that it is to take.
inline ink::Point InTheMiddleOf(const ink::Rect& room, int width, int height) {
    return {room.left + (room.Width() - width) / 2, room.top + (room.Height() - height) / 2};
}

}  // namespace platform
