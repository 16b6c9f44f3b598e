#pragma once

#include <vector>

#include "ink/Color.h"
#include "platform/Popup.h"

namespace options {

// A grid of colours to choose from by one tap. The current colour is marked; when the grid lacks it, it
// stands alone in a row of its own.
class ColorPalette : public platform::Popup {
  public:
    explicit ColorPalette(ink::ColorRef current);

    // Runs the palette above the menu bar; true when a colour was chosen, which may be the current one.
    bool Choose(platform::Window& owner, ink::ColorRef& color);

    bool OnCreate() override;
    void OnPaint() override;
    void OnPenDown(platform::Point place) override;
    void OnPenUp(platform::Point place) override;

  private:
    int Rows() const;
    platform::Rect CellRect(size_t index) const;
    // The colour's index at a client position, or the number of colours where there is none.
    size_t CellAt(platform::Point place) const;
    void DrawCell(size_t index);

    std::vector<ink::ColorRef> colors_;
    ink::ColorRef chosen_;
    size_t pressed_;
    platform::Image picture_;
};

}  // namespace options
