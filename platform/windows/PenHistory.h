#pragma once

#include <cstddef>

#include "ink/Geometry.h"
#include "platform/windows/SystemHeaders.h"

namespace platform::windows {

// Recovers the pen positions that the system merged into one mouse message. The system keeps the last 64
// positions of the pointer, newest first and without regard to what a program has already seen, so the
// last message handled is remembered and bounds what counts as new.
class PenHistory {
  public:
    // The pen went down at `position` (client pixels of `window`): nothing before this will be reported.
    void Begin(HWND window, ink::Point position);

    // A later pen message arrived at `position`, and was handled.
    void Arrive(HWND window, ink::Point position);
    void Leave();

    // Between Arrive and Leave: the positions since the message before, oldest first, client pixels of
    // `window`, neither end included. At most `capacity`, the newest ones when there are more.
    size_t Samples(HWND window, ink::Point* samples, size_t capacity) const;

    static constexpr int kSystemHistory = 64;

  private:
    // What the system kept from the current message's position on, newest first, in its own clock.
    MOUSEMOVEPOINT history_[kSystemHistory]{};
    int known_ = 0;
    // The history's entry of the last message handled.
    MOUSEMOVEPOINT last_{};
    bool down_ = false;
    bool handling_ = false;
};

}  // namespace platform::windows
