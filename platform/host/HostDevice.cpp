#include "platform/host/HostDevice.h"

#include <cstring>

#include "ink/Require.h"
#include "platform/Clock.h"
#include "platform/Notifications.h"
#include "platform/Product.h"
#include "platform/Shell.h"

namespace platform::host {

namespace {

HostDevice* currentDevice = nullptr;

}  // namespace

HostDevice::HostDevice() : previous_(currentDevice) { currentDevice = this; }

HostDevice::~HostDevice() { currentDevice = previous_; }

HostDevice& HostDevice::Current() {
    ink::Require(currentDevice != nullptr, "a test makes a HostDevice first");
    return *currentDevice;
}

std::map<std::wstring, RegistryValue>& HostDevice::Settings() {
    return registry[std::wstring(L"HKCU\\") + kCompanyKey + L"\\" + kProductName];
}

void HostDevice::SetSetting(const std::wstring& name, const std::wstring& text, RegistryType type) {
    std::string data;
    for (const wchar_t unit : text + L'\0') {
        data += static_cast<char>(unit & 0xFF);
        data += static_cast<char>(unit >> 8 & 0xFF);
    }
    Settings()[name] = {type, data};
}

void HostDevice::SetSetting(const std::wstring& name, uint32_t number) {
    Settings()[name] = {RegistryType::Number,
                        std::string(reinterpret_cast<const char*>(&number), sizeof number)};
}

uint32_t HostDevice::NumberSetting(const std::wstring& name) {
    uint32_t number = 0;
    const std::string& data = Settings().at(name).data;
    std::memcpy(&number, data.data(), std::min(data.size(), sizeof number));
    return number;
}

}  // namespace platform::host

namespace platform {

using host::HostDevice;

namespace {

bool AlarmsFail() { return HostDevice::Current().files.Fault(host::FileCall::Alarm, L"") != FileError::None; }

}  // namespace

DateTime LocalNow() { return HostDevice::Current().now; }

uint32_t TickMilliseconds() { return HostDevice::Current().ticks; }

void Pause(uint32_t milliseconds) { HostDevice::Current().ticks += milliseconds; }

NotificationHandle SetNotification(NotificationHandle existing, const NotificationTrigger& trigger,
                                   const UserNotification& notification) {
    HostDevice& device = HostDevice::Current();
    const bool isLost = existing != 0 && device.notifications.count(existing) == 0;
    if (AlarmsFail() || isLost || !IsValidMoment(trigger.start)) return 0;
    if (device.keeperCantStart && existing == 0) return 0;
    const NotificationHandle next =
        device.notifications.empty() ? 1 : device.notifications.rbegin()->first + 1;
    const NotificationHandle handle = existing != 0 ? existing : next;
    device.notifications[handle] = {trigger, notification, device.folder};
    return device.keeperCantStart ? 0 : handle;
}

bool ListNotifications(std::vector<NotificationHandle>& handles) {
    const HostDevice& device = HostDevice::Current();
    handles.clear();
    for (const auto& [handle, entry] : device.notifications) {
        if (entry.device == device.folder) handles.push_back(handle);
    }
    return !AlarmsFail();
}

bool ReadNotification(NotificationHandle handle, NotificationTrigger& trigger,
                      UserNotification& notification) {
    const HostDevice& device = HostDevice::Current();
    const auto found = device.notifications.find(handle);
    const bool isUnreadable = AlarmsFail() || device.unreadableNotifications.count(handle) != 0;
    if (isUnreadable || found == device.notifications.end()) return false;
    trigger = found->second.trigger;
    notification = found->second.notification;
    return true;
}

bool ClearNotification(NotificationHandle handle) {
    return !AlarmsFail() && HostDevice::Current().notifications.erase(handle) != 0;
}

std::wstring DeviceName() { return L"device " + HostDevice::Current().folder; }

std::wstring ProgramPath() { return L"C:\\Program Files\\Inkwright\\inkwright.exe"; }

std::vector<OtherWindow> WindowsOfOtherCopies() {
    std::vector<OtherWindow> found;
    const std::vector<host::ForeignWindow>& windows = HostDevice::Current().otherCopies;
    for (size_t i = 0; i < windows.size(); ++i) {
        if (static_cast<int>(windows[i].commands.size()) >= windows[i].commandsUntilClosed) continue;
        found.push_back({i, windows[i].enabled, windows[i].foreground});
    }
    return found;
}

void PostCommandTo(const OtherWindow& window, int id) {
    HostDevice::Current().otherCopies[window.reference].commands.push_back(id);
}

void PostPrivateMessageTo(const OtherWindow& window, uint32_t code) {
    HostDevice::Current().otherCopies[window.reference].privateMessages.push_back(code);
}

bool NotifyTodayItem(const std::wstring& title) {
    HostDevice& device = HostDevice::Current();
    if (!device.todayItemWindow || title != L"InkwrightReminder") return false;
    ++device.todayItemNotices;
    return true;
}

bool HasTodayScreen() { return HostDevice::Current().todayScreen; }

void ReloadTodayScreen() { ++HostDevice::Current().todayReloads; }

void StartMailProgram(Window&, const std::wstring& attachment) {
    HostDevice::Current().mailed.push_back(attachment);
}

void OpenUserGuide(Window&) { ++HostDevice::Current().guidesOpened; }

void ShowInputPanel(bool) {}

}  // namespace platform
