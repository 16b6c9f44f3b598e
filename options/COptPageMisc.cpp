#include "options/COptPageMisc.h"

#include "app/store/Settings.h"
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

PenStyle StyleOf(int listed) {
    if (listed == kSimple) return PenStyle::Simple;
    return listed == kClassic ? PenStyle::Classic : PenStyle::Smooth;
}

}  // namespace

PenChoice DecodePenInfo(uint32_t penInfo) {
    return {static_cast<int>(penInfo & 0xFF) / 10, ink::PenStyleOf(penInfo >> 16 & 0xFF)};
}

uint32_t EncodePenInfo(uint32_t size, PenStyle style) {
    return (size * 10 & 0xFFFF) | static_cast<uint32_t>(style) << 16;
}

COptPageMisc::COptPageMisc() : PropertyPage(IDD_OPTIONS_MISC) {}

bool COptPageMisc::OnCreate() {
    const store::Settings settings;
    std::vector<std::wstring> days(kDays);
    for (int day = 0; day < kDays; ++day) days[static_cast<size_t>(day)] = platform::DayName(day);
    SetChoices(IDC_FIRST_DAY, days);
    Choose(IDC_FIRST_DAY, static_cast<int>(settings.FindNumber(SettingId::FirstDayOfWeek)
                                               .value_or(static_cast<uint32_t>(platform::FirstDayOfWeek()))));
    SetChoices(IDC_PEN_STYLE, {L"Smooth", L"Classic", L"Simple"});
    SetSpinRange(IDC_PEN_SIZE_SPIN, 1, 10);
    ShowPen(DecodePenInfo(settings.ReadNumber(SettingId::PenInfo)));
    SetSpinRange(IDC_ALARM_OFFSET_SPIN, 0, kLongestOffset);
    SetSpin(IDC_ALARM_OFFSET_SPIN, static_cast<int16_t>(settings.ReadNumber(SettingId::AlarmTimeOffset)));
    return true;
}

void COptPageMisc::ShowPen(const PenChoice& pen) {
    Choose(IDC_PEN_STYLE, ListedStyle(pen.style));
    SetSpin(IDC_PEN_SIZE_SPIN, static_cast<int16_t>(pen.size));
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
void COptPageMisc::OnApply() {
    store::Settings settings;
    settings.Write(SettingId::PenInfo,
                   EncodePenInfo(Spin(IDC_PEN_SIZE_SPIN), StyleOf(Choice(IDC_PEN_STYLE))));
    settings.Write(SettingId::FirstDayOfWeek, static_cast<uint32_t>(Choice(IDC_FIRST_DAY)));
    settings.Write(SettingId::AlarmTimeOffset, Spin(IDC_ALARM_OFFSET_SPIN));
}

}  // namespace options
