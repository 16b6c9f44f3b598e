#include "options/sheet/COptPageMisc.h"

#include "ink/PenStyle.h"
#include "platform/Locale.h"
#include "res/resource.h"

namespace options {

namespace {

using ink::PenStyle;
using store::SettingId;

constexpr int kDays = 7;
constexpr int16_t kLongestOffset = 32767;  // minutes

// Places in the list of pen styles.
constexpr int kSmooth = 0;
constexpr int kClassic = 1;
constexpr int kSimple = 2;

int ListedStyle(PenStyle style) {
    if (style == PenStyle::Simple) return kSimple;
    return style == PenStyle::Classic ? kClassic : kSmooth;
}

PenStyle StyleAt(int listed) {
    if (listed == kSimple) return PenStyle::Simple;
    return listed == kClassic ? PenStyle::Classic : PenStyle::Smooth;
}

// The pen as the setting `PenInfo` holds it: size in tenths of a pixel in bits 0 to 7, style in bits 16
// to 23. The spin button knows whole pixels only.
int SizeOf(uint32_t penInfo) { return static_cast<int>(penInfo & 0xFF) / 10; }
PenStyle StyleOf(uint32_t penInfo) { return ink::PenStyleOf(penInfo >> 16 & 0xFF); }
uint32_t PenInfoOf(uint32_t size, PenStyle style) {
    return (size * 10 & 0xFFFF) | static_cast<uint32_t>(style) << 16;
}

}  // namespace

COptPageMisc::COptPageMisc() : CPropertyPageEx(IDD_OPTIONS_MISC) {}

void COptPageMisc::ShowSettings(const store::Settings& settings) {
    std::vector<std::wstring> days(kDays);
    for (int day = 0; day < kDays; ++day) days[static_cast<size_t>(day)] = platform::DayName(day);
    SetChoices(IDC_FIRST_DAY, days);
    Choose(IDC_FIRST_DAY, static_cast<int>(settings.FindNumber(SettingId::FirstDayOfWeek)
                                               .value_or(static_cast<uint32_t>(platform::FirstDayOfWeek()))));
    SetChoices(IDC_PEN_STYLE, {L"Smooth", L"Classic", L"Simple"});
    SetSpinRange(IDC_PEN_SIZE_SPIN, 1, 10);
    ShowPen(settings.ReadNumber(SettingId::PenInfo));
    SetSpinRange(IDC_ALARM_OFFSET_SPIN, 0, kLongestOffset);
    SetSpin(IDC_ALARM_OFFSET_SPIN, static_cast<int16_t>(settings.ReadNumber(SettingId::AlarmTimeOffset)));
}

void COptPageMisc::ShowPen(uint32_t penInfo) {
    Choose(IDC_PEN_STYLE, ListedStyle(StyleOf(penInfo)));
    SetSpin(IDC_PEN_SIZE_SPIN, static_cast<int16_t>(SizeOf(penInfo)));
    FollowPenStyle();
}

// The classic pen has one size.
void COptPageMisc::FollowPenStyle() {
    const bool isClassic = Choice(IDC_PEN_STYLE) == kClassic;
    if (isClassic) SetSpin(IDC_PEN_SIZE_SPIN, 1);
    EnableItem(IDC_PEN_SIZE_SPIN, !isClassic);
}

void COptPageMisc::OnControlChanged(int id) {
    if (id == IDC_PEN_STYLE) FollowPenStyle();
}

// The offset is stored as its spin button gives it, its mark of an unreadable text included.
void COptPageMisc::StoreSettings(store::Settings& settings) {
    settings.Write(SettingId::PenInfo, PenInfoOf(Spin(IDC_PEN_SIZE_SPIN), StyleAt(Choice(IDC_PEN_STYLE))));
    settings.Write(SettingId::FirstDayOfWeek, static_cast<uint32_t>(Choice(IDC_FIRST_DAY)));
    settings.Write(SettingId::AlarmTimeOffset, Spin(IDC_ALARM_OFFSET_SPIN));
}

}  // namespace options
