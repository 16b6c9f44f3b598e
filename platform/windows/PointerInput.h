#pragma once

#include "platform/PenRelay.h"
#include "platform/Window.h"
#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

// The pens and fingers over one page. Where the system has pointer messages (since Windows 8) a pen's are
// taken here: left to the system, a pen would scroll a window with a scroll bar instead of writing on it, and
// what it did as a mouse would come late. Fingers are left to the system's gestures.
class PointerInput : public PenRelay {
  public:
    explicit PointerInput(Window& window);

    // True when the message was handled for good.
    bool Take(UINT message, WPARAM wParam, LPARAM lParam);
    // What the system makes of fingers. True when the message was handled for good.
    bool TakeGesture(UINT message, WPARAM wParam, LPARAM lParam);

    bool HasContact() const { return pens_.HasContact(); }
    // Whether a mouse message was made of a finger that is not to write.
    bool IsFromFinger() const;

    void PenLost() override;

  private:
    bool TakePen(UINT32 pointer);
    bool TakeFinger(UINT32 pointer);

    PenTranslator pens_;
    const bool fingersWrite_;
    int64_t panRow_ = 0;
};

}  // namespace platform::windows
