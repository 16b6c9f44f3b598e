// What the system's tree control tells, and what the user does to it, as events of a tree view.
#include <algorithm>
#include <cstring>

#include "platform/windows/HandheldPlace.h"
#include "platform/windows/PressAndHold.h"
#include "platform/windows/SystemText.h"
#include "platform/windows/TreeViewImpl.h"
#include "platform/windows/WindowImpl.h"

namespace platform {

using windows::ContractItem;

namespace {

constexpr UINT_PTR kSubclass = 1;
constexpr wchar_t kTreeProperty[] = L"InkwrightTreeView";
constexpr UINT kFillEdit = WM_APP + 1;

HTREEITEM HitItem(HWND tree, POINT place) {
    TVHITTESTINFO hit{};
    hit.pt = place;
    SendMessageW(tree, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return (hit.flags & TVHT_ONITEM) != 0 ? hit.hItem : nullptr;
}

LRESULT CALLBACK TreeProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                               DWORD_PTR reference) {
    auto& tree = *reinterpret_cast<TreeView::Impl*>(reference);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(handle, TreeProcedure, kSubclass);
        RemovePropW(handle, kTreeProperty);
        tree.tree = nullptr;
        if (tree.parent->Handle()->control == handle) tree.parent->Handle()->control = nullptr;
        return DefSubclassProc(handle, message, wParam, lParam);
    }
    if (message == WM_SETFOCUS) {
        // Without a selection the control would select its first item of itself.
        tree.takesFocus = true;
        const LRESULT result = DefSubclassProc(handle, message, wParam, lParam);
        tree.takesFocus = false;
        return result;
    }
    bool isHandled = true;
    Guarded(*tree.parent, [&] { isHandled = tree.events && tree.Input(message, wParam, lParam); });
    if (isHandled) return 0;
    return DefSubclassProc(handle, message, wParam, lParam);
}

}  // namespace

LRESULT TreeView::Impl::Notice(NMHDR& notice) {
    const auto& change = reinterpret_cast<const NMTREEVIEWW&>(notice);
    const auto& edit = reinterpret_cast<const NMTVDISPINFOW&>(notice);
    switch (notice.code) {
        case TVN_SELCHANGINGW:
            return takesFocus ? TRUE : FALSE;
        case TVN_SELCHANGEDW:
            if (events)
                events->OnTreeSelection(ContractItem(change.itemOld.hItem),
                                        ContractItem(change.itemNew.hItem));
            return 0;
        case TVN_ITEMEXPANDINGW:
            return BranchCloses(change) ? FALSE : TRUE;
        case TVN_DELETEITEMW:
            ItemDeleted(change);
            return 0;
        case TVN_BEGINLABELEDITW:
            return BeginEdit(edit) ? FALSE : TRUE;
        case TVN_ENDLABELEDITW:
            if (events && edit.item.pszText)
                events->OnTreeEditEnds(ContractItem(edit.item.hItem), edit.item.pszText);
            return FALSE;  // the control's own change is not wanted
        case NM_DBLCLK: {
            POINT place{};
            GetCursorPos(&place);
            ScreenToClient(tree, &place);
            return Activate(HitItem(tree, place));
        }
        default:
            return 0;
    }
}

// Some versions of the control move the selection out of a branch that closes without a word. False when the
// branch is not there any more.
bool TreeView::Impl::BranchCloses(const NMTREEVIEWW& notice) {
    const bool closes = (notice.action & TVE_TOGGLE) == TVE_COLLAPSE;
    return !events || !closes || LeaveBranch(notice.itemNew.hItem, notice.itemNew.hItem);
}

void TreeView::Impl::ItemDeleted(const NMTREEVIEWW& notice) {
    std::replace(leaving.begin(), leaving.end(), notice.itemOld.hItem, HTREEITEM{});
    const std::unique_ptr<Node> node(reinterpret_cast<Node*>(notice.itemOld.lParam));
    if (events && node) events->OnTreeItemDeleted(ContractItem(notice.itemOld.hItem), node->data);
}

bool TreeView::Impl::BeginEdit(const NMTVDISPINFOW& info) {
    if (!events) return false;
    editText = info.item.pszText ? info.item.pszText : L"";
    if (!events->OnTreeEditBegins(ContractItem(info.item.hItem), editText)) return false;
    // Some versions of the control fill the edit only after this notice.
    FillEdit();
    PostMessageW(tree, kFillEdit, 0, 0);
    return true;
}

void TreeView::Impl::FillEdit() {
    const auto edit = reinterpret_cast<HWND>(SendMessageW(tree, TVM_GETEDITCONTROL, 0, 0));
    if (!edit) return;
    SetWindowTextW(edit, editText.c_str());
    SendMessageW(edit, EM_SETSEL, 0, -1);
}

// True when the control is to do nothing more about it: an item with children also opens or closes.
bool TreeView::Impl::Activate(HTREEITEM item) {
    if (!item || !events) return false;
    const bool hasChildren =
        SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CHILD, reinterpret_cast<LPARAM>(item)) != 0;
    events->OnTreeActivated(ContractItem(item));
    return !hasChildren;
}

bool TreeView::Impl::KeyDown(WPARAM virtualKey) {
    const Key key = windows::KeyOf(virtualKey);
    if (key != Key::Enter) return events->OnTreeKey(key);
    const auto selected = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
    if (selected) events->OnTreeActivated(ContractItem(selected));
    return true;
}

void TreeView::Impl::Hold(POINT place) {
    const HTREEITEM item = HitItem(tree, place);
    ClientToScreen(tree, &place);
    const Rect handheld = windows::ToHandheld(parent->Handle()->frame, {place.x, place.y, place.x, place.y});
    events->OnTreeHold(ContractItem(item), {handheld.left, handheld.top});
}

// The keyboard's way to the menu: as if the selected item were held.
void TreeView::Impl::HoldSelection() {
    const LRESULT selected = SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0);
    if (!selected) return;
    RECT area{};  // takes the item's handle in
    std::memcpy(&area, &selected, sizeof selected);
    if (SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area)))
        Hold({(area.left + area.right) / 2, (area.top + area.bottom) / 2});
}

// True when the control is not to see the press.
bool TreeView::Impl::Press(POINT place) {
    const HWND control = tree;
    const bool held = windows::WatchPress(control, place) == windows::PressKind::Hold;
    if (!IsWindow(control)) return true;
    if (held) Hold(place);
    return held;
}

bool TreeView::Impl::Input(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
            SetFocus(tree);
            return Press(windows::PointIn(lParam));
        case WM_RBUTTONDOWN:
            SetFocus(tree);
            return true;  // the control's own menu gesture is replaced
        case WM_RBUTTONUP:
            Hold(windows::PointIn(lParam));
            return true;
        case WM_CONTEXTMENU:
            if (lParam == -1) HoldSelection();
            return true;
        case WM_KEYDOWN:
            return KeyDown(wParam);
        case WM_CHAR:
            return wParam == VK_RETURN || wParam == VK_ESCAPE;  // the control would beep
        case kFillEdit:
            FillEdit();
            return true;
        default:
            return false;
    }
}

namespace windows {

TreeView::Impl* TreeOf(HWND control) {
    return static_cast<TreeView::Impl*>(GetPropW(control, kTreeProperty));
}

bool WatchTree(TreeView::Impl& tree) {
    return SetPropW(tree.tree, kTreeProperty, &tree) &&
           SetWindowSubclass(tree.tree, TreeProcedure, kSubclass, reinterpret_cast<DWORD_PTR>(&tree)) !=
               FALSE;
}

LRESULT TreeNotice(NMHDR& notice) {
    TreeView::Impl* tree = TreeOf(notice.hwndFrom);
    if (!tree) return 0;
    LRESULT answer = 0;
    Guarded(*tree->parent, [&] { answer = tree->Notice(notice); });
    return answer;
}

}  // namespace windows

}  // namespace platform
