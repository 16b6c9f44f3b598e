// The hand on trees and month calendars.
#include <cstring>

#include "platform/windows/TreeViewImpl.h"
#include "platform/windows/WindowImpl.h"
#include "tests/contract/WindowsDriverImpl.h"
#include "tests/contract/WindowsInput.h"

namespace contract {

using platform::TreeItem;
using platform::TreeView;

namespace {

HWND ControlOf(const TreeView& tree) { return tree.Handle()->tree; }

HWND EditOf(const TreeView& tree) {
    return reinterpret_cast<HWND>(SendMessageW(ControlOf(tree), TVM_GETEDITCONTROL, 0, 0));
}

// The middle of the item's text, or the empty part of the tree below all items.
POINT PlaceOf(const TreeView& tree, TreeItem item) {
    const HWND control = ControlOf(tree);
    RECT area{};
    if (item == 0) {
        GetClientRect(control, &area);
        area.top = area.bottom - 4;
        return MiddleOf(control, area);
    }
    static_assert(sizeof item <= sizeof area, "the control takes the item where it puts the rectangle");
    std::memcpy(&area, &item, sizeof item);
    SendMessageW(control, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area));
    return MiddleOf(control, area);
}

}  // namespace

void Driver::TapTree(TreeView& tree, TreeItem item) { Click(PlaceOf(tree, item)); }

void Driver::DoubleTapTree(TreeView& tree, TreeItem item) {
    Click(PlaceOf(tree, item));
    Click(PlaceOf(tree, item));
}

void Driver::HoldTree(TreeView& tree, TreeItem item) {
    impl_->heldPlace = PlaceOf(tree, item);
    impl_->heldUntil = GetTickCount64() + kHoldMilliseconds;
    SendMouse(impl_->heldPlace, MOUSEEVENTF_LEFTDOWN);
}

void Driver::RightClickTree(TreeView& tree, TreeItem item) {
    SendMouse(PlaceOf(tree, item), MOUSEEVENTF_RIGHTDOWN);
    SendMouse(PlaceOf(tree, item), MOUSEEVENTF_RIGHTUP);
}

void Driver::CloseBranch(TreeView& tree, TreeItem item) {
    TVHITTESTINFO hit{};
    hit.pt = PlaceOf(tree, item);
    ScreenToClient(ControlOf(tree), &hit.pt);
    do {
        --hit.pt.x;
        SendMessageW(ControlOf(tree), TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    } while (hit.pt.x > 0 && (hit.flags & TVHT_ONITEMBUTTON) == 0);
    Click(MiddleOf(ControlOf(tree), {hit.pt.x - 1, hit.pt.y, hit.pt.x - 1, hit.pt.y}));
}

void Driver::PressInTree(TreeView&, platform::Key key) { SendKey(KeyCode(key)); }

bool Driver::IsEditing(const TreeView& tree) const { return EditOf(tree) != nullptr; }

std::wstring Driver::EditedText(const TreeView& tree) const {
    wchar_t text[256] = L"";
    GetWindowTextW(EditOf(tree), text, 256);
    return text;
}

void Driver::EndEditing(TreeView& tree, const std::wstring& text) {
    SendMessageW(EditOf(tree), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
    SendKey(VK_RETURN);
}

void Driver::CancelEditing(TreeView&) { SendKey(VK_ESCAPE); }

void Driver::DoubleTapDay(platform::Dialog& dialog, int id) {
    const HWND calendar = GetDlgItem(dialog.Handle()->frame, id);
    SYSTEMTIME chosen{};
    SendMessageW(calendar, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&chosen));
    RECT area{};
    GetClientRect(calendar, &area);
    for (LONG y = 0; y < area.bottom; y += 4) {
        for (LONG x = 0; x < area.right; x += 4) {
            MCHITTESTINFO hit{};
            hit.cbSize = MCHITTESTINFO_V1_SIZE;
            hit.pt = {x, y};
            SendMessageW(calendar, MCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
            if (hit.uHit != MCHT_CALENDARDATE || hit.st.wDay != chosen.wDay) continue;
            const POINT place = MiddleOf(calendar, {x, y, x, y});
            Click(place);
            Click(place);
            return;
        }
    }
}

int Driver::FirstDayShown(platform::Dialog& dialog, int id) const {
    const HWND calendar = GetDlgItem(dialog.Handle()->frame, id);
    return LOWORD(SendMessageW(calendar, MCM_GETFIRSTDAYOFWEEK, 0, 0));
}

}  // namespace contract
