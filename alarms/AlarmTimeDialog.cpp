#include "alarms/AlarmTimeDialog.h"

#include "alarms/AlarmStamp.h"
#include "app/Settings.h"
#include "platform/Clock.h"
#include "platform/Screen.h"
#include "platform/Shell.h"
#include "res/resource.h"

namespace alarms {

namespace {

platform::DateTime InitialMoment(const std::wstring& stamp) {
    platform::DateTime moment;
    if (ReadAlarmStamp(stamp, moment)) return moment;
    const uint32_t offsetMinutes = app::Settings::Number(app::SettingId::AlarmTimeOffset);
    moment = platform::AddSeconds(platform::LocalNow(), int64_t{static_cast<int32_t>(offsetMinutes)} * 60);
    moment.second = 0;
    return moment;
}

}  // namespace

AlarmTimeDialog::AlarmTimeDialog(const std::wstring& stamp)
    : Dialog(IDD_ALARM_TIME), moment_(InitialMoment(stamp)) {}

bool AlarmTimeDialog::OnCreate() {
    SetPicked(IDC_ALARM_DATE, moment_);
    SetPicked(IDC_ALARM_TIME, moment_);
    ShrinkToControls();
    platform::ShowInputPanel(true);
    return true;
}

void AlarmTimeDialog::OnDestroy() { platform::ShowInputPanel(false); }

void AlarmTimeDialog::OnCommand(int id) {
    if (id == platform::kIdOk) ReadMoment();
    Dialog::OnCommand(id);
}

// Equal margins left and right, above and below the controls, whatever font the system chose.
void AlarmTimeDialog::ShrinkToControls() {
    const platform::Rect dialog = WindowRect();
    const platform::Rect date = ItemRect(IDC_ALARM_DATE);
    const platform::Rect set = ItemRect(platform::kIdOk);
    const int width = 2 * (date.left - dialog.left) + (date.right - date.left);
    const int height = (set.bottom - dialog.top) + (date.top - dialog.top);
    const int left = (platform::HandheldScreen().width - width) / 2;
    const int top = 2 * platform::kBarHeight;
    Place({left, top, left + width, top + height});
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
