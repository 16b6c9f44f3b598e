#include "options/sheet/CPropertyPageEx.h"

namespace options {

bool CPropertyPageEx::OnCreate() {
    ShowSettings(store::Settings());
    return true;
}

void CPropertyPageEx::OnApply() {
    store::Settings settings;
    StoreSettings(settings);
}

}  // namespace options
