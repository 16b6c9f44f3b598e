#pragma once

#include "platform/windows/Guards.h"

// The alarm keeper, the resident program that fires the notification database's entries: whether it runs,
// starting and stopping it.
namespace platform::windows {

constexpr wchar_t kKeeperWindowClass[] = L"InkwrightAlarmKeeper";

// Sees to it that the keeper runs, now and with the user's next sessions. False when it can't be started.
bool EnsureKeeper();

// Ends the keeper and waits until it has ended; it starts with no session any more. False when it does not
// end.
bool StopKeeper();

// What makes a process the keeper, as long as it lives: only one has it at a time.
class KeeperRole {
  public:
    KeeperRole();
    KeeperRole(const KeeperRole&) = delete;
    KeeperRole& operator=(const KeeperRole&) = delete;
    ~KeeperRole();

    bool IsHeld() const { return held_; }

  private:
    OwnedHandle mutex_;
    bool held_ = false;
};

}  // namespace platform::windows
