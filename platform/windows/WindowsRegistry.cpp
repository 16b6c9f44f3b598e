#include <algorithm>
#include <vector>

#include "platform/RegistryKey.h"
#include "platform/windows/Guards.h"

namespace platform {

namespace {

DWORD SystemType(RegistryType type) {
    switch (type) {
        case RegistryType::Text:
            return REG_SZ;
        case RegistryType::Binary:
            return REG_BINARY;
        case RegistryType::Number:
            return REG_DWORD;
    }
    return REG_BINARY;
}

}  // namespace

struct RegistryKey::Impl {
    windows::OwnedKey key;

    // Reads a value's data whatever its type; false when it needs more than `size` bytes.
    bool Query(const wchar_t* name, void* buffer, DWORD& size) const {
        return RegQueryValueExW(key.get(), name, nullptr, nullptr, static_cast<BYTE*>(buffer), &size) ==
               ERROR_SUCCESS;
    }
    bool Set(const wchar_t* name, RegistryType type, const void* data, size_t size) const {
        return RegSetValueExW(key.get(), name, 0, SystemType(type), static_cast<const BYTE*>(data),
                              static_cast<DWORD>(size)) == ERROR_SUCCESS;
    }
};

RegistryKey::RegistryKey() = default;
RegistryKey::RegistryKey(RegistryKey&&) noexcept = default;
RegistryKey& RegistryKey::operator=(RegistryKey&&) noexcept = default;
RegistryKey::~RegistryKey() = default;

RegistryKey RegistryKey::OpenUser(const std::wstring& path) {
    RegistryKey key;
    HKEY handle = nullptr;
    const LSTATUS status =
        RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_READ | KEY_WRITE, nullptr, &handle, nullptr);
    if (status == ERROR_SUCCESS) key.impl_ = std::make_unique<Impl>(Impl{windows::OwnedKey(handle)});
    return key;
}

RegistryKey RegistryKey::OpenMachine(const std::wstring& path) {
    RegistryKey key;
    HKEY handle = nullptr;
    const LSTATUS status = RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &handle);
    if (status == ERROR_SUCCESS) key.impl_ = std::make_unique<Impl>(Impl{windows::OwnedKey(handle)});
    return key;
}

bool RegistryKey::IsOpen() const { return impl_ != nullptr; }

bool RegistryKey::QueryNumber(const wchar_t* name, uint32_t& value) const {
    uint32_t read = 0;
    DWORD size = sizeof read;
    if (!impl_ || !impl_->Query(name, &read, size)) return false;
    value = read;
    return true;
}

bool RegistryKey::QueryText(const wchar_t* name, size_t capacity, std::wstring& text) const {
    std::vector<wchar_t> data(capacity + 1);
    auto size = static_cast<DWORD>(capacity * sizeof(wchar_t));  // more is refused by the system
    if (!impl_ || !impl_->Query(name, data.data(), size)) return false;
    const auto end = data.begin() + static_cast<std::ptrdiff_t>(size / sizeof(wchar_t));
    text.assign(data.begin(), std::find(data.begin(), end, L'\0'));
    return true;
}

bool RegistryKey::SetNumber(const wchar_t* name, RegistryType type, uint32_t value) {
    return impl_ && impl_->Set(name, type, &value, sizeof value);
}

bool RegistryKey::SetText(const wchar_t* name, RegistryType type, const std::wstring& text) {
    return impl_ && impl_->Set(name, type, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

bool RegistryKey::Remove(const wchar_t* name) {
    return impl_ && RegDeleteValueW(impl_->key.get(), name) == ERROR_SUCCESS;
}

}  // namespace platform
