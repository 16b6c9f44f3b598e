#include "platform/keeper/AlarmFiring.h"

#include <string>

#include "platform/Clock.h"
#include "platform/keeper/NoticeWindow.h"
#include "platform/windows/NotificationStore.h"
#include "platform/windows/Processes.h"
#include "platform/windows/SystemTimes.h"

namespace platform::windows {

namespace {

std::wstring ClaimName(NotificationHandle handle) {
    return L"Local\\InkwrightAlarmFiring " + std::to_wstring(handle);
}

// The right to fire an entry. The system takes it back from a process that dies.
class Claim {
  public:
    explicit Claim(NotificationHandle handle)
        : mutex_(CreateMutexW(nullptr, FALSE, ClaimName(handle).c_str())) {
        const DWORD waited = mutex_ ? WaitForSingleObject(mutex_.get(), 0) : WAIT_FAILED;
        held_ = waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
    }
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;
    ~Claim() {
        if (held_) ReleaseMutex(mutex_.get());
    }
    bool IsHeld() const { return held_; }

  private:
    OwnedHandle mutex_;
    bool held_ = false;
};

void SetEnvironment(const wchar_t* name, const std::wstring& text) {
    SetEnvironmentVariableW(name, text.empty() ? nullptr : text.c_str());
}

// Its window may come to the front, as far as this process may grant that.
bool StartApplication(const NotificationEntry& entry) {
    const std::wstring& program = entry.trigger.application;
    // "X:" alone would be the current folder of that drive.
    SetEnvironment(L"INKWRIGHT_DEVICE", entry.device.empty() ? entry.device : entry.device + L"\\");
    SetEnvironment(L"INKWRIGHT_SCREEN", entry.screen);
    const ProcessStart start{program, L"\"" + program + L"\" " + entry.trigger.arguments,
                             program.substr(0, program.rfind(L'\\') + 1), 0};
    OwnedHandle process;
    if (!StartProcess(start, &process)) return false;
    AllowSetForegroundWindow(GetProcessId(process.get()));
    return true;
}

bool Act(const NotificationEntry& entry) {
    if (!entry.trigger.application.empty() && !StartApplication(entry)) return false;
    return !entry.notification.showDialog ||
           ShowNotice(entry.notification.dialogTitle, entry.notification.dialogText);
}

// The entry's bytes when it is there and due, else nothing.
std::vector<uint8_t> ReadDue(NotificationHandle handle, NotificationEntry& entry) {
    const NotificationStore store;
    if (!store.IsOpen()) return {};
    std::vector<uint8_t> bytes = store.Bytes(handle);
    const int64_t start = DecodeEntry(bytes, entry) ? LocalTicks(entry.trigger.start) : 0;
    const bool isDue = start != 0 && start <= LocalTicks(LocalNow());
    return isDue ? bytes : std::vector<uint8_t>();
}

}  // namespace

void FireEntry(NotificationHandle handle) {
    {
        const Claim claim(handle);
        NotificationEntry entry;
        const std::vector<uint8_t> bytes = claim.IsHeld() ? ReadDue(handle, entry) : std::vector<uint8_t>();
        if (bytes.empty() || !Act(entry)) return;
        NotificationStore store;
        if (store.IsOpen() && store.Bytes(handle) == bytes) store.Erase(handle);
    }
    AnnounceDatabaseChange();  // an entry that was rewritten meanwhile may be due by now
}

bool IsBeingFired(NotificationHandle handle) {
    const OwnedHandle claim(OpenMutexW(SYNCHRONIZE, FALSE, ClaimName(handle).c_str()));
    return claim != nullptr;
}

}  // namespace platform::windows
