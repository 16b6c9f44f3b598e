#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "ink/Geometry.h"

namespace platform::windows {

// One position of the pointer as the system noted it: desktop pixels, and milliseconds that wrap.
struct PointerSample {
    ink::Point place;
    uint32_t time = 0;
};

// What the system knew of the pointer when a pen message arrived: that message's own position first, older
// ones after it, without regard to what a program has already seen.
struct PointerTrail {
    static constexpr int kMost = 64;  // that the system keeps

    std::array<PointerSample, kMost> samples{};
    int count = 0;
};

// The trail of a message that the history does not hold as it was told, as with tablets in mouse mode, remote
// sessions and scaled screens: the message, and what the system noted up to its time (newest first).
PointerTrail TrailByTime(const PointerSample& message, const PointerTrail& noted);

// Recovers the pen positions that the system merged into one mouse message. The last message handled is
// remembered and bounds what counts as new. Nothing here asks the system for anything.
class PenHistory {
  public:
    // The pen went down: nothing before this will be reported. Without the press in the trail nothing tells
    // what came before the messages that follow, and none of them gets samples.
    void Begin(const PointerTrail& trail);

    // A later pen message arrived, and was handled. One that was `sentDirectly` to the window has no place in
    // the pointer's history.
    void Arrive(const PointerTrail& trail, bool sentDirectly);
    void Leave();

    // Between Arrive and Leave: the positions since the message before, oldest first, less `origin`, neither
    // end included. At most `capacity`, the newest ones when there are more.
    size_t Samples(ink::Point origin, ink::Point* samples, size_t capacity) const;

  private:
    PointerTrail trail_;  // of the current message
    PointerSample last_;  // of the last message handled
    bool down_ = false;
    bool handling_ = false;
};

}  // namespace platform::windows
