#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ink/Geometry.h"

// Where a window that was left somewhere opens again: by rules alone, nothing here asks the system anything.
namespace platform {

struct WindowPlace {
    ink::Rect frame;  // desktop pixels, while it is neither maximised nor minimised
    bool isMaximised = false;
};

// "x y width height maximised", as it is kept. Nothing for a text that is no place a window could have had.
std::optional<WindowPlace> ReadWindowPlace(const std::wstring& text);
std::wstring TextOfPlace(const WindowPlace& place);

// The frame on these monitors, of which there is at least one: it keeps its place as long as its caption can
// be taken hold of, otherwise it goes on to the nearest one. No larger than the work area it lies on mostly,
// which it is moved into then, and no smaller than `least` where that has the room.
ink::Rect OntoMonitors(const ink::Rect& frame, const std::vector<ink::Rect>& workAreas,
                       const ink::Rect& least);

}  // namespace platform
