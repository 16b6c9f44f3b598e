#include "app/store/Settings.h"

#include "ink/Require.h"
#include "platform/Product.h"

namespace store {

namespace {

using platform::RegistryType;

const std::wstring kKeyPath = std::wstring(platform::kCompanyKey) + L"\\" + platform::kProductName;
constexpr size_t kTextCapacity = 260;
constexpr size_t kLongTextCapacity = 32768;

constexpr SettingInfo Number(SettingId id, const wchar_t* name, uint32_t defaultNumber) {
    return {id, name, RegistryType::Number, defaultNumber, nullptr, 0};
}

// The two name patterns are texts stored under the number type: settings written by every earlier release
// are so, and must stay readable both ways.
constexpr SettingInfo kTable[] = {
    Number(SettingId::LastPenColor, L"LastPenColor", 0x808080),
    Number(SettingId::PenColor_1, L"PenColor_1", 0x4040FF),
    Number(SettingId::PenColor_2, L"PenColor_2", 0x40FF40),
    Number(SettingId::PenColor_3, L"PenColor_3", 0xFF4040),
    Number(SettingId::PenColor_4, L"PenColor_4", 0xFF40FF),
    Number(SettingId::LastBGColor, L"LastBGColor", 0xFFFFFF),
    Number(SettingId::PenInfo, L"PenInfo", 0x0002000A),
    {SettingId::RootDirPath, L"RootDirPath", RegistryType::Text, 0, L"", kTextCapacity},
    Number(SettingId::FirstDayOfWeek, L"FirstDayOfWeek", 0),
    Number(SettingId::AlarmTimeOffset, L"AlarmTimeOffset", 0),
    Number(SettingId::ViewCalMode, L"ViewCalMode", 0),
    {SettingId::SearchLastText, L"SearchLastText", RegistryType::Text, 0, L"", kLongTextCapacity},
    Number(SettingId::SearchOpt, L"SearchOpt", 0),
    {SettingId::SaveAs_NoteFN, L"SaveAs_NoteFN", RegistryType::Number, 0, L"%F %Y-%m-%d", kTextCapacity},
    {SettingId::SaveAs_ReminderFN, L"SaveAs_ReminderFN", RegistryType::Number, 0, L"Reminder %f",
     kTextCapacity},
    {SettingId::TextMemoWordWrap, L"TextMemoWordWrap", RegistryType::Binary, 0, nullptr, 0},
    {SettingId::CopyFolder, L"CopyFolder", RegistryType::Text, 0, L"", kLongTextCapacity},
};
static_assert(std::size(kTable) == static_cast<size_t>(SettingId::Count), "one row for each setting");

constexpr bool RowsStandInOrder() {
    for (size_t i = 0; i < std::size(kTable); ++i) {
        if (kTable[i].id != static_cast<SettingId>(i)) return false;
    }
    return true;
}
static_assert(RowsStandInOrder(), "a row is found by its id");

}  // namespace

const SettingInfo& InfoOf(SettingId id) {
    ink::Require(id < SettingId::Count, "no such setting");
    return kTable[static_cast<size_t>(id)];
}

Settings::Settings() : key_(platform::RegistryKey::OpenUser(kKeyPath)) {}

std::optional<uint32_t> Settings::FindNumber(SettingId id) const {
    uint32_t number = 0;
    if (!key_.IsOpen() || !key_.QueryNumber(InfoOf(id).name, number)) return std::nullopt;
    return number;
}

uint32_t Settings::ReadNumber(SettingId id) const {
    return FindNumber(id).value_or(InfoOf(id).defaultNumber);
}

std::wstring Settings::ReadText(SettingId id) const {
    const std::wstring text = StoredText(id);
    return text.empty() ? InfoOf(id).defaultText : text;
}

std::wstring Settings::StoredText(SettingId id) const {
    const SettingInfo& info = InfoOf(id);
    std::wstring text;
    const bool isReadable = key_.IsOpen() && key_.QueryText(info.name, info.capacity, text);
    return isReadable ? text : std::wstring();
}

void Settings::Write(SettingId id, uint32_t number) {
    if (key_.IsOpen()) key_.SetNumber(InfoOf(id).name, InfoOf(id).diskType, number);
}

void Settings::Write(SettingId id, const std::wstring& text) {
    if (key_.IsOpen()) key_.SetText(InfoOf(id).name, InfoOf(id).diskType, text);
}

void Settings::Remove(SettingId id) {
    if (key_.IsOpen()) key_.Remove(InfoOf(id).name);
}

}  // namespace store
