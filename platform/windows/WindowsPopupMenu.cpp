#include "platform/PopupMenu.h"
#include "platform/Screen.h"
#include "platform/windows/Guards.h"
#include "platform/windows/HandheldPlace.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

namespace {

windows::OwnedMenu MenuOf(const PopupMenu& source);

// The system takes a single "&" for the mark of an access key.
std::wstring Shown(const std::wstring& text) {
    std::wstring shown;
    for (const wchar_t unit : text) shown.append(unit == L'&' ? 2 : 1, unit);
    return shown;
}

bool Append(HMENU menu, const PopupMenu::Item& item) {
    const std::wstring text = Shown(item.text);
    if (!item.submenu) {
        const UINT state = item.enabled ? MF_ENABLED : MF_GRAYED;
        const UINT flags = item.command == 0 ? MF_SEPARATOR : MF_STRING | state;
        return AppendMenuW(menu, flags, static_cast<UINT_PTR>(item.command), text.c_str());
    }
    windows::OwnedMenu submenu = MenuOf(*item.submenu);
    const auto handle = reinterpret_cast<UINT_PTR>(submenu.get());
    if (!submenu || !AppendMenuW(menu, MF_POPUP | MF_STRING, handle, text.c_str())) return false;
    static_cast<void>(submenu.release());  // goes with the menu it is part of
    return true;
}

// Null when the system is short of anything.
windows::OwnedMenu MenuOf(const PopupMenu& source) {
    windows::OwnedMenu menu(CreatePopupMenu());
    for (const PopupMenu::Item& item : source.Items()) {
        if (!menu || !Append(menu.get(), item)) return nullptr;
    }
    return menu;
}

}  // namespace

int PopupMenu::Choose(Window& owner, ink::Point place) const {
    const HWND frame = windows::FrameOf(&owner);
    Window::Impl& state = *owner.Handle();
    const windows::OwnedMenu menu = MenuOf(*this);
    if (!frame || !menu || state.ended) return 0;
    // The system keeps menus on the desktop, which may be far larger than the handheld: open towards its
    // middle.
    const ScreenSize screen = HandheldScreen(owner);
    const UINT across = place.x > screen.width / 2 ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
    const UINT along = place.y > screen.height / 2 ? TPM_BOTTOMALIGN : TPM_TOPALIGN;
    const RECT desktop = windows::ToDesktop(frame, {place.x, place.y, place.x, place.y});
    state.hasMenu = true;
    const int command = TrackPopupMenuEx(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY | across | along,
                                         desktop.left, desktop.top, frame, nullptr);
    state.hasMenu = false;
    return state.ended ? 0 : command;
}

}  // namespace platform
