#pragma once

#include <QWidget>

#include "platform/Screen.h"

class QScrollBar;

namespace platform::qt {

class MenuBar;

// What is in a frame at least: the page of the classic handheld and the menu bar.
constexpr int kLeastWidth = 240;
constexpr int kLeastHeight = 268 + kBarHeight;

// The frame of a Screen: page, scroll bar and menu bar. All belong to it.
class ScreenFrame : public QWidget {
  public:
    ScreenFrame(QWidget* owner, Screen& screen, bool withScrollBar);
    ScreenFrame(const ScreenFrame&) = delete;
    ScreenFrame& operator=(const ScreenFrame&) = delete;
    ~ScreenFrame() override = default;

    QWidget* Page() { return page_; }
    MenuBar& Strip() { return *strip_; }
    // The page fills the frame but for the menu bar at its foot and the scroll bar.
    void LayOut();
    // The frame was moved or sized, or has another state.
    void Follow();
    // Another scale or other colours: all of it is drawn anew.
    void FollowLooks();
    void ShowScroll(const ScrollState& state);
    void OpenFrameMenu();

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void ScrollAsked(int action);

    Screen& screen_;
    QWidget* page_;
    QScrollBar* scrollBar_ = nullptr;
    MenuBar* strip_;
    QSize pageSize_;  // as last told to the window
};

}  // namespace platform::qt
