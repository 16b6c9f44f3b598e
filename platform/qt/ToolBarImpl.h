#pragma once

#include "platform/ToolBar.h"
#include "platform/qt/MenuBar.h"

namespace platform {

struct ToolBar::Impl {
    explicit Impl(qt::MenuBar& menuBar) : strip(menuBar) {}

    qt::MenuBar& strip;  // lives as long as the Screen's frame
};

}  // namespace platform
