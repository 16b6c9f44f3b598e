#pragma once

#include <vector>

#include "platform/Window.h"

namespace platform::windows {

// Top left for a notice of this size in the lower right of the work area, where it covers least: above the
// others, then left of them. Where there is no room left, it covers others but leaves their captions in
// sight.
Point PlaceNotice(const Rect& work, int width, int height, const std::vector<Rect>& others);

}  // namespace platform::windows
