#pragma once

#include "options/COptPageDefFileName.h"
#include "options/COptPageMisc.h"

namespace options {

// The options sheet.
class COptPageDlg {
  public:
    // True when it was closed with OK, which has stored the settings of the pages that were shown.
    bool RunModal(platform::Window& owner);

  private:
    COptPageMisc misc_;
    COptPageDefFileName fileNames_;
};

}  // namespace options
