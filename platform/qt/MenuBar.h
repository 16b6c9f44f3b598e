#pragma once

#include <QToolButton>
#include <QWidget>
#include <vector>

#include "platform/Screen.h"

namespace platform::qt {

class ToolButton;

// The strip at the foot of a Screen: its tool bar, and at the other end the button of the frame's menu as far
// as there is one, and room for it. The buttons belong to it.
class MenuBar : public QWidget {
  public:
    MenuBar(QWidget* parent, Screen& screen);

    bool AddButtons(const ToolBarLayout& layout);
    // The button images for the Screen's scale and the bar's colour.
    Image Images() const;
    bool UseImages(const Image& strip);
    // Takes those again.
    void Dress();
    ToolButton* Find(int command) const;
    // The frame's menu has entries.
    void ShowMenuButton();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void PlaceMenuButton();

    Screen& screen_;
    std::vector<ToolButton*> buttons_;
    QToolButton* menuButton_;
    std::vector<int> separators_;  // their x
    int end_ = 0;                  // of the buttons, in pixels
    ToolBarLayout layout_;
    bool hasMenu_ = false;
};

// A button that is down or marked only when the program says so.
class ToolButton : public QToolButton {
  public:
    ToolButton(QWidget* parent, int command) : QToolButton(parent), command_(command) {}

    int Command() const { return command_; }
    bool IsPressed() const { return isPressed_; }
    void Mark(bool isMarked);
    void SetPressed(bool pressed);

  protected:
    void nextCheckState() override {}
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    const int command_;
    bool isPressed_ = false;
};

}  // namespace platform::qt
