#include "platform/qt/system/NotificationStore.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>

#include "platform/qt/system/UserFolders.h"

namespace platform::qt {

namespace {

const std::wstring kKey = L"Notifications";
const std::wstring kNextHandleName = L"NextHandle";
constexpr size_t kNameLength = 8;  // hexadecimal digits of a handle

std::wstring NameOfEntry(NotificationHandle handle) {
    wchar_t name[kNameLength + 1];
    std::swprintf(name, kNameLength + 1, L"%08X", handle);
    return name;
}

NotificationHandle HandleOf(const std::wstring& name) {
    wchar_t* end = nullptr;
    const unsigned long number = std::wcstoul(name.c_str(), &end, 16);
    return name.size() == kNameLength && *end == L'\0' ? static_cast<NotificationHandle>(number) : 0;
}

std::vector<NotificationHandle> HandlesIn(const KeyTable& table) {
    std::vector<NotificationHandle> handles;
    for (const KeyValue& value : table.Values(kKey)) {
        if (const NotificationHandle handle = HandleOf(value.name)) handles.push_back(handle);
    }
    std::sort(handles.begin(), handles.end());
    return handles;
}

// Handles are not used twice, so that one that was kept too long does not meet another's entry.
NotificationHandle TakeHandle(KeyTable& table) {
    const KeyValue* const stored = table.Find(kKey, kNextHandleName);
    NotificationHandle next = stored ? NumberOf(stored->data) : 0;
    next = next == 0 || next == UINT32_MAX ? 1 : next;
    const std::vector<NotificationHandle> taken = HandlesIn(table);
    while (std::binary_search(taken.begin(), taken.end(), next)) ++next;
    table.Set(kKey, {kNextHandleName, RegistryType::Number, BytesOf(next + 1)});
    return next;
}

}  // namespace

std::string DatabaseFile() { return DataFolder() + "/notifications"; }

bool NotificationStore::Handles(std::vector<NotificationHandle>& handles) {
    const KeyTable* const table = file_.Current();
    if (table) handles = HandlesIn(*table);
    return table != nullptr;
}

ValueBytes NotificationStore::Bytes(NotificationHandle handle) {
    const KeyTable* const table = file_.Current();
    const KeyValue* const value = table ? table->Find(kKey, NameOfEntry(handle)) : nullptr;
    return value ? value->data : ValueBytes();
}

NotificationHandle NotificationStore::Write(NotificationHandle existing, const NotificationEntry& entry) {
    NotificationHandle handle = existing;
    const bool isWritten = file_.Change([&](KeyTable& table) {
        if (existing != 0 && !table.Find(kKey, NameOfEntry(existing))) handle = 0;
        if (existing == 0) handle = TakeHandle(table);
        if (handle != 0) table.Set(kKey, {NameOfEntry(handle), RegistryType::Binary, EncodeEntry(entry)});
        return handle != 0;
    });
    return isWritten ? handle : 0;
}

bool NotificationStore::Erase(NotificationHandle handle) {
    bool isErased = false;
    return file_.Change([&](KeyTable& table) {
        return isErased = table.Remove(kKey, NameOfEntry(handle));
    }) && isErased;
}

bool NotificationStore::EraseUnchanged(NotificationHandle handle, const ValueBytes& bytes) {
    return file_.Change([&](KeyTable& table) {
        const KeyValue* const value = table.Find(kKey, NameOfEntry(handle));
        return value && value->data == bytes && table.Remove(kKey, NameOfEntry(handle));
    });
}

void AnnounceDatabaseChange() { utimensat(AT_FDCWD, DatabaseFile().c_str(), nullptr, 0); }

}  // namespace platform::qt
