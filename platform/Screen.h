#pragma once

#include "platform/ToolBar.h"
#include "platform/Window.h"

namespace platform {

struct ScreenSize {
    int width = 0;
    int height = 0;
};

// Size of the handheld's screen in pixels: 480 x 640, or what INKWRIGHT_SCREEN=WIDTHxHEIGHT asks for
// (each side 160 to 4096). The navigation bar and the menu bar take kBarHeight rows each.
ScreenSize HandheldScreen();
constexpr int kBarHeight = 26;

// A full-screen dialog: navigation bar with the title above, menu bar with a tool bar below, the client area
// between. On a desktop it is a window that can be moved and whose client area is exactly the handheld's.
// Closing it (close button, Alt+F4) is OnCommand(kIdOk). Esc does nothing.
class Screen : public Window {
  public:
    enum class ScrollBar { None, Vertical };

    explicit Screen(ScrollBar scrollBar);
    ~Screen() override;

    // Creates the window, runs it until EndModal and destroys it. `owner` (may be null) can't be used
    // meanwhile. Returns EndModal's result, -1 when the window could not be made, which the user was told.
    int RunModal(Window* owner);

    // An entry above "Close" in the frame's own menu, where the desktop has one; further ones come below it.
    // Its command is a multiple of 16 below 0xF000, and may be chosen whenever OffersInFrame says so.
    void AddToFrameMenu(int command, const std::wstring& text);
    // Asked when the frame's menu opens.
    virtual bool OffersInFrame(int /*command*/) { return true; }

    // The menu bar at the bottom with its tool bar; false when it can't be made.
    bool CreateMenuBar(const ToolBarLayout& layout);
    ToolBar& Tools() { return tools_; }

  private:
    ScrollBar scrollBar_;
    ToolBar tools_;
};

}  // namespace platform
