#include "platform/host/HostTreeView.h"
#include "tests/contract/Driver.h"

namespace contract {

using platform::TreeItem;
using platform::TreeView;
using platform::host::HostTree;

namespace {

std::vector<std::wstring> PathOf(const TreeView& tree, TreeItem item) {
    std::vector<std::wstring> path;
    for (; item != 0; item = tree.Parent(item)) path.insert(path.begin(), tree.Text(item));
    return path;
}

// Somewhere inside the tree, in pixels of the handheld's screen.
platform::Point PlaceIn(const TreeView& tree) {
    const platform::Rect& place = tree.Handle()->place;
    return {place.left + 10, place.top + 10 + platform::kBarHeight};
}

}  // namespace

void Driver::TapTree(TreeView& tree, TreeItem item) { HostTree(tree).Tap(PathOf(tree, item)); }
void Driver::DoubleTapTree(TreeView& tree, TreeItem item) { HostTree(tree).Activate(PathOf(tree, item)); }

void Driver::HoldTree(TreeView& tree, TreeItem item) {
    HostTree(tree).Hold(PathOf(tree, item), PlaceIn(tree));
}

void Driver::RightClickTree(TreeView& tree, TreeItem item) { HoldTree(tree, item); }
void Driver::CloseBranch(TreeView& tree, TreeItem item) { HostTree(tree).CloseBranch(PathOf(tree, item)); }
void Driver::PressInTree(TreeView& tree, platform::Key key) { HostTree(tree).PressKey(key); }
bool Driver::IsEditing(const TreeView& tree) const { return tree.Handle()->editing != nullptr; }
std::wstring Driver::EditedText(const TreeView& tree) const { return tree.Handle()->editText; }
void Driver::EndEditing(TreeView& tree, const std::wstring& text) { HostTree(tree).EndEdit(text); }
void Driver::CancelEditing(TreeView& tree) { HostTree(tree).CancelEdit(); }

}  // namespace contract
