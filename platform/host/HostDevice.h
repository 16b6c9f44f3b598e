#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/DateTime.h"
#include "platform/Notifications.h"
#include "platform/RegistryKey.h"
#include "platform/host/HostDesk.h"
#include "platform/host/HostFileStore.h"

namespace platform::host {

struct RegistryValue {
    RegistryType type = RegistryType::Number;
    std::string data;
};

struct StoredNotification {
    NotificationTrigger trigger;
    UserNotification notification;
    std::wstring device;
};

// A window of another running copy, as a test wants it seen; what is posted to it is counted.
struct ForeignWindow {
    bool enabled = true;
    bool foreground = false;
    int commandsUntilClosed = 1;  // it is gone after so many posted commands
    std::vector<int> commands;
    std::vector<uint32_t> privateMessages;
};

// A whole device in memory. The one made last is what the program runs on; a test makes its own, sets it up
// and looks at it afterwards.
class HostDevice {
  public:
    HostDevice();
    HostDevice(const HostDevice&) = delete;
    HostDevice& operator=(const HostDevice&) = delete;
    ~HostDevice();

    static HostDevice& Current();

    HostFileStore files;
    HostDesk desk;

    // Key path ("HKCU\..." or "HKLM\...") -> value name -> value.
    std::map<std::wstring, std::map<std::wstring, RegistryValue>> registry;
    // The program's settings key, with texts and numbers as tests write them.
    std::map<std::wstring, RegistryValue>& Settings();
    void SetSetting(const std::wstring& name, const std::wstring& text,
                    RegistryType type = RegistryType::Text);
    void SetSetting(const std::wstring& name, uint32_t number);
    bool HasSetting(const std::wstring& name) { return Settings().count(name) != 0; }
    uint32_t NumberSetting(const std::wstring& name);

    std::map<NotificationHandle, StoredNotification> notifications;
    bool keeperCantStart = false;  // what fires notifications
    std::wstring folder;           // tells devices that share one database apart
    std::set<NotificationHandle> unreadableNotifications;

    bool usesLetterPaper = false;
    int guidesOpened = 0;
    std::vector<std::wstring> mailed;  // attachments handed to the mail program

    // How many pictures can still be made before memory is short.
    int picturesLeft = 1 << 30;

    // The clock moves only when the program pauses or a test moves it.
    DateTime now{2007, 3, 1, 5, 14, 30, 12, 0};
    uint32_t ticks = 1000;

    std::vector<ForeignWindow> otherCopies;
    bool todayItemWindow = false;
    bool todayScreen = false;
    int todayItemNotices = 0;
    int todayReloads = 0;

  private:
    HostDevice* previous_;
};

}  // namespace platform::host
