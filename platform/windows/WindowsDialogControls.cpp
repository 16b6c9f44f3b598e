// Check boxes, lists and spin buttons of dialogs.
#include "platform/Dialog.h"
#include "platform/FillingControls.h"
#include "platform/windows/DialogEvents.h"

namespace platform {

using windows::Item;

namespace {

LRESULT Send(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND item = Item(dialog, id);
    return item ? SendMessageW(item, message, wParam, lParam) : 0;
}

}  // namespace

void Dialog::SetItemMargins(int id, int pixels) {
    const int64_t margin = impl_->scale.ToScreen(pixels);
    Send(impl_->frame, id, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(margin, margin));
}

void Dialog::LimitItemText(int id, int characters) {
    Send(impl_->frame, id, EM_SETLIMITTEXT, static_cast<WPARAM>(characters), 0);
}

bool Dialog::IsItemChecked(int id) const { return Send(impl_->frame, id, BM_GETCHECK, 0, 0) == BST_CHECKED; }

void Dialog::CheckItem(int id, bool checked) {
    Send(impl_->frame, id, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void Dialog::SetChoices(int id, const std::vector<std::wstring>& texts) {
    Send(impl_->frame, id, CB_RESETCONTENT, 0, 0);
    for (const std::wstring& text : texts) {
        Send(impl_->frame, id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
}

int Dialog::Choice(int id) const {
    const bool exists = Item(impl_->frame, id) != nullptr;
    return exists ? static_cast<int>(Send(impl_->frame, id, CB_GETCURSEL, 0, 0)) : -1;
}

// Not every version of the control clears its choice for an index that it lacks.
void Dialog::Choose(int id, int index) {
    const bool exists = index < Send(impl_->frame, id, CB_GETCOUNT, 0, 0);
    Send(impl_->frame, id, CB_SETCURSEL, static_cast<WPARAM>(exists ? index : -1), 0);
}

void Dialog::SetSpinRange(int id, int16_t minimum, int16_t maximum) {
    const FillingControls filling(impl_->fillingControls);
    Send(impl_->frame, id, UDM_SETRANGE, 0, MAKELPARAM(maximum, minimum));
}

void Dialog::SetSpin(int id, int16_t position) {
    const FillingControls filling(impl_->fillingControls);
    Send(impl_->frame, id, UDM_SETPOS, 0, MAKELPARAM(position, 0));
}

uint32_t Dialog::Spin(int id) const {
    return static_cast<uint32_t>(Send(impl_->frame, id, UDM_GETPOS, 0, 0));
}

}  // namespace platform
