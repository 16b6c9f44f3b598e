#include <vector>

#include "platform/Dialog.h"
#include "platform/FillingControls.h"
#include "platform/windows/DialogEvents.h"
#include "platform/windows/DialogSource.h"
#include "platform/windows/HandheldPlace.h"
#include "platform/windows/ModalRun.h"
#include "platform/windows/MonthTaps.h"
#include "platform/windows/ReaderNames.h"
#include "platform/windows/ScreenScale.h"
#include "platform/windows/SystemTimes.h"

namespace platform {

namespace {

using windows::Item;

INT_PTR CALLBACK DialogProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_INITDIALOG) return windows::DialogEvent(handle, message, wParam, lParam);
    Window& window = *reinterpret_cast<Window*>(lParam);
    const INT_PTR answer = windows::OpenDialog(handle, window);
    if (!window.Handle()->placed) windows::Centre(handle);
    return answer;
}

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
    const windows::DialogSource source = windows::FindDialog(templateId_);
    const HWND handle = CreateDialogIndirectParamW(windows::Module(), source.Template(), ownerFrame,
                                                   DialogProcedure, reinterpret_cast<LPARAM>(object));
    if (!handle || !impl_->frame) return windows::CannotOpen(ownerFrame);
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
    const FillingControls filling(impl_->fillingControls);
    if (const HWND item = Item(impl_->frame, id)) SetWindowTextW(item, text.c_str());
}

void Dialog::EnableItem(int id, bool enabled) {
    const HWND item = Item(impl_->frame, id);
    if (!item) return;
    // A disabled control that kept the focus would swallow Esc and Tab.
    if (!enabled && GetFocus() == item) SendMessageW(impl_->frame, WM_NEXTDLGCTL, 0, FALSE);
    EnableWindow(item, enabled);
}

void Dialog::NameItem(int id, const std::wstring& name) {
    windows::NameForReaders(Item(impl_->frame, id), name);
}

void Dialog::NameDialog(const std::wstring& name) { windows::NameForReaders(impl_->frame, name); }

// The dialog manager moves the default button's mark along only when it is asked to move the focus itself.
void Dialog::FocusItem(int id) {
    const HWND item = Item(impl_->frame, id);
    if (!item) return;
    impl_->focusPlaced = true;
    // It would also select a whole text of many lines, for the next key to wipe out.
    if (windows::IsTextEdit(item)) {
        SetFocus(item);
        return;
    }
    SendMessageW(impl_->frame, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(item), TRUE);
}

void Dialog::SelectItemText(int id) {
    const HWND item = Item(impl_->frame, id);
    if (!item) return;
    SendMessageW(item, EM_SETSEL, 0, -1);
    SendMessageW(item, EM_SCROLLCARET, 0, 0);
}

DateTime Dialog::PickedDate(int id) const {
    SYSTEMTIME moment{};
    if (!ReadPicker(impl_->frame, id, moment)) return {};
    return windows::DateTimeOf(moment);
}

DateTime Dialog::PickedTime(int id) const { return PickedDate(id); }

void Dialog::SetPicked(int id, const DateTime& moment) {
    const FillingControls filling(impl_->fillingControls);
    const SYSTEMTIME system = windows::SystemTimeOf(moment);
    const HWND picker = Item(impl_->frame, id);
    const auto from = reinterpret_cast<LPARAM>(&system);
    if (windows::IsMonthCalendar(picker)) {  // NOLINT(bugprone-branch-clone): two messages of one number
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

Rect Dialog::OwnerRect() const {
    RECT place{};
    const HWND owner = impl_->frame ? GetWindow(impl_->frame, GW_OWNER) : nullptr;
    if (!owner || !GetWindowRect(owner, &place)) return {};
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
    RECT place = windows::ToDesktop(impl_->frame, windowRect);
    // Once it is open the user may drag it anywhere.
    if (!impl_->running) place = windows::OntoMonitor(impl_->frame, place);
    SetWindowPos(impl_->frame, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    impl_->placed = true;
}

void Dialog::PlaceItem(int id, const Rect& client) {
    const HWND item = Item(impl_->frame, id);
    const RECT place = windows::ToDesktop(client, impl_->scale);
    if (item)
        MoveWindow(item, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
}

}  // namespace platform
