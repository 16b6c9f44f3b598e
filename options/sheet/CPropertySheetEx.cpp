#include "options/sheet/CPropertySheetEx.h"

namespace options {

bool CPropertySheetEx::RunModal(platform::Window& owner) {
    return platform::PropertyDialog(caption_, pages_).RunModal(&owner) == platform::kIdOk;
}

}  // namespace options
