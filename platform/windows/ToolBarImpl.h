#pragma once

#include <string>
#include <vector>

#include "platform/ToolBar.h"
#include "platform/windows/Guards.h"

namespace platform {

struct ToolBar::Impl {
    struct ToolTip {
        int command = 0;
        std::wstring text;
    };

    HWND bar = nullptr;
    int imageWidth = 0;
    int imageHeight = 0;
    std::vector<ToolTip> toolTips;
    windows::OwnedImageList images;

    bool Create(HWND menuBar, const ToolBarLayout& layout);
    bool UseImages(const Image& picture);
    void GiveToolTip(NMHDR& request) const;

    void SetState(int command, BYTE bit, bool on);

  private:
    bool AddButtons(const ToolBarLayout& layout);
};

}  // namespace platform
