#pragma once

#include <vector>

#include "platform/NotificationEntry.h"
#include "platform/qt/system/KeyFile.h"

namespace platform::qt {

// The file of the notification database, in the user's data folder.
std::string DatabaseFile();

// The notification database of the user. Every call is one step that nobody else sees half of.
class NotificationStore {
  public:
    NotificationStore() : file_(DatabaseFile()) {}

    // All entries, damaged ones included, in the order they were set. False when they can't be read.
    bool Handles(std::vector<NotificationHandle>& handles);
    // False when there is no such entry, or it is damaged (it is then left alone).
    bool Read(NotificationHandle handle, NotificationEntry& entry) {
        return DecodeEntry(Bytes(handle), entry);
    }
    // An entry as it lies there, damaged or not; empty when there is none.
    ValueBytes Bytes(NotificationHandle handle);
    // Adds an entry, or replaces `existing` when that is not 0. Returns 0 when it could not be written, or
    // when the one to be replaced is no longer there.
    NotificationHandle Write(NotificationHandle existing, const NotificationEntry& entry);
    bool Erase(NotificationHandle handle);
    // Only if it is still what it was.
    bool EraseUnchanged(NotificationHandle handle, const ValueBytes& bytes);

  private:
    KeyFile file_;
};

// Has the alarm keeper look at the database again, which it does by itself after every change.
void AnnounceDatabaseChange();

}  // namespace platform::qt
