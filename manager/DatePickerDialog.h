#pragma once

#include "platform/Dialog.h"

namespace manager {

// Asks for a day by a month calendar; a double tap on the day takes it.
class DatePickerDialog : public platform::Dialog {
  public:
    explicit DatePickerDialog(int firstDayOfWeek);

    // The day, after RunModal returned kIdOk.
    const platform::DateTime& Day() const { return day_; }

    bool OnCreate() override;
    void OnCommand(int id) override;

  private:
    int firstDayOfWeek_;
    platform::DateTime day_;
};

}  // namespace manager
