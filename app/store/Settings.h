#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/RegistryKey.h"

namespace store {

// The user's settings, in the order of the table that describes them (Settings.cpp).
enum class SettingId {
    LastPenColor,
    PenColor_1,
    PenColor_2,
    PenColor_3,
    PenColor_4,
    LastBGColor,
    PenInfo,
    RootDirPath,
    FirstDayOfWeek,
    AlarmTimeOffset,
    ViewCalMode,
    SearchLastText,
    SearchOpt,
    SaveAs_NoteFN,
    SaveAs_ReminderFN,
    TextMemoWordWrap,
    CopyFolder,
    Count
};

// How one setting lies in the registry.
struct SettingInfo {
    SettingId id;
    const wchar_t* name;
    platform::RegistryType diskType;
    uint32_t defaultNumber;
    const wchar_t* defaultText;  // null for numbers
    size_t capacity;             // characters that a reader accepts, terminator included; 0 for numbers
};

const SettingInfo& InfoOf(SettingId id);

// The registry key of all settings. Nothing caches it: each caller opens it, reads or writes, and closes it.
// A value that can't be read gives its default; a key that can't be opened gives all defaults and takes no
// writes. Nothing is ever reported to the user.
class Settings {
  public:
    Settings();

    std::optional<uint32_t> FindNumber(SettingId id) const;
    uint32_t ReadNumber(SettingId id) const;
    // An unreadable text and an empty one both give the default.
    std::wstring ReadText(SettingId id) const;
    // What is really stored: empty when there is nothing or nothing readable.
    std::wstring StoredText(SettingId id) const;
    void Write(SettingId id, uint32_t number);
    void Write(SettingId id, const std::wstring& text);
    void Remove(SettingId id);  // so that the default holds

    // One value with a key opened for it alone.
    static uint32_t Number(SettingId id) { return Settings().ReadNumber(id); }
    static std::wstring Text(SettingId id) { return Settings().ReadText(id); }

  private:
    platform::RegistryKey key_;
};

}  // namespace store
