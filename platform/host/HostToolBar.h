// The state of a tool bar of the headless port.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "platform/ToolBar.h"

namespace platform {

struct HostButton {
    bool checked = false;
    bool pressed = false;
    bool enabled = true;
};

struct ToolBar::Impl {
    std::map<int, HostButton> buttons;
    std::vector<uint32_t> images;  // the pixels set last, row by row; empty until then
};

}  // namespace platform
