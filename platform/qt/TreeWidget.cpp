#include "platform/qt/TreeWidget.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <memory>
#include <utility>

#include "platform/qt/Fonts.h"

namespace platform::qt {

namespace {

constexpr int kIndent = 19;
constexpr int kTenthPoints = 90;
constexpr int kTextGap = 2;     // on either side of a text, and before its selection
constexpr int kButtonSide = 9;  // odd, for a middle

class LabelEdit : public QLineEdit {
  public:
    LabelEdit(QWidget* parent, TreeWidget& tree) : QLineEdit(parent), tree_(tree) {
        setAccessibleName("Name");
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isKept = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (isKept || event->key() == Qt::Key_Escape) {
            tree_.EndEdit(isKept);
        } else {
            QLineEdit::keyPressEvent(event);
            event->accept();  // nothing typed here is for the window
        }
    }
    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        if (event->reason() != Qt::PopupFocusReason) tree_.EndEdit(true);
    }

  private:
    TreeWidget& tree_;
};

void DrawButton(QPainter& painter, QPoint middle, const QPalette& palette, bool isOpen) {
    constexpr int kHalf = kButtonSide / 2;
    const QRect box(middle.x() - kHalf, middle.y() - kHalf, kButtonSide, kButtonSide);
    painter.fillRect(box, palette.color(QPalette::Base));
    painter.setPen(palette.color(QPalette::Dark));
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.setPen(palette.color(QPalette::Text));
    painter.drawLine(middle.x() - 2, middle.y(), middle.x() + 2, middle.y());
    if (!isOpen) painter.drawLine(middle.x(), middle.y() - 2, middle.x(), middle.y() + 2);
}

}  // namespace

void ItemPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    painter->save();
    painter->setFont(item.font);
    const int iconWidth = item.decorationSize.width();
    item.icon.paint(painter, QRect(item.rect.topLeft(), QSize(iconWidth, item.rect.height())));
    QRect text = item.rect.adjusted(iconWidth + kTextGap, 0, 0, 0);
    text.setWidth(painter->fontMetrics().horizontalAdvance(item.text) + 2 * kTextGap);
    const bool isSelected = item.state.testFlag(QStyle::State_Selected);
    if (isSelected) painter->fillRect(text, item.palette.brush(QPalette::Highlight));
    painter->setPen(item.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(text.adjusted(kTextGap, 0, 0, 0), Qt::AlignVCenter | Qt::TextSingleLine, item.text);
    painter->restore();
}

bool TreeNode::operator<(const QTreeWidgetItem& other) const {
    const auto& node = static_cast<const TreeNode&>(other);
    if (!order) return QTreeWidgetItem::operator<(other);
    return (*order)(reinterpret_cast<TreeItem>(this), data, reinterpret_cast<TreeItem>(&node), node.data) < 0;
}

TreeWidget::TreeWidget(QWidget* parent, TreeUser& user)
    : QTreeWidget(parent), user_(user), presses_(viewport(), [this](QPoint place) {
          user_.Held(TextAt(place), viewport()->mapToGlobal(place));
      }) {
    setHeaderHidden(true);
    setHeaderLabel({});
    setColumnCount(1);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setHorizontalScrollMode(ScrollPerPixel);
    setUniformRowHeights(true);
    setIndentation(kIndent);
    setIconSize({16, 16});
    setFont(FontOf(kTenthPoints, false));
    setFrameShape(QFrame::NoFrame);
    setExpandsOnDoubleClick(false);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideNone);
    setItemDelegate(new ItemPainter(this));
}

TreeWidget::~TreeWidget() {
    isOurs_ = true;
    const std::unique_ptr<QWidget> gone(label_);
}

void TreeWidget::SetCurrent(TreeNode* node) {
    const bool before = std::exchange(isOurs_, true);
    if (node) {
        for (QTreeWidgetItem* above = node->parent(); above; above = above->parent())
            above->setExpanded(true);
        setCurrentItem(node);
        scrollToItem(node);
    } else {
        setCurrentItem(nullptr);
        clearSelection();
    }
    isOurs_ = before;
}

void TreeWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeWidget::currentChanged(current, previous);
    if (!isOurs_) user_.Moved(static_cast<TreeNode*>(itemFromIndex(current)));
}

// The toolkit would select the first item of itself where none is.
void TreeWidget::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);  // NOLINT(bugprone-parent-virtual-call): not what lies between
    viewport()->update();
}

TreeNode* TreeWidget::TextAt(QPoint place) const {
    QTreeWidgetItem* item = itemAt(place);
    const bool isBeside = !item || place.x() < visualItemRect(item).left();
    return isBeside ? nullptr : static_cast<TreeNode*>(item);
}

TreeNode* TreeWidget::ButtonAt(QPoint place) const {
    QTreeWidgetItem* item = itemAt(place);
    if (!item || item->childCount() == 0) return nullptr;
    const int left = visualItemRect(item).left();
    return place.x() < left && place.x() >= left - kIndent ? static_cast<TreeNode*>(item) : nullptr;
}

void TreeWidget::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() != Qt::LeftButton) return;
    const QPoint place = event->position().toPoint();
    if (TreeNode* branch = ButtonAt(place)) return user_.Toggled(branch);
    user_.Tapped(TextAt(place));
}

void TreeWidget::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() != Qt::RightButton) return;
    user_.Held(TextAt(event->position().toPoint()), event->globalPosition().toPoint());
}

void TreeWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() != Qt::LeftButton) return;
    const QPoint place = event->position().toPoint();
    if (TreeNode* branch = ButtonAt(place)) return user_.Toggled(branch);
    user_.DoubleTapped(TextAt(place));
}

// The keyboard's way to the menu: as if the selected item were held.
void TreeWidget::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    auto* node = static_cast<TreeNode*>(currentItem());
    if (event->reason() == QContextMenuEvent::Keyboard && node)
        user_.Held(node, viewport()->mapToGlobal(visualItemRect(node).center()));
}

void TreeWidget::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (!user_.KeyPressed(*event)) QTreeWidget::keyPressEvent(event);
}

// The edit of a label lies on the item's own place.
void TreeWidget::scrollContentsBy(int dx, int dy) {
    if (label_ && (dx != 0 || dy != 0)) EndEdit(true);
    QTreeWidget::scrollContentsBy(dx, dy);
}

void TreeWidget::hideEvent(QHideEvent* event) {
    QTreeWidget::hideEvent(event);
    EndEdit(true);
}

void TreeWidget::EditLabel(TreeNode& node, const QString& text) {
    EndEdit(true);
    scrollToItem(&node);
    const QRect row = visualItemRect(&node);
    const int left = row.left() + iconSize().width() + 2;
    edited_ = &node;
    // Beside the tree, as readers of the screen find nothing but items in it.
    label_ = new LabelEdit(parentWidget(), *this);
    const QPoint corner = viewport()->mapTo(parentWidget(), QPoint(left, row.top() - 1));
    label_->setGeometry({corner, QSize(std::max(60, viewport()->width() - left - 4), row.height() + 2)});
    label_->setText(text);
    label_->selectAll();
    label_->show();
    label_->setFocus();
}

void TreeWidget::EndEdit(bool isKept) {
    QLineEdit* label = label_;
    label_.clear();
    TreeNode* node = std::exchange(edited_, nullptr);
    if (!label) return;
    const bool hadFocus = label->hasFocus();
    const QString text = label->text();
    label->hide();
    label->deleteLater();
    if (hadFocus) setFocus();
    user_.LabelEdited(node, text, isKept);
}

void TreeWidget::drawBranches(QPainter* painter, const QRect& area, const QModelIndex& index) const {
    const int middleY = (area.top() + area.bottom()) / 2;
    int x = area.right() + 1 - kIndent / 2;
    painter->save();
    painter->fillRect(area, palette().color(QPalette::Base));  // what is selected is the text
    painter->setPen(QPen(palette().color(QPalette::Mid), 1, Qt::DotLine));
    const bool isFirst = !index.parent().isValid() && index.row() == 0;
    const bool hasNext = index.siblingAtRow(index.row() + 1).isValid();
    painter->drawLine(x, isFirst ? middleY : area.top(), x, hasNext ? area.bottom() : middleY);
    painter->drawLine(x, middleY, area.right(), middleY);
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
        x -= kIndent;
        if (above.siblingAtRow(above.row() + 1).isValid()) painter->drawLine(x, area.top(), x, area.bottom());
    }
    const QPoint button(area.right() + 1 - kIndent / 2, middleY);
    if (model()->rowCount(index) > 0) DrawButton(*painter, button, palette(), isExpanded(index));
    painter->restore();
}

}  // namespace platform::qt
