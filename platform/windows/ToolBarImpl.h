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
    ToolBarLayout layout;
    ink::Scale scale;
    std::vector<ToolTip> toolTips;
    windows::OwnedImageList images;

    bool Create(HWND menuBar, const ToolBarLayout& source, ink::Scale menuBarScale);
    // The menu bar has another size or scale.
    void Place(SIZE menuBar, ink::Scale menuBarScale);
    Image Images() const;
    bool UseImages(const Image& picture);
    // Takes its own images again, as large and as light as they now have to be.
    void Follow(SIZE menuBar);
    void GiveToolTip(NMHDR& request) const;

    void SetState(int command, BYTE bit, bool on);

  private:
    bool AddButtons();
    // Sizes of images and buttons for the scale, with the images of the resource.
    bool Dress(int menuBarHeight);
};

}  // namespace platform
