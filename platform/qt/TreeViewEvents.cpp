// What the user does to a tree, and what becomes of its selection, as events of a tree view.
#include <QApplication>
#include <QKeyEvent>
#include <algorithm>

#include "platform/qt/HandheldPlace.h"
#include "platform/qt/Text.h"
#include "platform/qt/TreeViewImpl.h"
#include "platform/qt/WindowImpl.h"

namespace platform {

namespace {

using Node = qt::TreeNode;

TreeItem ItemOf(const Node* node) { return reinterpret_cast<TreeItem>(node); }
Node* ParentOf(const Node& node) { return static_cast<Node*>(node.parent()); }

bool IsBelow(const Node* node, const Node* above) {
    while (node && node != above) node = ParentOf(*node);
    return node != nullptr;
}

Node* SiblingOf(const qt::TreeWidget& tree, const Node& node, int distance) {
    QTreeWidgetItem* parent = node.parent() ? node.parent() : tree.invisibleRootItem();
    auto* item = const_cast<Node*>(&node);
    return static_cast<Node*>(parent->child(parent->indexOfChild(item) + distance));
}

}  // namespace

void TreeView::Impl::Select(Node* node) {
    if (!tree) return;
    Node* old = selected;
    selected = node;
    tree->SetCurrent(node);
    if (events && old != node) events->OnTreeSelection(ItemOf(old), ItemOf(node));
}

bool TreeView::Impl::LeaveBranch(Node* node, Node* heir) {
    if (!IsBelow(selected, node)) return true;
    leaving.push_back(node);
    Select(heir);
    const bool isThere = leaving.back() != nullptr;
    leaving.pop_back();
    return isThere;
}

void TreeView::Impl::CloseBranch(Node& node) {
    if (LeaveBranch(&node, &node)) node.setExpanded(false);
}

// The selection moves off what goes: to the next sibling, the one before or the parent.
void TreeView::Impl::Drop(Node* node) {
    Node* heir = SiblingOf(*tree, *node, 1);
    if (!heir) heir = SiblingOf(*tree, *node, -1);
    if (!heir) heir = ParentOf(*node);
    if (!LeaveBranch(node, heir)) return;
    Erase(node);
}

void TreeView::Impl::DropChildren(Node& node) {
    if (selected != &node && !LeaveBranch(&node, &node)) return;
    while (node.childCount() > 0) Erase(static_cast<Node*>(node.child(node.childCount() - 1)));
    node.setExpanded(false);
}

// Nothing of the branch is selected any more.
void TreeView::Impl::Erase(Node* node) {
    while (node->childCount() > 0) Erase(static_cast<Node*>(node->child(node->childCount() - 1)));
    std::replace(leaving.begin(), leaving.end(), node, static_cast<Node*>(nullptr));
    if (tree->Edited() == node) tree->EndEdit(false);
    if (events) events->OnTreeItemDeleted(ItemOf(node), node->data);
    const std::unique_ptr<Node> gone(node);
}

void TreeView::Impl::EditLabel(Node& node) {
    slowTap.stop();
    std::wstring text = qt::FromQt(node.text(0));
    if (tree && events && events->OnTreeEditBegins(ItemOf(&node), text))
        tree->EditLabel(node, qt::ToQt(text));
}

void TreeView::Impl::LabelEdited(Node* node, const QString& text, bool isKept) {
    if (events && isKept) Guarded(*parent, [&] { events->OnTreeEditEnds(ItemOf(node), qt::FromQt(text)); });
}

void TreeView::Impl::Moved(Node* node) {
    Guarded(*parent, [&] { Select(node); });
}

void TreeView::Impl::Tapped(Node* node) {
    slowTap.stop();
    if (!node) return;
    if (node == selected) return slowTap.start(QApplication::doubleClickInterval());
    Guarded(*parent, [&] { Select(node); });
}

// An item with children also opens or closes, unless whoever heard of the taps has removed it.
void TreeView::Impl::DoubleTapped(Node* node) {
    slowTap.stop();
    if (!node || !events) return;
    leaving.push_back(node);
    Guarded(*parent, [&] { events->OnTreeActivated(ItemOf(node)); });
    const bool isThere = leaving.back() != nullptr;
    leaving.pop_back();
    if (isThere && node->childCount() > 0) Toggled(node);
}

void TreeView::Impl::Toggled(Node* node) {
    if (!node->isExpanded()) return node->setExpanded(true);
    Guarded(*parent, [&] { CloseBranch(*node); });
}

void TreeView::Impl::Held(Node* node, QPoint desktop) {
    slowTap.stop();
    if (events) Guarded(*parent, [&] { events->OnTreeHold(ItemOf(node), qt::ToHandheld(parent, desktop)); });
}

bool TreeView::Impl::KeyPressed(const QKeyEvent& event) {
    slowTap.stop();
    if (!events || parent->Handle()->ended || qt::TakeShortcut(*parent, event)) return true;
    const Key key = qt::KeyOf(event.key());
    bool isUsed = key == Key::Enter || key == Key::Escape;
    Guarded(*parent, [&] {
        if (key == Key::Enter && selected) events->OnTreeActivated(ItemOf(selected));
        if (key != Key::Enter) isUsed = events->OnTreeKey(key) || isUsed;
    });
    if (isUsed || !selected) return isUsed;
    if (key == Key::Left || event.key() == Qt::Key_Minus) return StepOut(*selected);
    return key == Key::Right && StepIn(*selected);
}

bool TreeView::Impl::StepOut(Node& node) {
    Guarded(*parent, [&] {
        if (node.isExpanded() && node.childCount() > 0) {
            CloseBranch(node);
        } else if (Node* above = ParentOf(node)) {
            Select(above);
        }
    });
    return true;
}

bool TreeView::Impl::StepIn(Node& node) {
    if (node.childCount() == 0) return true;
    if (!node.isExpanded()) {
        node.setExpanded(true);
    } else {
        Guarded(*parent, [&] { Select(static_cast<Node*>(node.child(0))); });
    }
    return true;
}

}  // namespace platform
