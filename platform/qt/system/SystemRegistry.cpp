#include <cstdlib>

#include "platform/RegistryKey.h"
#include "platform/Utf16.h"
#include "platform/qt/system/KeyFile.h"
#include "platform/qt/system/UserFolders.h"

namespace platform {

namespace {

constexpr char kMachineSettings[] = "/etc/xdg/inkwright/settings";

std::string UserSettings() { return qt::ConfigFolder() + "/settings"; }

}  // namespace

struct RegistryKey::Impl {
    mutable qt::KeyFile file;
    std::wstring key;
    bool isOurs;

    bool Query(const wchar_t* name, size_t room, qt::ValueBytes& data) const {
        const qt::KeyTable* const table = file.Current();
        const qt::KeyValue* const value = table ? table->Find(key, name) : nullptr;
        if (!value || value->data.size() > room) return false;
        data = value->data;
        return true;
    }

    bool Set(const wchar_t* name, RegistryType type, const qt::ValueBytes& data) const {
        return isOurs && file.Change([&](qt::KeyTable& table) {
            const qt::KeyValue* const old = table.Find(key, name);
            if (old && old->type == type && old->data == data) return false;
            table.Set(key, {name, type, data});
            return true;
        });
    }
};

RegistryKey::RegistryKey() = default;
RegistryKey::RegistryKey(RegistryKey&&) noexcept = default;
RegistryKey& RegistryKey::operator=(RegistryKey&&) noexcept = default;
RegistryKey::~RegistryKey() = default;

RegistryKey RegistryKey::OpenUser(const std::wstring& path) {
    RegistryKey key;
    qt::KeyFile file(UserSettings());
    if (file.Current()) key.impl_ = std::make_unique<Impl>(Impl{std::move(file), path, true});
    return key;
}

RegistryKey RegistryKey::OpenMachine(const std::wstring& path) {
    RegistryKey key;
    qt::KeyFile file(kMachineSettings);
    const qt::KeyTable* const table = file.Current();
    if (table && table->HasKey(path)) key.impl_ = std::make_unique<Impl>(Impl{std::move(file), path, false});
    return key;
}

bool RegistryKey::IsOpen() const { return impl_ != nullptr; }

bool RegistryKey::QueryNumber(const wchar_t* name, uint32_t& value) const {
    qt::ValueBytes data;
    if (!impl_ || !impl_->Query(name, sizeof value, data)) return false;
    value = qt::NumberOf(data);
    return true;
}

bool RegistryKey::QueryText(const wchar_t* name, size_t capacity, std::wstring& text) const {
    qt::ValueBytes data;
    if (!impl_ || !impl_->Query(name, capacity * 2, data)) return false;
    const std::u16string units = qt::UnitsOf(data);
    text = FromUtf16(units.substr(0, units.find(u'\0')));
    return true;
}

bool RegistryKey::SetNumber(const wchar_t* name, RegistryType type, uint32_t value) {
    return impl_ && impl_->Set(name, type, qt::BytesOf(value));
}

bool RegistryKey::SetText(const wchar_t* name, RegistryType type, const std::wstring& text) {
    return impl_ && impl_->Set(name, type, qt::BytesOf(ToUtf16(text) + u'\0'));
}

bool RegistryKey::Remove(const wchar_t* name) {
    bool isRemoved = false;
    const auto remove = [&](qt::KeyTable& table) { return isRemoved = table.Remove(impl_->key, name); };
    return impl_ && impl_->isOurs && impl_->file.Change(remove) && isRemoved;
}

}  // namespace platform
