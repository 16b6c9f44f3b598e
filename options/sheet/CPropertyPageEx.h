#pragma once

#include "app/store/Settings.h"
#include "platform/PropertyDialog.h"

namespace options {

// A page that edits some of the settings. It reads them when it is shown for the first time and stores them
// when the sheet is closed with OK; one that was never shown stores nothing.
class CPropertyPageEx : public platform::PropertyPage {
  public:
    using platform::PropertyPage::PropertyPage;

    bool OnCreate() override;
    void OnApply() override;

  private:
    virtual void ShowSettings(const store::Settings& settings) = 0;
    virtual void StoreSettings(store::Settings& settings) = 0;
};

}  // namespace options
