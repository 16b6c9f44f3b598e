#pragma once

#include "platform/ToolBar.h"

namespace manager {

const platform::ToolBarLayout& ManagerToolBarLayout();

// What the manager shows, as far as the tool bar depends on it.
struct ToolSituation {
    bool calendarMode = false;
    bool showsCurrentMonth = false;  // calendar mode
    int kind = -1;                   // tree mode: kind of the selected node
};

void UpdateToolBar(platform::ToolBar& tools, const ToolSituation& situation);

}  // namespace manager
