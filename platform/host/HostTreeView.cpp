#include "platform/host/HostTreeView.h"

#include <algorithm>

#include "platform/host/HostWindow.h"

namespace platform {

namespace {

HostTreeNode* NodeOf(TreeItem item) {
    return reinterpret_cast<HostTreeNode*>(item);  // NOLINT(performance-no-int-to-ptr): handles are numbers
}
TreeItem ItemOf(const HostTreeNode* node) { return reinterpret_cast<TreeItem>(node); }

bool IsBelow(const HostTreeNode* node, const HostTreeNode* above) {
    for (; node != nullptr; node = node->parent) {
        if (node == above) return true;
    }
    return false;
}

auto Position(const HostTreeNode* node) {
    auto& siblings = node->parent->children;
    return std::find_if(siblings.begin(), siblings.end(),
                        [node](const auto& each) { return each.get() == node; });
}

}  // namespace

void TreeView::Impl::Select(HostTreeNode* node) {
    if (node == selected) return;
    HostTreeNode* old = selected;
    selected = node;
    if (node != nullptr) {
        for (HostTreeNode* above = node->parent; above->parent != nullptr; above = above->parent)
            above->expanded = true;
    }
    events->OnTreeSelection(ItemOf(old), ItemOf(node));
}

// Moves the selection out of a branch. False when whoever heard of that has removed the branch meanwhile.
bool TreeView::Impl::Leave(HostTreeNode* branch, HostTreeNode* heir) {
    leaving.push_back(branch);
    Select(heir);
    const bool isThere = leaving.back() != nullptr;
    leaving.pop_back();
    return isThere;
}

void TreeView::Impl::CloseBranch(HostTreeNode& node) {
    if (!IsBelow(selected, &node) || Leave(&node, &node)) node.expanded = false;
}

// The selection moves off what goes, as in the real control: to the next sibling, the one before or the
// parent.
void TreeView::Impl::Drop(HostTreeNode* node) {
    HostTreeNode* parent = node->parent;
    if (IsBelow(selected, node)) {
        const auto at = Position(node);
        HostTreeNode* heir = parent->parent == nullptr ? nullptr : parent;
        if (std::next(at) != parent->children.end()) {
            heir = std::next(at)->get();
        } else if (at != parent->children.begin()) {
            heir = std::prev(at)->get();
        }
        if (!Leave(node, heir)) return;
    }
    DropChildren(*node);
    std::replace(leaving.begin(), leaving.end(), node, static_cast<HostTreeNode*>(nullptr));
    if (editing == node) editing = nullptr;
    events->OnTreeItemDeleted(ItemOf(node), node->data);
    parent->children.erase(Position(node));
}

void TreeView::Impl::DropChildren(HostTreeNode& node) {
    if (selected != &node && IsBelow(selected, &node)) {
        if (!Leave(&node, node.parent == nullptr ? nullptr : &node)) return;
    }
    while (!node.children.empty()) Drop(node.children.back().get());
    node.expanded = false;
}

TreeView::TreeView() = default;
TreeView::~TreeView() = default;

bool TreeView::Create(Window& parent, int, const Rect& place, const Images&, Events& events,
                      const std::wstring& name) {
    impl_ = std::make_unique<Impl>();
    impl_->name = name;
    impl_->events = &events;
    impl_->place = place;
    parent.Handle()->tree = this;
    return true;
}

void TreeView::Place(const Rect& place) { impl_->place = place; }
void TreeView::SetVisible(bool visible) { impl_->visible = visible; }
void TreeView::Focus() {}

TreeItem TreeView::Insert(TreeItem parent, Where where, const std::wstring& text, int image, intptr_t data) {
    HostTreeNode& above = parent == 0 ? impl_->root : *NodeOf(parent);
    auto node = std::make_unique<HostTreeNode>();
    node->text = text;
    node->image = image;
    node->data = data;
    node->parent = &above;
    HostTreeNode* made = node.get();
    auto place = above.children.end();
    if (where == Where::Sorted) {
        place = std::find_if(above.children.begin(), above.children.end(),
                             [&text](const auto& each) { return each->text > text; });
    }
    above.children.insert(place, std::move(node));
    return ItemOf(made);
}

void TreeView::Remove(TreeItem item) {
    if (item != 0) impl_->Drop(NodeOf(item));
}

void TreeView::RemoveAll() { impl_->DropChildren(impl_->root); }

std::wstring TreeView::Text(TreeItem item) const { return item == 0 ? std::wstring() : NodeOf(item)->text; }
void TreeView::SetText(TreeItem item, const std::wstring& text) {
    if (item != 0) NodeOf(item)->text = text;
}
int TreeView::Image(TreeItem item) const { return item == 0 ? -1 : NodeOf(item)->image; }
void TreeView::SetImage(TreeItem item, int image) {
    if (item != 0) NodeOf(item)->image = image;
}
intptr_t TreeView::Data(TreeItem item) const { return item == 0 ? 0 : NodeOf(item)->data; }
void TreeView::SetBold(TreeItem item) {
    if (item != 0) NodeOf(item)->bold = true;
}
void TreeView::SetOverlay(TreeItem item, bool marked) {
    if (item != 0) NodeOf(item)->overlay = marked;
}
bool TreeView::IsSelected(TreeItem item) const { return item != 0 && NodeOf(item) == impl_->selected; }
bool TreeView::IsExpanded(TreeItem item) const { return item != 0 && NodeOf(item)->expanded; }

bool TreeView::HasChildren(TreeItem item) const {
    return item != 0 && (NodeOf(item)->flagged || !NodeOf(item)->children.empty());
}

TreeItem TreeView::FirstChild(TreeItem item) const {
    return item == 0 || NodeOf(item)->children.empty() ? 0 : ItemOf(NodeOf(item)->children.front().get());
}

TreeItem TreeView::NextSibling(TreeItem item) const {
    if (item == 0) return 0;
    const auto next = std::next(Position(NodeOf(item)));
    return next == NodeOf(item)->parent->children.end() ? 0 : ItemOf(next->get());
}

TreeItem TreeView::Parent(TreeItem item) const {
    return item == 0 || NodeOf(item)->parent == &impl_->root ? 0 : ItemOf(NodeOf(item)->parent);
}

TreeItem TreeView::Selection() const { return ItemOf(impl_->selected); }
void TreeView::Select(TreeItem item) { impl_->Select(NodeOf(item)); }
void TreeView::ScrollToTop(TreeItem) {}

// Like the real control: an item without children does not open.
void TreeView::Expand(TreeItem item) {
    if (item != 0 && !NodeOf(item)->children.empty()) NodeOf(item)->expanded = true;
}

void TreeView::CollapseAndDrop(TreeItem item) {
    if (item != 0) impl_->DropChildren(*NodeOf(item));
}

void TreeView::EnsureVisible(TreeItem item) {
    for (TreeItem above = Parent(item); above != 0; above = Parent(above)) Expand(above);
}

void TreeView::SortChildren(TreeItem parent, const Order& order) {
    HostTreeNode& above = parent == 0 ? impl_->root : *NodeOf(parent);
    above.children.sort([&order](const auto& a, const auto& b) {
        return order(ItemOf(a.get()), a->data, ItemOf(b.get()), b->data) < 0;
    });
}

void TreeView::EditLabel(TreeItem item) {
    if (item == 0) return;
    std::wstring text = NodeOf(item)->text;
    if (!impl_->events->OnTreeEditBegins(item, text)) return;
    impl_->editing = NodeOf(item);
    impl_->editText = text;
}

void TreeView::Freeze(bool frozen) { impl_->frozen += frozen ? 1 : -1; }

namespace host {

TreeItem HostTree::First() const {
    const auto& roots = tree_.Handle()->root.children;
    return roots.empty() ? 0 : ItemOf(roots.front().get());
}

bool HostTree::IsMarked(TreeItem item) const { return NodeOf(item)->overlay; }

TreeItem HostTree::Find(const std::vector<std::wstring>& path) const {
    TreeItem item = 0;
    for (const std::wstring& text : path) {
        item = item == 0 ? First() : tree_.FirstChild(item);
        while (item != 0 && tree_.Text(item) != text) item = tree_.NextSibling(item);
        if (item == 0) return 0;
    }
    return item;
}

std::vector<std::wstring> HostTree::Texts(const std::vector<std::wstring>& path) const {
    std::vector<std::wstring> texts;
    TreeItem item = path.empty() ? First() : tree_.FirstChild(Find(path));
    for (; item != 0; item = tree_.NextSibling(item)) texts.push_back(tree_.Text(item));
    return texts;
}

void HostTree::FlagAsParent(const std::vector<std::wstring>& path) { NodeOf(Find(path))->flagged = true; }

void HostTree::Tap(const std::vector<std::wstring>& path) { tree_.Select(Find(path)); }

void HostTree::Activate(const std::vector<std::wstring>& path) {
    Tap(path);
    tree_.Handle()->events->OnTreeActivated(tree_.Selection());
}

void HostTree::Hold(const std::vector<std::wstring>& path, Point place) {
    tree_.Handle()->events->OnTreeHold(Find(path), place);
}

void HostTree::PressKey(Key key) {
    TreeView::Events& events = *tree_.Handle()->events;
    const TreeItem selected = tree_.Selection();
    if (key == Key::Enter) {
        if (selected != 0) events.OnTreeActivated(selected);
    } else if (!events.OnTreeKey(key) && key == Key::Left && selected != 0) {
        if (tree_.IsExpanded(selected)) {
            tree_.Handle()->CloseBranch(*NodeOf(selected));
        } else if (tree_.Parent(selected) != 0) {
            tree_.Select(tree_.Parent(selected));
        }
    }
}

void HostTree::CloseBranch(const std::vector<std::wstring>& path) {
    tree_.Handle()->CloseBranch(*NodeOf(Find(path)));
}

bool HostTree::IsEditing() const { return tree_.Handle()->editing != nullptr; }

const std::wstring& HostTree::EditText() const { return tree_.Handle()->editText; }

void HostTree::EndEdit(const std::wstring& text) {
    HostTreeNode* node = std::exchange(tree_.Handle()->editing, nullptr);
    if (node != nullptr) tree_.Handle()->events->OnTreeEditEnds(ItemOf(node), text);
}

void HostTree::CancelEdit() { tree_.Handle()->editing = nullptr; }

}  // namespace host

}  // namespace platform
