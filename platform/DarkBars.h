#pragma once

#include "ink/PixelSurface.h"

namespace platform {

// Makes pictures that were drawn for a light bar fit for a dark one: what is dark in them becomes light, and
// keeps its hue. `mask` stands for nothing and stays.
void LightenPictures(const ink::PixelSurface& surface, uint32_t mask);

}  // namespace platform
