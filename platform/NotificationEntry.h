#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Notifications.h"

namespace platform {

// One entry of the notification database, and its form there.
struct NotificationEntry {
    NotificationTrigger trigger;
    UserNotification notification;
    // The device folder and the screen of the program that set it (INKWRIGHT_DEVICE, INKWRIGHT_SCREEN): the
    // entry is that device's alone, and the program that is started gets both.
    std::wstring device;
    std::wstring screen;
};

std::vector<uint8_t> EncodeEntry(const NotificationEntry& entry);

// False for bytes that no EncodeEntry made, whatever they are.
bool DecodeEntry(const std::vector<uint8_t>& bytes, NotificationEntry& entry);

}  // namespace platform
