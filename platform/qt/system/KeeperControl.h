#pragma once

#include <sys/types.h>

#include <cstdint>

#include "platform/qt/system/OwnedFd.h"

// The alarm keeper, the resident program that fires the notification database's entries: whether it runs,
// starting and stopping it. Each database has one.
namespace platform::qt {

constexpr char kStopSwitch[] = "--stop";        // ends it, now and for the next sessions
constexpr char kSessionSwitch[] = "--session";  // takes over from an earlier session, if there are entries
constexpr char kReportSwitch[] = "--report";    // tells when it runs, see ProcessStart::report
constexpr char kFireSwitch[] = "--fire";        // an entry

// Sees to it that the keeper runs, now and with the user's next sessions. False when it can't be started.
bool EnsureKeeper();

// Ends the keeper and waits until it has ended. False when it does not end.
bool StopKeeper();

// It starts with no session of this user any more, not even where a package has it start with everybody's.
void ForgetSessions();

// What makes a process the keeper, as long as it lives: only one has it at a time.
class KeeperRole {
  public:
    KeeperRole();
    bool IsHeld() const { return held_; }
    // The file that stood for it was erased, so that others can't see who has it.
    bool IsLost() const;

  private:
    OwnedFd file_;
    bool held_ = false;
};

// The right to fire an entry. The system takes it back from a process that dies.
class FiringClaim {
  public:
    explicit FiringClaim(uint32_t handle);
    bool IsHeld() const { return held_; }
    static bool IsTaken(uint32_t handle);

  private:
    OwnedFd file_;
    bool held_ = false;
};

}  // namespace platform::qt
