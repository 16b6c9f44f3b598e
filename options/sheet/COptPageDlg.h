#pragma once

#include "options/sheet/COptPageDefFileName.h"
#include "options/sheet/COptPageMisc.h"
#include "options/sheet/CPropertySheetEx.h"

namespace options {

// The options sheet.
class COptPageDlg : public CPropertySheetEx {
  public:
    COptPageDlg();

  private:
    COptPageMisc misc_;
    COptPageDefFileName fileNames_;
};

}  // namespace options
