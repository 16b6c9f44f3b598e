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
    // Opens at a point of the screen (handheld screen pixels), moved as needed to lie on the screen.
    explicit AlarmTimeDialog(platform::Point anchor);

    // The chosen moment, day of week included, after RunModal returned kIdOk.
    const platform::DateTime& Moment() const { return moment_; }

    bool OnCreate() override;
    void OnDestroy() override;
    void OnCommand(int id) override;

  private:
    // Width and height that leave equal margins around the controls.
    platform::Rect SizeAroundControls() const;
    void ReadMoment();

    platform::DateTime moment_;
    bool centred_ = true;
    platform::Point anchor_;
};

}  // namespace alarms
