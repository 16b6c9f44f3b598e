#pragma once

#include "platform/PropertyDialog.h"

namespace options {

// "Default File Name": the patterns that name new notes and reminders.
class COptPageDefFileName : public platform::PropertyPage {
  public:
    COptPageDefFileName();

    bool OnCreate() override;
    void OnCommand(int id) override;
    void OnApply() override;
};

}  // namespace options
