#pragma once

#include <array>

#include "ink/Color.h"
#include "platform/ToolBar.h"

namespace editor {

using RecentColors = std::array<ink::ColorRef, 5>;

// The editor's tool bar: buttons in order with their titles.
const platform::ToolBarLayout& EditorToolBarLayout();

// Shows the four most recent colours on the pen buttons.
void ShowPenColors(platform::ToolBar& tools, const RecentColors& colors);

// Checks one of the tools that exclude each other and unchecks the rest.
void CheckTool(platform::ToolBar& tools, int command);

// Puts the colour at `position` (0 to 4) in front; those before it move one place back. A `color` that is not
// the one at `position` takes that place's turn and its old colour is forgotten.
void MoveToFront(RecentColors& colors, size_t position, ink::ColorRef color);

}  // namespace editor
