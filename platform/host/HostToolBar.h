// The state of a tool bar of the headless port.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "platform/ToolBar.h"
#include "platform/Window.h"

namespace platform {

struct HostButton {
    bool checked = false;
    bool pressed = false;
    bool enabled = true;
};

struct ToolBar::Impl {
    std::map<int, HostButton> buttons;

    // The window's button for a command; null when there is none.
    static HostButton* Find(const Window& window, int command);
    HostButton* Find(int command);

    int bitmapId = 0;
    std::vector<uint32_t> images;  // the pixels set last, row by row; empty until then
};

}  // namespace platform
