#include "options/sheet/COptPageDlg.h"

namespace options {

COptPageDlg::COptPageDlg() : CPropertySheetEx(L"Options") {
    AddPage(misc_);
    AddPage(fileNames_);
}

}  // namespace options
