#pragma once

#include <optional>
#include <string>

#include "ink/Scale.h"

namespace platform {

// INKWRIGHT_SCALE ("1", "1.25", ..., "3") asks for one scale on every monitor, for tests and pictures;
// nothing for any other text.
std::optional<ink::Scale> ScaleOfText(const std::wstring& text);

}  // namespace platform
