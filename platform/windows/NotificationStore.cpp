#include "platform/windows/NotificationStore.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "platform/Product.h"

namespace platform::windows {

const wchar_t* const kDatabaseChangedEvent = L"Local\\InkwrightNotificationsChanged";

namespace {

constexpr wchar_t kLockName[] = L"Local\\InkwrightNotificationDatabase";
const std::wstring kKeyPath = std::wstring(kCompanyKey) + L"\\Notification Database";
constexpr wchar_t kNextHandleName[] = L"NextHandle";
constexpr DWORD kLockMilliseconds = 10000;
constexpr size_t kNameLength = 8;  // hexadecimal digits of a handle

struct EntryName {
    wchar_t text[kNameLength + 1];
};

EntryName NameOf(NotificationHandle handle) {
    EntryName name{};
    std::swprintf(name.text, std::size(name.text), L"%08X", handle);
    return name;
}

NotificationHandle HandleOf(const wchar_t* name) {
    wchar_t* end = nullptr;
    const unsigned long number = std::wcstoul(name, &end, 16);
    return std::wcslen(name) == kNameLength && *end == L'\0' ? static_cast<NotificationHandle>(number) : 0;
}

}  // namespace

NotificationStore::NotificationStore() : mutex_(CreateMutexW(nullptr, FALSE, kLockName)) {
    if (!mutex_) return;
    const DWORD waited = WaitForSingleObject(mutex_.get(), kLockMilliseconds);
    // An abandoned lock is a lock: entries are written whole, so whoever died left nothing half done.
    locked_ = waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
    HKEY key = nullptr;
    const LSTATUS status =
        RegCreateKeyExW(HKEY_CURRENT_USER, kKeyPath.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_READ | KEY_WRITE, nullptr, &key, nullptr);
    if (status == ERROR_SUCCESS) key_.reset(key);
}

NotificationStore::~NotificationStore() {
    if (locked_) ReleaseMutex(mutex_.get());
}

std::vector<NotificationHandle> NotificationStore::Handles() const {
    std::vector<NotificationHandle> handles;
    wchar_t name[64];
    for (DWORD i = 0;; ++i) {
        DWORD length = static_cast<DWORD>(std::size(name));
        const LSTATUS status =
            RegEnumValueW(key_.get(), i, name, &length, nullptr, nullptr, nullptr, nullptr);
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) break;
        const NotificationHandle handle = status == ERROR_SUCCESS ? HandleOf(name) : 0;
        if (handle != 0) handles.push_back(handle);
    }
    std::sort(handles.begin(), handles.end());
    return handles;
}

bool NotificationStore::Read(NotificationHandle handle, NotificationEntry& entry) const {
    return DecodeEntry(Bytes(handle), entry);
}

std::vector<uint8_t> NotificationStore::Bytes(NotificationHandle handle) const {
    const EntryName name = NameOf(handle);
    DWORD size = 0;
    if (RegQueryValueExW(key_.get(), name.text, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS) return {};
    std::vector<uint8_t> bytes(size);
    if (RegQueryValueExW(key_.get(), name.text, nullptr, nullptr, bytes.data(), &size) != ERROR_SUCCESS)
        return {};
    bytes.resize(size);
    return bytes;
}

NotificationHandle NotificationStore::Write(NotificationHandle existing, const NotificationEntry& entry) {
    const NotificationHandle handle = existing != 0 ? existing : NextHandle();
    if (handle == 0 || (existing != 0 && Bytes(existing).empty())) return 0;
    const EntryName name = NameOf(handle);
    const std::vector<uint8_t> bytes = EncodeEntry(entry);
    const LSTATUS status =
        RegSetValueExW(key_.get(), name.text, 0, REG_BINARY, bytes.data(), static_cast<DWORD>(bytes.size()));
    return status == ERROR_SUCCESS ? handle : 0;
}

bool NotificationStore::Erase(NotificationHandle handle) {
    const EntryName name = NameOf(handle);
    return RegDeleteValueW(key_.get(), name.text) == ERROR_SUCCESS;
}

// Handles are not used twice, so that one that was kept too long does not meet another's entry.
NotificationHandle NotificationStore::NextHandle() {
    DWORD next = 0;
    DWORD size = sizeof next;
    RegQueryValueExW(key_.get(), kNextHandleName, nullptr, nullptr, reinterpret_cast<BYTE*>(&next), &size);
    next = next == 0 || next == 0xFFFFFFFF ? 1 : next;
    const std::vector<NotificationHandle> taken = Handles();
    while (std::binary_search(taken.begin(), taken.end(), next)) ++next;
    const DWORD after = next + 1;
    const LSTATUS status = RegSetValueExW(key_.get(), kNextHandleName, 0, REG_DWORD,
                                          reinterpret_cast<const BYTE*>(&after), sizeof after);
    return status == ERROR_SUCCESS ? next : 0;
}

void AnnounceDatabaseChange() {
    const OwnedHandle changed(OpenEventW(EVENT_MODIFY_STATE, FALSE, kDatabaseChangedEvent));
    if (changed) SetEvent(changed.get());
}

}  // namespace platform::windows
