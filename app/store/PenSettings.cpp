#include "app/store/PenSettings.h"

#include "app/store/Settings.h"

namespace store {

namespace {

constexpr SettingId kPenColors[] = {SettingId::LastPenColor, SettingId::PenColor_1, SettingId::PenColor_2,
                                    SettingId::PenColor_3, SettingId::PenColor_4};

}  // namespace

PenSettings LoadPenSettings() {
    const Settings settings;
    PenSettings pen;
    for (size_t i = 0; i < pen.recentColors.size(); ++i)
        pen.recentColors[i] = settings.ReadNumber(kPenColors[i]);
    pen.backgroundColor = settings.ReadNumber(SettingId::LastBGColor);
    LoadPen(pen);
    return pen;
}

void LoadPen(PenSettings& pen) {
    const uint32_t penInfo = Settings::Number(SettingId::PenInfo);
    pen.penSize = static_cast<uint8_t>(penInfo & 0xFF);
    pen.penStyle = ink::PenStyleOf(penInfo >> 16 & 0xFF);
}

void SaveColors(const PenSettings& pen) {
    Settings settings;
    for (size_t i = 0; i < pen.recentColors.size(); ++i) settings.Write(kPenColors[i], pen.recentColors[i]);
    settings.Write(SettingId::LastBGColor, pen.backgroundColor);
}

}  // namespace store
