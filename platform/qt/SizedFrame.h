#pragma once

#include <QWidget>
#include <string>

#include "platform/WindowPlaces.h"

namespace platform::qt {

// What a frame that can be sized knows of itself: where it is when it is neither maximised nor over the whole
// monitor, and where that is kept between runs. A place is the frame's top left corner and the size of what
// is in it: how wide its border is nobody knows before it is there.
class SizedFrame {
  public:
    // Without a kind nothing is kept.
    explicit SizedFrame(std::wstring kind) : kind_(std::move(kind)) {}

    // Where the last one of its kind was; otherwise in the place of the frame that it opens over, and without
    // one (null) in the middle of the desktop. Always within reach on the monitors that are there now.
    WindowPlace PlaceToOpen(const SizedFrame* below);
    // To be called whenever the frame has moved or has another size.
    void Follow(const QWidget& frame);
    // Keeps the place for the next run.
    void Remember() const;

    bool IsFullScreen() const { return isFullScreen_; }
    void ToggleFullScreen(QWidget& frame);
    // The frame opens so.
    void BeginFullScreen() { isFullScreen_ = true; }
    // Where no window manager makes a frame as large as it was asked to be, it is done here.
    void FillMonitor(QWidget& frame);

  private:
    std::wstring kind_;
    WindowPlace place_;
    bool isFullScreen_ = false;
};

}  // namespace platform::qt
