#pragma once

#include "platform/ToolBar.h"
#include "platform/Window.h"

namespace platform {

struct ScreenSize {
    int width = 0;
    int height = 0;
};

// Size of the handheld's screen in page pixels: 480 x 640, or what INKWRIGHT_SCREEN=WIDTHxHEIGHT asks for
// (each side 160 to 4096). The navigation bar and the menu bar take kBarHeight rows each.
ScreenSize HandheldScreen();
// The same for the Screen that `window` is or lies over, as its frame has been sized.
ScreenSize HandheldScreen(const Window& window);
constexpr int kBarHeight = 26;

// A full-screen dialog: navigation bar with the title above, menu bar with a tool bar below, the client area
// between. On a desktop it is a window that can be moved, sized and maximised; with INKWRIGHT_SCREEN its
// client area is exactly the handheld's and stays so. Closing it (close button, Alt+F4) is OnCommand(kIdOk).
// Esc does nothing.
class Screen : public Window {
  public:
    enum class ScrollBar { None, Vertical };

    // Screens of one kind open where the last one of it was, and as large; without a kind in the usual place.
    explicit Screen(ScrollBar scrollBar, std::wstring kind = {});
    ~Screen() override;

    // Creates the window, runs it until EndModal and destroys it. `owner` (may be null) can't be used
    // meanwhile. Returns EndModal's result, -1 when the window could not be made, which the user was told.
    int RunModal(Window* owner);

    // An entry above "Close" in the frame's own menu, where the desktop has one; further ones come below it.
    // Its command is a multiple of 16 below 0xF000, and may be chosen whenever OffersInFrame says so.
    void AddToFrameMenu(int command, const std::wstring& text);
    // Asked when the frame's menu opens.
    virtual bool OffersInFrame(int /*command*/) { return true; }

    // Whether the user may size it.
    bool CanBeSized() const;
    // The client area has another size, or another scale as on another monitor; or the system's colours have
    // changed. What is drawn is to be drawn anew.
    virtual void OnSize() {}
    // What the client area is, for screen readers.
    void NameClient(const std::wstring& name);
    // Over the whole monitor without a caption, and back; not with a fixed size.
    void ToggleFullScreen();

    // The menu bar at the bottom with its tool bar; false when it can't be made.
    bool CreateMenuBar(const ToolBarLayout& layout);
    ToolBar& Tools() { return tools_; }

  private:
    ScrollBar scrollBar_;
    std::wstring kind_;
    ToolBar tools_;
};

}  // namespace platform
