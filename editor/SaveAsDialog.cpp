#include "editor/SaveAsDialog.h"

#include "res/resource.h"

namespace editor {

SaveAsDialog::SaveAsDialog(const std::wstring& proposedName)
    : Dialog(IDD_SAVE_AS), proposedName_(proposedName) {}

bool SaveAsDialog::OnCreate() {
    ProposeName();
    return true;
}

void SaveAsDialog::OnCommand(int id) {
    if (id == IDC_DEFAULT_NAME) return ProposeName();
    if (id == platform::kIdOk) {
        const std::wstring typed = ItemText(IDC_FILE_NAME);
        const size_t first = typed.find_first_not_of(L" \t");
        name_ = first == std::wstring::npos ? L""
                                            : typed.substr(first, typed.find_last_not_of(L" \t") - first + 1);
    }
    Dialog::OnCommand(id);
}

void SaveAsDialog::ProposeName() {
    SetItemText(IDC_FILE_NAME, proposedName_);
    SelectItemText(IDC_FILE_NAME);
}

}  // namespace editor
