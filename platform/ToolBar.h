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

    // The button images as the bar shows them now, fit for its scale and its colour, and without what
    // SetImages brought.
    Image Images() const;
    // Replaces all button images at once by others of the same shape. When the Screen has another scale or
    // other colours (OnSize) the bar has taken its own images again.
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
