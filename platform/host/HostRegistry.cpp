#include <algorithm>
#include <cstring>

#include "platform/RegistryKey.h"
#include "platform/host/HostDevice.h"

namespace platform {

using host::HostDevice;
using host::RegistryValue;

namespace {

bool SettingsFail(const std::wstring& path) {
    return HostDevice::Current().files.Fault(host::FileCall::Setting, path) != FileError::None;
}

}  // namespace

struct RegistryKey::Impl {
    std::wstring path;

    const RegistryValue* Find(const wchar_t* name) const {
        const auto& values = HostDevice::Current().registry[path];
        const auto found = values.find(name);
        return found == values.end() ? nullptr : &found->second;
    }
    bool Set(const wchar_t* name, RegistryType type, std::string data) const {
        if (SettingsFail(path)) return false;
        HostDevice::Current().registry[path][name] = {type, std::move(data)};
        return true;
    }
};

RegistryKey::RegistryKey() = default;
RegistryKey::RegistryKey(RegistryKey&&) noexcept = default;
RegistryKey& RegistryKey::operator=(RegistryKey&&) noexcept = default;
RegistryKey::~RegistryKey() = default;

RegistryKey RegistryKey::OpenUser(const std::wstring& path) {
    RegistryKey key;
    if (!SettingsFail(path)) key.impl_ = std::make_unique<Impl>(Impl{L"HKCU\\" + path});
    return key;
}

RegistryKey RegistryKey::OpenMachine(const std::wstring& path) {
    RegistryKey key;
    const HostDevice& device = HostDevice::Current();
    const bool exists = device.registry.count(L"HKLM\\" + path) != 0;
    if (exists && !SettingsFail(path)) key.impl_ = std::make_unique<Impl>(Impl{L"HKLM\\" + path});
    return key;
}

bool RegistryKey::IsOpen() const { return impl_ != nullptr; }

bool RegistryKey::QueryNumber(const wchar_t* name, uint32_t& value) const {
    const RegistryValue* stored = impl_ == nullptr ? nullptr : impl_->Find(name);
    if (stored == nullptr || stored->data.size() > sizeof value) return false;
    value = 0;
    std::memcpy(&value, stored->data.data(), stored->data.size());
    return true;
}

bool RegistryKey::QueryText(const wchar_t* name, size_t capacity, std::wstring& text) const {
    const RegistryValue* stored = impl_ == nullptr ? nullptr : impl_->Find(name);
    if (stored == nullptr || stored->data.size() > capacity * 2) return false;
    text.clear();
    for (size_t i = 0; i + 1 < stored->data.size(); i += 2) {
        const auto low = static_cast<unsigned char>(stored->data[i]);
        const auto high = static_cast<unsigned char>(stored->data[i + 1]);
        if (low == 0 && high == 0) break;
        text += static_cast<wchar_t>(low | high << 8);
    }
    return true;
}

bool RegistryKey::SetNumber(const wchar_t* name, RegistryType type, uint32_t value) {
    if (impl_ == nullptr) return false;
    return impl_->Set(name, type, std::string(reinterpret_cast<const char*>(&value), sizeof value));
}

bool RegistryKey::SetText(const wchar_t* name, RegistryType type, const std::wstring& text) {
    if (impl_ == nullptr) return false;
    std::string data;
    for (const wchar_t unit : text + L'\0') {
        data += static_cast<char>(unit & 0xFF);
        data += static_cast<char>(unit >> 8 & 0xFF);
    }
    return impl_->Set(name, type, std::move(data));
}

bool RegistryKey::Remove(const wchar_t* name) {
    return impl_ != nullptr && !SettingsFail(impl_->path) &&
           HostDevice::Current().registry[impl_->path].erase(name) != 0;
}

}  // namespace platform
