#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace platform {

enum class RegistryType { Text, Binary, Number };  // REG_SZ, REG_BINARY, REG_DWORD

// One open registry key. Move-only; closed by the destructor. Queries never look at a value's type.
class RegistryKey {
  public:
    RegistryKey();
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&& other) noexcept;
    ~RegistryKey();

    // A key of the current user, made when missing.
    static RegistryKey OpenUser(const std::wstring& path);
    // An existing key of the machine, for reading.
    static RegistryKey OpenMachine(const std::wstring& path);

    bool IsOpen() const;

    // Up to four bytes of any type as a number; fails on longer data.
    bool QueryNumber(const wchar_t* name, uint32_t& value) const;
    // Data of any type as UTF-16 text up to its first terminator; fails when it needs more than
    // `capacity` characters, its own terminator included.
    bool QueryText(const wchar_t* name, size_t capacity, std::wstring& text) const;

    bool SetNumber(const wchar_t* name, RegistryType type, uint32_t value);  // four bytes
    // Writes the text with its terminator, whatever the type says.
    bool SetText(const wchar_t* name, RegistryType type, const std::wstring& text);
    bool Remove(const wchar_t* name);

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace platform
