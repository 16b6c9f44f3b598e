#include "app/TodayScreen.h"

#include "platform/RegistryKey.h"
#include "platform/Shell.h"

namespace app {

namespace {

constexpr wchar_t kItemWindow[] = L"InkwrightReminder";
// The quotation marks are part of the key's name.
constexpr wchar_t kItemKey[] = L"Software\\Microsoft\\Today\\Items\\\"Inkwright Reminder\"";

bool IsTodayItemEnabled() {
    const platform::RegistryKey key = platform::RegistryKey::OpenMachine(kItemKey);
    uint32_t enabled = 0;
    return key.IsOpen() && key.QueryNumber(L"Enabled", enabled) && enabled != 0;
}

}  // namespace

void RefreshTodayScreen() {
    if (platform::NotifyTodayItem(kItemWindow)) return;
    if (platform::HasTodayScreen() && IsTodayItemEnabled()) platform::ReloadTodayScreen();
}

}  // namespace app
