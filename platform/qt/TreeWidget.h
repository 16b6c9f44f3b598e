#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QTreeWidget>

#include "platform/TreeView.h"
#include "platform/qt/PressAndHold.h"

namespace platform::qt {

// An item; belongs to the widget.
struct TreeNode : QTreeWidgetItem {
    int image = 0;
    intptr_t data = 0;
    bool hasOverlay = false;
    const TreeView::Order* order = nullptr;  // while its siblings are sorted

    bool operator<(const QTreeWidgetItem& other) const override;
};

// What the widget tells of its user; see TreeView::Events.
class TreeUser {
  public:
    virtual ~TreeUser() = default;
    virtual void LooksChanged() = 0;          // images are to be as fine as the screen
    virtual void Moved(TreeNode* node) = 0;   // the selection, by key
    virtual void Tapped(TreeNode* node) = 0;  // null: beside all texts
    virtual void DoubleTapped(TreeNode* node) = 0;
    virtual void Toggled(TreeNode* node) = 0;  // its button
    virtual void Held(TreeNode* node, QPoint desktop) = 0;
    virtual bool KeyPressed(const QKeyEvent& event) = 0;  // true: it was used up
    // Editing is over; false when it was given up.
    virtual void LabelEdited(TreeNode* node, const QString& text, bool isKept) = 0;
};

// What is selected of an item is its text.
class ItemPainter : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

// A tree as the handheld shows it: dotted lines, buttons with plus and minus.
class TreeWidget : public QTreeWidget {
  public:
    TreeWidget(QWidget* parent, TreeUser& user);
    TreeWidget(const TreeWidget&) = delete;
    TreeWidget& operator=(const TreeWidget&) = delete;
    ~TreeWidget() override;

    void SetCurrent(TreeNode* node);
    void Dress() { user_.LooksChanged(); }

    void EditLabel(TreeNode& node, const QString& text);
    void EndEdit(bool isKept);
    TreeNode* Edited() const { return edited_; }
    QLineEdit* Label() const { return label_; }

  protected:
    void drawBranches(QPainter* painter, const QRect& area, const QModelIndex& index) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void hideEvent(QHideEvent* event) override;

  private:
    TreeNode* TextAt(QPoint place) const;
    TreeNode* ButtonAt(QPoint place) const;

    TreeUser& user_;
    bool isOurs_ = false;  // the change of the current item
    TreeNode* edited_ = nullptr;
    QPointer<QLineEdit> label_;  // over the tree, and no child of it
    PressAndHold presses_;
};

}  // namespace platform::qt
