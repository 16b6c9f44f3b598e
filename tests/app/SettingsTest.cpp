#include "app/store/PenSettings.h"
#include "app/store/Settings.h"
#include "tests/support/DeskTest.h"

namespace {

using platform::RegistryType;
using store::SettingId;

class Settings : public testing_support::DeskTest {};

TEST_F(Settings, PensAndColours) {
    store::PenSettings pen = store::LoadPenSettings();
    EXPECT_THAT(pen.recentColors,
                testing::ElementsAre(0x808080u, 0x4040FFu, 0x40FF40u, 0xFF4040u, 0xFF40FFu));
    EXPECT_EQ(pen.backgroundColor, 0xFFFFFFu);
    EXPECT_EQ(pen.penSize, 10);
    EXPECT_EQ(pen.penStyle, ink::PenStyle::Smooth);
    device.SetSetting(L"PenInfo", 0x7F010064);
    EXPECT_EQ(store::LoadPenSettings().penSize, 100);
    EXPECT_EQ(store::LoadPenSettings().penStyle, ink::PenStyle::Classic);
    device.SetSetting(L"LastPenColor", 0x123456);
    device.registryFails = true;
    store::SaveColors(store::LoadPenSettings());
    EXPECT_EQ(store::LoadPenSettings().recentColors[0], 0x808080u);
    EXPECT_EQ(device.NumberSetting(L"LastPenColor"), 0x123456u);
}

TEST_F(Settings, TextsAndTheirTypesOnDisk) {
    EXPECT_EQ(store::Settings::Text(SettingId::SaveAs_NoteFN), L"%F %Y-%m-%d");
    store::Settings().Write(SettingId::SaveAs_NoteFN, L"%Y");
    const platform::host::RegistryValue& stored = device.Settings()[L"SaveAs_NoteFN"];
    EXPECT_EQ(stored.type, RegistryType::Number) << "as it always was";
    EXPECT_EQ(stored.data, std::string("%\0Y\0\0\0", 6));
    EXPECT_EQ(store::Settings::Text(SettingId::SaveAs_NoteFN), L"%Y");
    device.SetSetting(L"SaveAs_NoteFN", L"");
    EXPECT_EQ(store::Settings::Text(SettingId::SaveAs_NoteFN), L"%F %Y-%m-%d");
    for (const size_t length : {258u, 259u}) {  // longer than a reader takes is unreadable
        device.SetSetting(L"RootDirPath", L"\\" + std::wstring(length, L'a'));
        EXPECT_EQ(store::Settings::Text(SettingId::RootDirPath).size(), length == 258 ? 259u : 0u);
    }
    store::Settings().Write(SettingId::TextMemoWordWrap, 1);
    EXPECT_EQ(device.Settings()[L"TextMemoWordWrap"].type, RegistryType::Binary);
    device.SetSetting(L"TextMemoWordWrap", 1);
    EXPECT_EQ(store::Settings::Number(SettingId::TextMemoWordWrap), 1u);
}

}  // namespace
