#pragma once

#include <string>
#include <vector>

#include "platform/Dialog.h"

namespace platform {

// One page of a PropertyDialog. OnCreate comes when the page is shown for the first time; the caption of its
// template is the text of its tab.
class PropertyPage : public Dialog {
  public:
    using Dialog::Dialog;

    // The sheet is closed with OK; only pages that were shown hear of it.
    virtual void OnApply() {}

    // OK and Cancel belong to the sheet, and so does the end.
    void OnCommand(int) override {}
    void OnTakeOver() override {}
};

// A modal dialog of pages with a tab for each, OK and Cancel.
class PropertyDialog {
  public:
    // The pages live longer than the sheet.
    PropertyDialog(const std::wstring& caption, const std::vector<PropertyPage*>& pages);

    // kIdOk when it was closed with OK (the pages have heard of it), kIdCancel when it was cancelled, -1 when
    // it could not be made. `owner` (may be null) can't be used meanwhile.
    int RunModal(Window* owner);

  private:
    std::wstring caption_;
    std::vector<PropertyPage*> pages_;
};

}  // namespace platform
