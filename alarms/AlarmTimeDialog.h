#pragma once

#include <string>

#include "platform/Dialog.h"

namespace alarms {

// Asks for the day and the time of an alarm.
class AlarmTimeDialog : public platform::Dialog {
  public:
    // Opens near the top of the screen, on the moment of `stamp` when it is a whole alarm stamp, else on
    // now plus the user's alarm offset.
    explicit AlarmTimeDialog(const std::wstring& stamp);

    // The chosen moment, day of week included, after RunModal returned kIdOk.
    const platform::DateTime& Moment() const { return moment_; }

    bool OnCreate() override;
    void OnDestroy() override;
    void OnCommand(int id) override;

  private:
    void ShrinkToControls();
    void ReadMoment();

    platform::DateTime moment_;
};

}  // namespace alarms
