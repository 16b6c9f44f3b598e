// Edits of many lines that dialogs make at run time.
#include <new>

#include "platform/Dialog.h"
#include "platform/FillingControls.h"
#include "platform/MessageBox.h"
#include "platform/windows/DialogEvents.h"
#include "platform/windows/HandheldPlace.h"
#include "platform/windows/PressAndHold.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/SystemText.h"

namespace platform {

using windows::Item;

namespace {

constexpr UINT_PTR kSubclass = 1;
constexpr DWORD kStyle =
    WS_CHILD | WS_BORDER | WS_VSCROLL | WS_TABSTOP | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN;
constexpr DWORD kStyleWithoutWrap = WS_HSCROLL | ES_AUTOHSCROLL;
constexpr WPARAM kLongestText = 0x7FFFFFFE;
constexpr WPARAM kCtrlA = 1;  // as a character

void Hold(Dialog& dialog, HWND edit, POINT desktop) {
    const Rect place = windows::ToHandheld(edit, {desktop.x, desktop.y, desktop.x, desktop.y});
    Guarded(dialog, [&] { dialog.OnEditHold(GetDlgCtrlID(edit), {place.left, place.top}); });
}

// True when the control is not to see the press.
bool Press(Dialog& dialog, HWND edit, POINT place) {
    SetFocus(edit);
    const bool held = windows::WatchPress(edit, place) == windows::PressKind::Hold;
    if (!IsWindow(edit)) return true;
    if (held) {
        ClientToScreen(edit, &place);
        Hold(dialog, edit, place);
    }
    return held;
}

void AskForMenu(Dialog& dialog, HWND edit, LPARAM lParam) {
    POINT place = windows::PointIn(lParam);
    const bool isByKey = lParam == -1;
    if (isByKey && GetCaretPos(&place)) ClientToScreen(edit, &place);
    Hold(dialog, edit, place);
}

LRESULT CALLBACK EditProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                               DWORD_PTR reference) {
    Dialog& dialog = *reinterpret_cast<Dialog*>(reference);
    const POINT place = windows::PointIn(lParam);
    switch (message) {
        case WM_LBUTTONDOWN:
            if (Press(dialog, edit, place)) return 0;
            break;
        case WM_CONTEXTMENU:  // the control's own menu is replaced
            AskForMenu(dialog, edit, lParam);
            return 0;
        case WM_CHAR:
            if (wParam != kCtrlA) break;
            SendMessageW(edit, EM_SETSEL, 0, -1);
            return 0;
        case WM_NCDESTROY:
            RemoveWindowSubclass(edit, EditProcedure, kSubclass);
            break;
        default:
            break;
    }
    return DefSubclassProc(edit, message, wParam, lParam);
}

bool IsBlank(wchar_t unit) { return unit == L' ' || unit == L'\t'; }

// Words end at blanks. The system's own rule makes some versions of the control search forever for a place to
// break a line that holds certain characters.
int CALLBACK FindWord(wchar_t* text, int current, int length, int code) {
    int at = current;
    if (code == WB_ISDELIMITER) return at < length && IsBlank(text[at]);
    if (code == WB_RIGHT) {
        while (at < length && !IsBlank(text[at])) ++at;
        while (at < length && IsBlank(text[at])) ++at;
        return at;
    }
    while (at > 0 && IsBlank(text[at - 1])) --at;
    while (at > 0 && !IsBlank(text[at - 1])) --at;
    return at;
}

// Null when the system is short of anything.
HWND NewEdit(HWND parent, Dialog& dialog, int id, const RECT& place, bool wordWrap,
             const std::wstring& text) {
    const DWORD style = wordWrap ? kStyle : kStyle | kStyleWithoutWrap;
    const HWND edit = CreateWindowExW(0, WC_EDITW, L"", style, place.left, place.top,
                                      place.right - place.left, place.bottom - place.top, parent,
                                      reinterpret_cast<HMENU>(INT_PTR{id}), windows::Module(), nullptr);
    if (!edit) return nullptr;
    SendMessageW(edit, WM_SETFONT, static_cast<WPARAM>(SendMessageW(parent, WM_GETFONT, 0, 0)), FALSE);
    SendMessageW(edit, EM_SETLIMITTEXT, kLongestText, 0);
    SendMessageW(edit, EM_SETWORDBREAKPROC, 0, reinterpret_cast<LPARAM>(FindWord));
    SetWindowTextW(edit, text.c_str());
    const bool isWhole = static_cast<size_t>(GetWindowTextLengthW(edit)) == text.size();
    if (isWhole && SetWindowSubclass(edit, EditProcedure, kSubclass, reinterpret_cast<DWORD_PTR>(&dialog)))
        return edit;
    DestroyWindow(edit);
    return nullptr;
}

bool HasSelection(HWND edit) {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return start != end;
}

}  // namespace

namespace windows {

bool IsTextEdit(HWND control) {
    return IsOfClass(control, WC_EDITW) && (GetWindowLongPtrW(control, GWL_STYLE) & ES_MULTILINE) != 0;
}

}  // namespace windows

// The old one goes only when the new one holds the text.
bool Dialog::MakeTextEdit(int id, const Rect& place, bool wordWrap) {
    if (!impl_->frame) return false;
    const FillingControls filling(impl_->fillingControls);
    const HWND old = Item(impl_->frame, id);
    const HWND edit =
        NewEdit(impl_->frame, *this, id, windows::ToDesktop(place, impl_->scale), wordWrap, ItemText(id));
    if (!edit) return false;
    if (old) DestroyWindow(old);
    SetWindowPos(edit, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    SendMessageW(edit, EM_SETSEL, 0, 0);
    return true;
}

bool Dialog::CanEdit(int id, EditAction action) const {
    const HWND edit = Item(impl_->frame, id);
    if (!edit) return false;
    switch (action) {
        case EditAction::Undo:
            return SendMessageW(edit, EM_CANUNDO, 0, 0) != 0;
        case EditAction::Paste:
            return IsClipboardFormatAvailable(CF_TEXT) || IsClipboardFormatAvailable(CF_UNICODETEXT);
        case EditAction::SelectAll:
            return SendMessageW(edit, EM_GETLINECOUNT, 0, 0) > 1 ||
                   SendMessageW(edit, EM_LINELENGTH, 0, 0) > 0;
        default:
            return HasSelection(edit);
    }
}

void Dialog::Edit(int id, EditAction action) {
    const HWND edit = Item(impl_->frame, id);
    if (!edit) return;
    const struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    } kMessages[] = {{EM_UNDO, 0, 0},
                     {WM_CUT, 0, 0},
                     {WM_COPY, 0, 0},
                     {WM_PASTE, 0, 0},
                     {EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"")},
                     {EM_SETSEL, 0, -1}};
    const auto& chosen = kMessages[static_cast<size_t>(action)];
    SendMessageW(edit, chosen.message, chosen.wParam, chosen.lParam);
}

}  // namespace platform
