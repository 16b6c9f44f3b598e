#pragma once

#include <vector>

#include "platform/NotificationEntry.h"
#include "platform/windows/Guards.h"

namespace platform::windows {

// The event that tells the alarm keeper of a change.
extern const wchar_t* const kDatabaseChangedEvent;

// The notification database of the current user: one registry value for each entry, so that an entry is
// there whole or not at all. An open store holds the database's lock: keep it open for moments only.
class NotificationStore {
  public:
    NotificationStore();
    NotificationStore(const NotificationStore&) = delete;
    NotificationStore& operator=(const NotificationStore&) = delete;
    ~NotificationStore();

    bool IsOpen() const { return locked_ && key_; }

    // Handles of all entries, damaged ones included, in the order they were set.
    std::vector<NotificationHandle> Handles() const;
    // False when there is no such entry, or it is damaged (it is then left alone).
    bool Read(NotificationHandle handle, NotificationEntry& entry) const;
    // An entry as it lies there, damaged or not; empty when there is none.
    std::vector<uint8_t> Bytes(NotificationHandle handle) const;
    // Adds an entry, or replaces `existing` when that is not 0. Returns 0 when it could not be written, or
    // when the one to be replaced is no longer there.
    NotificationHandle Write(NotificationHandle existing, const NotificationEntry& entry);
    bool Erase(NotificationHandle handle);

  private:
    NotificationHandle NextHandle();

    OwnedHandle mutex_;
    bool locked_ = false;
    OwnedKey key_;
};

// Tells the alarm keeper that the database has changed.
void AnnounceDatabaseChange();

}  // namespace platform::windows
