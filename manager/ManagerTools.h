#pragma once

#include "platform/ToolBar.h"

namespace manager {

const platform::ToolBarLayout& ManagerToolBarLayout();

}  // namespace manager
