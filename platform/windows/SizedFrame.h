#pragma once

#include <string>

#include "platform/Screen.h"
#include "platform/WindowPlaces.h"
#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

constexpr DWORD kFixedFrameStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD kSizedFrameStyle = kFixedFrameStyle | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;

// INKWRIGHT_SCREEN asks for a screen of exactly one size: frames can't be sized then, and none is remembered.
bool HasFixedScreen();

// The size of a frame of this style around so much of a page, its scroll bar included, and the menu bar, for
// a window of the monitor that `like` lies on (null: the main one).
SIZE FrameAroundPage(ScreenSize page, DWORD style, HWND like);
// The same for the least page that a frame may be sized to: that of the classic handheld.
SIZE LeastFrame(HWND like);

// What a frame that can be sized knows of itself: where it is when it is neither maximised nor over the whole
// monitor, and where that is kept between runs.
class SizedFrame {
  public:
    // Without a kind nothing is kept.
    explicit SizedFrame(std::wstring kind) : kind_(std::move(kind)) {}

    // Where the last one of its kind was; otherwise in the place of the frame that it opens over, and without
    // one (null) in the middle of the desktop. Always within reach on the monitors that are there now.
    WindowPlace PlaceToOpen(const SizedFrame* below);
    // To be called whenever the frame has moved or has another size.
    void Follow(HWND frame);
    // Keeps the place for the next run.
    void Remember() const;

    bool IsFullScreen() const { return isFullScreen_; }
    void ToggleFullScreen(HWND frame);

  private:
    std::wstring kind_;
    WindowPlace place_;
    bool isFullScreen_ = false;
};

}  // namespace platform::windows
