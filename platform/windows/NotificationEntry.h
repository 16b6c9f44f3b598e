#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Notifications.h"

namespace platform::windows {

// One entry of the notification database, and its form in the registry.
struct NotificationEntry {
    NotificationTrigger trigger;
    UserNotification notification;
    // The device folder of the program that set it (INKWRIGHT_DEVICE), for the program that is started.
    std::wstring device;
};

std::vector<uint8_t> EncodeEntry(const NotificationEntry& entry);

// False for bytes that no EncodeEntry made, whatever they are.
bool DecodeEntry(const std::vector<uint8_t>& bytes, NotificationEntry& entry);

}  // namespace platform::windows
