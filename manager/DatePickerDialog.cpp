#include "manager/DatePickerDialog.h"

#include "platform/Clock.h"
#include "res/resource.h"

namespace manager {

DatePickerDialog::DatePickerDialog(int firstDayOfWeek)
    : Dialog(IDD_DATE_PICKER), firstDayOfWeek_(firstDayOfWeek), day_(platform::LocalNow()) {}

bool DatePickerDialog::OnCreate() {
    SetFirstDayOfWeek(IDC_MONTH_CALENDAR, firstDayOfWeek_);
    SetPicked(IDC_MONTH_CALENDAR, day_);
    NameItem(IDC_MONTH_CALENDAR, L"Date");
    return true;
}

void DatePickerDialog::OnCommand(int id) {
    if (id == platform::kIdOk) day_ = PickedDate(IDC_MONTH_CALENDAR);
    Dialog::OnCommand(id);
}

}  // namespace manager
