#include "platform/PopupMenu.h"
#include "platform/Screen.h"
#include "platform/windows/Guards.h"
#include "platform/windows/HandheldPlace.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

void PopupMenu::Add(int command, const std::wstring& text, bool enabled) {
    items_.push_back({command, text, enabled});
}

void PopupMenu::AddSeparator() { items_.push_back({}); }

int PopupMenu::Choose(Window& owner, ink::Point place) const {
    const HWND frame = windows::FrameOf(&owner);
    const windows::OwnedMenu menu(CreatePopupMenu());
    if (!frame || !menu) return 0;
    for (const Item& item : items_) {
        const UINT state = item.enabled ? MF_ENABLED : MF_GRAYED;
        const UINT flags = item.command == 0 ? MF_SEPARATOR : MF_STRING | state;
        if (!AppendMenuW(menu.get(), flags, static_cast<UINT_PTR>(item.command), item.text.c_str())) return 0;
    }
    // The system keeps menus on the desktop, which may be far larger than the handheld: open towards its
    // middle.
    const ScreenSize screen = HandheldScreen();
    const UINT across = place.x > screen.width / 2 ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
    const UINT along = place.y > screen.height / 2 ? TPM_BOTTOMALIGN : TPM_TOPALIGN;
    const RECT desktop = windows::ToDesktop(frame, {place.x, place.y, place.x, place.y});
    return TrackPopupMenuEx(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY | across | along, desktop.left,
                            desktop.top, frame, nullptr);
}

}  // namespace platform
