#include "alarms/AlarmTimeDialog.h"

#include "alarms/AlarmStamp.h"
#include "app/store/Settings.h"
#include "platform/Clock.h"
#include "platform/Screen.h"
#include "platform/Shell.h"
#include "res/resource.h"

namespace alarms {

namespace {

platform::DateTime InitialMoment(const std::wstring& stamp) {
    platform::DateTime moment;
    if (ReadAlarmStamp(stamp, moment) && platform::IsValidMoment(moment)) return moment;
    const uint32_t offsetMinutes = store::Settings::Number(store::SettingId::AlarmTimeOffset);
    moment = platform::AddSeconds(platform::LocalNow(), int64_t{static_cast<int32_t>(offsetMinutes)} * 60);
    moment.second = 0;
    return moment;
}

}  // namespace

AlarmTimeDialog::AlarmTimeDialog(const std::wstring& stamp)
    : Dialog(IDD_ALARM_TIME), moment_(InitialMoment(stamp)) {}

AlarmTimeDialog::AlarmTimeDialog(platform::Point anchor)
    : Dialog(IDD_ALARM_TIME), moment_(InitialMoment(L"")), centred_(false), anchor_(anchor) {}

bool AlarmTimeDialog::OnCreate() {
    NameDialog(L"Set Alarm");
    SetPicked(IDC_ALARM_DATE, moment_);
    SetPicked(IDC_ALARM_TIME, moment_);
    NameItem(IDC_ALARM_DATE, L"Date");
    NameItem(IDC_ALARM_TIME, L"Time");
    const platform::ScreenSize screen = platform::HandheldScreen(*this);
    const platform::Rect size = SizeAroundControls();
    if (centred_) {
        Place(Offset(size, (screen.width - size.right) / 2, 2 * platform::kBarHeight));
        platform::ShowInputPanel(true);
    } else {
        Place(ink::MovedInto(Offset(size, anchor_.x, anchor_.y), {0, 0, screen.width, screen.height}));
    }
    return true;
}

void AlarmTimeDialog::OnDestroy() {
    if (centred_) platform::ShowInputPanel(false);
}

void AlarmTimeDialog::OnCommand(int id) {
    if (id == platform::kIdOk) ReadMoment();
    Dialog::OnCommand(id);
}

// The system's font decides how large the controls are.
platform::Rect AlarmTimeDialog::SizeAroundControls() const {
    const platform::Rect dialog = WindowRect();
    const platform::Rect date = ItemRect(IDC_ALARM_DATE);
    const platform::Rect set = ItemRect(platform::kIdOk);
    return {0, 0, 2 * (date.left - dialog.left) + date.Width(),
            (set.bottom - dialog.top) + (date.top - dialog.top)};
}

void AlarmTimeDialog::ReadMoment() {
    const platform::DateTime date = PickedDate(IDC_ALARM_DATE);
    const platform::DateTime time = PickedTime(IDC_ALARM_TIME);
    moment_ = time;
    moment_.year = date.year;
    moment_.month = date.month;
    moment_.day = date.day;
    moment_.dayOfWeek = platform::DayOfWeek(date.year, date.month, date.day);
    moment_.milliseconds = 0;
}

}  // namespace alarms
