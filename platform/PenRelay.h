#pragma once

#include <cstddef>
#include <vector>

#include "platform/PenTranslator.h"

namespace platform {

class Window;

// Hands what the pens do on to a window, and knows for it which end writes and where the pen was before the
// event that is being handled.
class PenRelay : public PenListener {
  public:
    explicit PenRelay(Window& window) : window_(window) {}

    PenEnd End() const { return end_; }
    // Page positions since the event before, oldest first; empty but while a pen's event is handled.
    const std::vector<ink::Point>& Before() const { return before_; }
    // See Window::PenSamples: the last `capacity` of Before().
    size_t Samples(ink::Point* samples, size_t capacity) const;

    void PenDown(ink::Point place, PenEnd end) override;
    void PenMove(ink::Point place, const std::vector<ink::Point>& before) override;
    void PenUp(ink::Point place, const std::vector<ink::Point>& before) override;
    void PenHovers(ink::Point place, PenEnd end) override;
    void PenLeaves() override;

  protected:
    Window& window_;
    PenEnd end_ = PenEnd::Tip;

  private:
    std::vector<ink::Point> before_;
};

}  // namespace platform
