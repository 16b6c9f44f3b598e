#pragma once

#include "platform/ToolBar.h"
#include "platform/qt/MenuBar.h"

namespace platform {

struct ToolBar::Impl {
    qt::MenuBar& strip;  // lives as long as the Screen's frame
};

}  // namespace platform
