#pragma once

#include <memory>
#include <vector>

#include "platform/Image.h"

namespace platform {

struct ToolBarButton {
    int command = 0;                 // 0 = separator
    const wchar_t* title = nullptr;  // tool tip
};

// Buttons in order; button images stand side by side in the bitmap resource, separators take none. Sizes are
// page pixels.
struct ToolBarLayout {
    int bitmapId = 0;
    int imageWidth = 0;
    int imageHeight = 0;
    std::vector<ToolBarButton> buttons;
};

// The tool bar of a Screen's menu bar; made by Screen::CreateMenuBar, before that nothing has an effect.
class ToolBar {
  public:
    ToolBar();
    ~ToolBar();

    // Replaces all button images at once by those of an image from the layout's resource. To be called again
    // when the scale has changed; without this the tool bar follows by itself.
    void SetImages(const Image& images);
    void SetChecked(int command, bool checked);
    void SetPressed(int command, bool pressed);
    void SetEnabled(int command, bool enabled);

    struct Impl;
    std::unique_ptr<Impl>& Handle() { return impl_; }

  private:
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform
