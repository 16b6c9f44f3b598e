// The state of a tree view of the headless port, and the hand that uses it.
#pragma once

#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/TreeView.h"

namespace platform {

struct HostTreeNode {
    std::wstring text;
    int image = 0;
    intptr_t data = 0;
    bool bold = false;
    bool overlay = false;
    bool expanded = false;
    bool flagged = false;            // shown as having children whether it has any or not
    HostTreeNode* parent = nullptr;  // null for the invisible root
    std::list<std::unique_ptr<HostTreeNode>> children;
};

struct TreeView::Impl {
    Events* events = nullptr;
    HostTreeNode root;
    HostTreeNode* selected = nullptr;
    HostTreeNode* editing = nullptr;
    std::wstring editText;
    Rect place;
    std::wstring name;  // for screen readers
    bool visible = true;
    int frozen = 0;
    std::vector<HostTreeNode*>
        leaving;  // branches that the selection is being moved out of; null once removed

    void Select(HostTreeNode* node);
    bool Leave(HostTreeNode* branch, HostTreeNode* heir);
    void CloseBranch(HostTreeNode& node);
    void Drop(HostTreeNode* node);
    void DropChildren(HostTreeNode& node);
};

namespace host {

// What a person does with the tree of the window on top. Items are named by their texts from the root,
// such as {"Notes", "Work  (2 found) "}; an unknown path is a null item.
class HostTree {
  public:
    explicit HostTree(TreeView& tree) : tree_(tree) {}

    TreeItem First() const;              // of the top items
    bool IsMarked(TreeItem item) const;  // by the overlay
    TreeItem Find(const std::vector<std::wstring>& path) const;
    // Texts of an item's children; of the top items without a path.
    std::vector<std::wstring> Texts(const std::vector<std::wstring>& path = {}) const;
    void FlagAsParent(const std::vector<std::wstring>& path);

    void Tap(const std::vector<std::wstring>& path);
    void Activate(const std::vector<std::wstring>& path);  // double tap
    void Hold(const std::vector<std::wstring>& path, Point place = {50, 50});
    void CloseBranch(const std::vector<std::wstring>& path);  // its [-]
    void PressKey(Key key);
    bool IsEditing() const;
    const std::wstring& EditText() const;
    // Ends in-place editing with this text, or cancels it.
    void EndEdit(const std::wstring& text);
    void CancelEdit();

  private:
    TreeView& tree_;
};

}  // namespace host

}  // namespace platform
