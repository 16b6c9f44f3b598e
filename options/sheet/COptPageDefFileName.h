#pragma once

#include "options/sheet/CPropertyPageEx.h"

namespace options {

// "Default File Name": the patterns that name new notes and reminders.
class COptPageDefFileName : public CPropertyPageEx {
  public:
    COptPageDefFileName();

    void OnCommand(int id) override;

  private:
    void ShowSettings(const store::Settings& settings) override;
    void StoreSettings(store::Settings& settings) override;
};

}  // namespace options
