#pragma once

#include <QIcon>
#include <QPointer>
#include <string>
#include <vector>

#include "platform/TreeView.h"
#include "platform/qt/TreeWidget.h"

namespace platform {

// The widget shows and reports; what is selected is said here, so that it is told in the same order whoever
// brings it about.
struct TreeView::Impl : qt::TreeUser {
    using Node = qt::TreeNode;

    Window* parent = nullptr;
    Events* events = nullptr;       // null once nobody is to hear of anything any more
    QPointer<qt::TreeWidget> tree;  // belongs to the parent's window, and goes with it
    TreeView::Images source;
    std::vector<QPixmap> images;
    Node* selected = nullptr;
    int frozen = 0;
    std::vector<Node*> leaving;  // branches that the selection is being moved out of; null once removed
    QTimer slowTap;              // a second tap on the selected item edits it, unless a third follows

    ~Impl() override = default;

    bool Create(Window& window, int id, const Rect& place, const TreeView::Images& pictures);
    bool TakeImages();
    void ShowImage(Node& node) const;
    void Select(Node* node);
    // Moves the selection to `heir` when it lies in the branch of `node`. False when whoever heard of that
    // has removed `node` meanwhile.
    bool LeaveBranch(Node* node, Node* heir);
    void CloseBranch(Node& node);
    void Drop(Node* node);
    void DropChildren(Node& node);
    void Erase(Node* node);
    void EditLabel(Node& node);

    void LooksChanged() override;
    void Moved(Node* node) override;
    void Tapped(Node* node) override;
    void DoubleTapped(Node* node) override;
    void Toggled(Node* node) override;
    void Held(Node* node, QPoint desktop) override;
    bool KeyPressed(const QKeyEvent& event) override;
    void LabelEdited(Node* node, const QString& text, bool isKept) override;

  private:
    bool StepOut(Node& node);
    bool StepIn(Node& node);
};

}  // namespace platform
