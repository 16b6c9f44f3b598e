#include <algorithm>
#include <vector>

#include "platform/Dialog.h"
#include "platform/windows/HandheldPlace.h"
#include "platform/windows/ModalRun.h"
#include "platform/windows/MonthTaps.h"
#include "platform/windows/SystemTimes.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

namespace {

using windows::Attach;
using windows::DispatchEvent;
using windows::WindowOf;

// The middle of the owner, or of the desktop; never off the desktop's top left.
void Centre(HWND dialog) {
    RECT place{};
    GetWindowRect(dialog, &place);
    const SIZE size{place.right - place.left, place.bottom - place.top};
    const HWND owner = GetWindow(dialog, GW_OWNER);
    RECT around{};
    POINT corner = windows::CentredPlace(size);
    if (owner && GetWindowRect(owner, &around)) {
        corner = {(around.left + around.right - size.cx) / 2, (around.top + around.bottom - size.cy) / 2};
    }
    SetWindowPos(dialog, nullptr, std::max(corner.x, 0L), std::max(corner.y, 0L), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
}

INT_PTR Open(HWND handle, Window* window) {
    Attach(handle, window);
    Window::Impl& state = *window->Handle();
    state.frame = state.page = handle;
    windows::WatchMonthTaps(handle);
    const bool opened = window->OnCreate();
    if (!opened) state.ended = true;
    if (!state.placed) Centre(handle);
    return state.focusPlaced ? FALSE : TRUE;
}

// Buttons and commands sent by hand go to OnCommand; other controls report a change of their content.
bool ControlEvent(Window& window, HWND handle, WPARAM wParam, LPARAM lParam) {
    const WORD code = HIWORD(wParam);
    const bool isCommand = lParam == 0 || code == BN_CLICKED;
    if (isCommand) return DispatchEvent(window, handle, WM_COMMAND, wParam, lParam);
    const LRESULT kind = SendMessageW(reinterpret_cast<HWND>(lParam), WM_GETDLGCODE, 0, 0);
    const bool isButton = (kind & DLGC_BUTTON) != 0;
    const bool changed = code == EN_CHANGE || code == CBN_SELCHANGE || code == CBN_EDITCHANGE;
    if (changed && !isButton && !window.Handle()->fillingControls) window.OnControlChanged(LOWORD(wParam));
    return changed;
}

INT_PTR CALLBACK DialogProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) return Open(handle, reinterpret_cast<Window*>(lParam));
    Window* window = WindowOf(handle);
    if (!window) return FALSE;
    Window::Impl& state = *window->Handle();
    switch (message) {
        case WM_CLOSE:
            return DispatchEvent(*window, handle, WM_COMMAND, kIdCancel, 0);
        case WM_COMMAND:
            return ControlEvent(*window, handle, wParam, lParam);
        case WM_NOTIFY: {
            const NMHDR& notice = *reinterpret_cast<const NMHDR*>(lParam);
            const bool changed = notice.code == DTN_DATETIMECHANGE && !state.fillingControls;
            if (changed) window->OnControlChanged(static_cast<int>(notice.idFrom));
            return FALSE;
        }
        case WM_DESTROY:
            window->OnDestroy();
            return FALSE;
        case WM_NCDESTROY:
            Attach(handle, nullptr);
            state.frame = state.page = nullptr;
            state.ended = true;
            return FALSE;
        case WM_PAINT:
        case WM_VSCROLL:
            return FALSE;  // the dialog's controls have them
        default:
            return DispatchEvent(*window, handle, message, wParam, lParam);
    }
}

// What the program itself puts into a control is not reported back as the user's change.
class FillingControls {
  public:
    explicit FillingControls(Window::Impl& state) : state_(state), before_(state.fillingControls) {
        state_.fillingControls = true;
    }
    FillingControls(const FillingControls&) = delete;
    FillingControls& operator=(const FillingControls&) = delete;
    ~FillingControls() { state_.fillingControls = before_; }

  private:
    Window::Impl& state_;
    bool before_;
};

HWND Item(HWND dialog, int id) { return dialog ? GetDlgItem(dialog, id) : nullptr; }

bool ReadPicker(HWND dialog, int id, SYSTEMTIME& moment) {
    const HWND picker = Item(dialog, id);
    const auto to = reinterpret_cast<LPARAM>(&moment);
    if (windows::IsMonthCalendar(picker)) return SendMessageW(picker, MCM_GETCURSEL, 0, to) != 0;
    return picker && SendMessageW(picker, DTM_GETSYSTEMTIME, 0, to) == GDT_VALID;
}

}  // namespace

Dialog::Dialog(int templateId) : templateId_(templateId) {}
Dialog::~Dialog() = default;

int Dialog::RunModal(Window* owner) {
    if (Exists()) return -1;
    *impl_ = Impl();
    const HWND ownerFrame = windows::FrameOf(owner);
    Window* object = this;
    const HWND handle = CreateDialogParamW(windows::Module(), MAKEINTRESOURCEW(templateId_), ownerFrame,
                                           DialogProcedure, reinterpret_cast<LPARAM>(object));
    if (!handle || !impl_->frame) return -1;
    return windows::RunToEnd(*this, ownerFrame, windows::KeyNavigation::Dialog);
}

std::wstring Dialog::ItemText(int id) const {
    const HWND item = Item(impl_->frame, id);
    if (!item) return {};
    std::vector<wchar_t> text(static_cast<size_t>(GetWindowTextLengthW(item)) + 1);
    const int length = GetWindowTextW(item, text.data(), static_cast<int>(text.size()));
    return std::wstring(text.data(), static_cast<size_t>(length));
}

void Dialog::SetItemText(int id, const std::wstring& text) {
    const FillingControls filling(*impl_);
    if (const HWND item = Item(impl_->frame, id)) SetWindowTextW(item, text.c_str());
}

void Dialog::EnableItem(int id, bool enabled) {
    const HWND item = Item(impl_->frame, id);
    if (!item) return;
    // A disabled control that kept the focus would swallow Esc and Tab.
    if (!enabled && GetFocus() == item) SendMessageW(impl_->frame, WM_NEXTDLGCTL, 0, FALSE);
    EnableWindow(item, enabled);
}

bool Dialog::IsItemEnabled(int id) const {
    const HWND item = Item(impl_->frame, id);
    return item && IsWindowEnabled(item);
}

// The dialog manager moves the default button's mark along only when it is asked to move the focus itself.
void Dialog::FocusItem(int id) {
    const HWND item = Item(impl_->frame, id);
    if (!item) return;
    impl_->focusPlaced = true;
    SendMessageW(impl_->frame, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(item), TRUE);
}

void Dialog::SelectItemText(int id) {
    if (const HWND item = Item(impl_->frame, id)) SendMessageW(item, EM_SETSEL, 0, -1);
}

DateTime Dialog::PickedDate(int id) const {
    SYSTEMTIME moment{};
    if (!ReadPicker(impl_->frame, id, moment)) return {};
    return windows::DateTimeOf(moment);
}

DateTime Dialog::PickedTime(int id) const { return PickedDate(id); }

void Dialog::SetPicked(int id, const DateTime& moment) {
    const FillingControls filling(*impl_);
    const SYSTEMTIME system = windows::SystemTimeOf(moment);
    const HWND picker = Item(impl_->frame, id);
    const auto from = reinterpret_cast<LPARAM>(&system);
    if (windows::IsMonthCalendar(picker)) {
        SendMessageW(picker, MCM_SETCURSEL, 0, from);
    } else if (picker) {
        SendMessageW(picker, DTM_SETSYSTEMTIME, GDT_VALID, from);
    }
}

void Dialog::SetFirstDayOfWeek(int id, int day) {
    const HWND picker = Item(impl_->frame, id);
    if (day < 0 || day > 6 || !windows::IsMonthCalendar(picker)) return;
    SendMessageW(picker, MCM_SETFIRSTDAYOFWEEK, 0, day);
}

Rect Dialog::WindowRect() const {
    RECT place{};
    if (!impl_->frame || !GetWindowRect(impl_->frame, &place)) return {};
    return windows::ToHandheld(impl_->frame, place);
}

Rect Dialog::ItemRect(int id) const {
    RECT place{};
    const HWND item = Item(impl_->frame, id);
    if (!item || !GetWindowRect(item, &place)) return {};
    return windows::ToHandheld(impl_->frame, place);
}

void Dialog::Place(const Rect& windowRect) {
    if (!impl_->frame) return;
    const RECT place = windows::ToDesktop(impl_->frame, windowRect);
    SetWindowPos(impl_->frame, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    impl_->placed = true;
}

void Dialog::OnCommand(int id) {
    if (id == kIdOk || id == kIdCancel) EndModal(id);
}

}  // namespace platform
