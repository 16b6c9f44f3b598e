#include "options/COptPageDlg.h"

namespace options {

bool COptPageDlg::RunModal(platform::Window& owner) {
    return platform::PropertyDialog(L"Options", {&misc_, &fileNames_}).RunModal(&owner) == platform::kIdOk;
}

}  // namespace options
