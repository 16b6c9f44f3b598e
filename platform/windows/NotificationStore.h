#pragma once

#include <vector>

#include "platform/windows/Guards.h"
#include "platform/windows/NotificationEntry.h"

namespace platform::windows {

// Names that the program and the alarm keeper share.
extern const wchar_t* const kDatabaseChangedEvent;
extern const wchar_t* const kKeeperMutex;
extern const wchar_t* const kKeeperProgram;  // file name beside the program

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
    // 0 when it could not be written.
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
