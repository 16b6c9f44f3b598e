#pragma once

#include "platform/Window.h"

namespace platform {

// A small modal window without a caption, for a choice by one tap. A tap outside it, or Esc, is
// OnCommand(kIdCancel). By default that ends it, and so does kIdOk, which only another copy sends: it asks
// for the window below to end, and nothing was chosen.
class Popup : public Window {
  public:
    Popup();
    ~Popup() override;

    // Opens with a client area of `width` x `height` whose bottom right corner lies at `corner` (handheld
    // screen pixels, moved as needed to lie on the screen); runs until EndModal and returns its result, -1
    // when the window could not be made, which the user was told.
    int RunModal(Window* owner, const std::wstring& title, Point corner, int width, int height);

    void OnCommand(int id) override;
    void OnTakeOver() override { EndModal(kIdCancel); }
};

}  // namespace platform
