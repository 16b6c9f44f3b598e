#pragma once

#include <string>
#include <vector>

#include "platform/TreeView.h"
#include "platform/windows/Guards.h"

namespace platform {

// The system's control gives a comparison nothing but the numbers stored with two items; a contract's
// comparison wants to know the items too, so each item's number is the address of its Node.
struct TreeView::Impl {
    struct Node {
        HTREEITEM item = nullptr;
        intptr_t data = 0;
    };

    Window* parent = nullptr;
    Events* events = nullptr;  // null once nobody is to hear of anything any more
    HWND tree = nullptr;       // null again when the parent's window is gone
    TreeView::Images source;
    windows::OwnedImageList images;
    windows::OwnedFont font;
    std::wstring editText;  // what the open label edit began with
    int frozen = 0;
    bool visible = true;
    bool takesFocus = false;         // while it does
    std::vector<HTREEITEM> leaving;  // branches that the selection is being moved out of; null once removed

    bool Create(Window& window, int id, const Rect& place, const TreeView::Images& pictures);
    // Images and font for the scale that the parent has now. Without memory for it they stay what they were.
    bool Rescale();
    Node* NodeOf(HTREEITEM item) const;
    UINT State(HTREEITEM item, UINT mask) const;
    void SetState(HTREEITEM item, UINT mask, UINT bits);
    void Select(HTREEITEM item);
    // Shows the item with a button when it has children, without one when it has none.
    void ShowButton(HTREEITEM item);
    bool IsBelow(HTREEITEM item, HTREEITEM above) const;
    // Moves the selection to `heir` when it lies in the branch of `item`. False when whoever heard of that
    // has removed `item` meanwhile.
    bool LeaveBranch(HTREEITEM item, HTREEITEM heir);

    // Events of the control: its notices to the parent, and what it gets from the user.
    LRESULT Notice(NMHDR& notice);
    bool Input(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    bool BeginEdit(const NMTVDISPINFOW& info);
    void ItemDeleted(const NMTREEVIEWW& notice);
    bool BranchCloses(const NMTREEVIEWW& notice);
    bool Activate(HTREEITEM item);
    bool KeyDown(WPARAM virtualKey);
    bool Press(POINT place);
    void Hold(POINT place);
    void HoldSelection();
    void FillEdit();
};

namespace windows {

inline HTREEITEM SystemItem(TreeItem item) { return reinterpret_cast<HTREEITEM>(item); }
inline TreeItem ContractItem(HTREEITEM item) { return reinterpret_cast<TreeItem>(item); }

// The tree behind a control of ours; null for any other window.
TreeView::Impl* TreeOf(HWND control);

// Routes the input of a new control to its tree.
bool WatchTree(TreeView::Impl& tree);

// Gives what a control tells its parent to its tree; the answer to WM_NOTIFY.
LRESULT TreeNotice(NMHDR& notice);

}  // namespace windows

}  // namespace platform
