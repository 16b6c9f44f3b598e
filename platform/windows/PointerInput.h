#pragma once

#include "platform/PenTranslator.h"
#include "platform/Window.h"
#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

// The pens and fingers over one page. Where the system has pointer messages (since Windows 8) a pen's are
// taken here: left to the system, a pen would scroll a window with a scroll bar instead of writing on it, and
// what it did as a mouse would come late. Fingers are left to the system's gestures.
class PointerInput : public PenListener {
  public:
    explicit PointerInput(Window& window);

    // True when the message was handled for good.
    bool Take(UINT message, WPARAM wParam, LPARAM lParam);
    // What the system makes of fingers. True when the message was handled for good.
    bool TakeGesture(UINT message, WPARAM wParam, LPARAM lParam);

    bool HasContact() const { return pens_.HasContact(); }
    PenEnd End() const { return end_; }
    // See Window::PenSamples; while a pen's event is handled.
    size_t Samples(Point* samples, size_t capacity) const;
    // Whether a mouse message was made of a finger that is not to write.
    bool IsFromFinger() const;

    void PenDown(Point place, PenEnd end) override;
    void PenMove(Point place, const std::vector<Point>& before) override;
    void PenUp(Point place, const std::vector<Point>& before) override;
    void PenLost() override;
    void PenHovers(Point place, PenEnd end) override;
    void PenLeaves() override;

  private:
    bool TakePen(UINT32 pointer);
    bool TakeFinger(UINT32 pointer);

    Window& window_;
    PenTranslator pens_;
    PenEnd end_ = PenEnd::Tip;
    std::vector<Point> before_;
    const bool fingersWrite_;
    int64_t panRow_ = 0;
};

}  // namespace platform::windows
