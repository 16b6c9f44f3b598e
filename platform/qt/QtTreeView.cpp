#include <QPainter>
#include <QTreeWidgetItemIterator>
#include <algorithm>

#include "platform/TextEncoding.h"
#include "platform/qt/Application.h"
#include "platform/qt/ImageImpl.h"
#include "platform/qt/Text.h"
#include "platform/qt/TreeViewImpl.h"
#include "platform/qt/WindowImpl.h"

namespace platform {

namespace {

using Node = qt::TreeNode;

Node* NodeOf(TreeItem item) { return reinterpret_cast<Node*>(item); }
TreeItem ItemOf(const QTreeWidgetItem* item) {
    return reinterpret_cast<TreeItem>(static_cast<const Node*>(item));
}

// Asks in the thread of the windows; `otherwise` when there is no tree.
template <typename Answer, typename Question>
Answer Ask(const TreeView::Impl& impl, Answer otherwise, Question&& question) {
    Answer answer = otherwise;
    qt::Application::The().Calls().Send([&] {
        if (impl.tree) answer = question(*impl.tree);
    });
    return answer;
}

QTreeWidgetItem* ChildrenOf(qt::TreeWidget& tree, TreeItem item) {
    return item == 0 ? tree.invisibleRootItem() : NodeOf(item);
}

}  // namespace

bool TreeView::Impl::TakeImages() {
    const ink::Scale scale = parent->PageScale();
    const platform::Image strip = platform::Image::FromResource(source.bitmapId, scale);
    images.clear();
    for (int i = 0; (i + 1) * source.imageSize <= strip.Width(); ++i)
        images.push_back(qt::MaskedPicture(strip, i, source.imageSize, source.imageSize, source.mask, scale));
    return strip.IsValid();
}

void TreeView::Impl::LooksChanged() {
    if (!TakeImages() || !tree) return;
    for (QTreeWidgetItemIterator item(tree); *item; ++item) ShowImage(static_cast<Node&>(**item));
}

bool TreeView::Impl::Create(Window& window, int id, const Rect& place, const TreeView::Images& pictures) {
    parent = &window;
    source = pictures;
    QWidget* page = window.Handle()->page;
    if (tree || !page || !TakeImages()) return false;
    slowTap.setSingleShot(true);
    slowTap.callOnTimeout([this] {
        if (selected && tree) Guarded(*parent, [this] { EditLabel(*selected); });
    });
    tree = new qt::TreeWidget(page, *this);
    tree->setObjectName(QString::number(id));
    tree->setGeometry(qt::ToQt(place));
    tree->show();
    window.Handle()->control = tree;
    return true;
}

void TreeView::Impl::ShowImage(Node& node) const {
    const auto count = static_cast<int>(images.size());
    QPixmap picture =
        node.image >= 0 && node.image < count ? images[static_cast<size_t>(node.image)] : QPixmap();
    if (node.hasOverlay && source.overlay < count)
        QPainter(&picture).drawPixmap(0, 0, images[static_cast<size_t>(source.overlay)]);
    node.setIcon(0, picture);
}

TreeView::TreeView() : impl_(std::make_unique<Impl>()) {}

TreeView::~TreeView() {
    impl_->events = nullptr;
    const std::unique_ptr<QWidget> gone(impl_->tree);
}

bool TreeView::Create(Window& parent, int id, const Rect& place, const Images& images, Events& events,
                      const std::wstring& name) {
    if (!impl_->tree) impl_ = std::make_unique<Impl>();
    impl_->events = &events;
    if (!impl_->Create(parent, id, place, images)) return false;
    impl_->tree->setAccessibleName(qt::ToQt(name));
    return true;
}

void TreeView::Place(const Rect& place) {
    if (impl_->tree) impl_->tree->setGeometry(qt::ToQt(place));
}

void TreeView::SetVisible(bool visible) {
    if (!impl_->tree) return;
    Window::Impl& window = *impl_->parent->Handle();
    const bool hadFocus = impl_->tree->hasFocus();
    impl_->tree->setVisible(visible);
    window.control = visible ? impl_->tree : nullptr;
    if (hadFocus && !visible) window.page->setFocus();
}

void TreeView::Focus() {
    if (impl_->tree && !impl_->tree->isHidden()) impl_->tree->setFocus();
}

TreeItem TreeView::Insert(TreeItem parent, Where where, const std::wstring& text, int image, intptr_t data) {
    if (!impl_->tree) return 0;
    auto node = std::make_unique<Node>();
    node->setText(0, qt::ToQt(text));
    node->image = image;
    node->data = data;
    impl_->ShowImage(*node);
    QTreeWidgetItem* above = ChildrenOf(*impl_->tree, parent);
    int place = above->childCount();
    if (where == Where::Sorted) {
        place = 0;
        while (place < above->childCount() &&
               CompareNames(qt::FromQt(above->child(place)->text(0)), text) <= 0)
            ++place;
    }
    Node* made = node.release();
    above->insertChild(place, made);
    return ItemOf(made);
}

void TreeView::Remove(TreeItem item) {
    if (impl_->tree && item != 0) impl_->Drop(NodeOf(item));
}

void TreeView::RemoveAll() {
    if (!impl_->tree) return;
    impl_->Select(nullptr);
    while (QTreeWidgetItem* last = impl_->tree->topLevelItem(impl_->tree->topLevelItemCount() - 1))
        impl_->Erase(static_cast<Node*>(last));
}

std::wstring TreeView::Text(TreeItem item) const {
    return Ask(*impl_, std::wstring(), [item](qt::TreeWidget&) {
        return item == 0 ? std::wstring() : qt::FromQt(NodeOf(item)->text(0));
    });
}

void TreeView::SetText(TreeItem item, const std::wstring& text) {
    if (impl_->tree && item != 0) NodeOf(item)->setText(0, qt::ToQt(text));
}

int TreeView::Image(TreeItem item) const {
    return Ask(*impl_, -1, [item](qt::TreeWidget&) { return item == 0 ? -1 : NodeOf(item)->image; });
}

void TreeView::SetImage(TreeItem item, int image) {
    if (!impl_->tree || item == 0) return;
    NodeOf(item)->image = image;
    impl_->ShowImage(*NodeOf(item));
}

intptr_t TreeView::Data(TreeItem item) const {
    return Ask(*impl_, intptr_t{0}, [item](qt::TreeWidget&) { return item == 0 ? 0 : NodeOf(item)->data; });
}

void TreeView::SetBold(TreeItem item) {
    if (!impl_->tree || item == 0) return;
    QFont font = impl_->tree->font();
    font.setBold(true);
    NodeOf(item)->setFont(0, font);
}

void TreeView::SetOverlay(TreeItem item, bool marked) {
    if (!impl_->tree || item == 0 || NodeOf(item)->hasOverlay == marked) return;
    NodeOf(item)->hasOverlay = marked;
    impl_->ShowImage(*NodeOf(item));
}

bool TreeView::IsSelected(TreeItem item) const { return item != 0 && item == Selection(); }

bool TreeView::IsExpanded(TreeItem item) const {
    return Ask(*impl_, false, [item](qt::TreeWidget&) {
        return item != 0 && NodeOf(item)->childCount() > 0 && NodeOf(item)->isExpanded();
    });
}

bool TreeView::HasChildren(TreeItem item) const { return FirstChild(item) != 0; }

TreeItem TreeView::FirstChild(TreeItem item) const {
    return Ask(*impl_, TreeItem{0},
               [item](qt::TreeWidget&) { return item == 0 ? TreeItem{0} : ItemOf(NodeOf(item)->child(0)); });
}

TreeItem TreeView::NextSibling(TreeItem item) const {
    return Ask(*impl_, TreeItem{0}, [item](qt::TreeWidget& tree) {
        if (item == 0) return TreeItem{0};
        QTreeWidgetItem* above = NodeOf(item)->parent();
        if (!above) above = tree.invisibleRootItem();
        return ItemOf(above->child(above->indexOfChild(NodeOf(item)) + 1));
    });
}

TreeItem TreeView::Parent(TreeItem item) const {
    return Ask(*impl_, TreeItem{0},
               [item](qt::TreeWidget&) { return item == 0 ? TreeItem{0} : ItemOf(NodeOf(item)->parent()); });
}

TreeItem TreeView::Selection() const {
    return Ask(*impl_, TreeItem{0}, [this](qt::TreeWidget&) { return ItemOf(impl_->selected); });
}

void TreeView::Select(TreeItem item) { impl_->Select(NodeOf(item)); }

void TreeView::ScrollToTop(TreeItem item) {
    if (impl_->tree && item != 0) impl_->tree->scrollToItem(NodeOf(item), QAbstractItemView::PositionAtTop);
}

void TreeView::Expand(TreeItem item) {
    if (impl_->tree && item != 0 && NodeOf(item)->childCount() > 0) NodeOf(item)->setExpanded(true);
}

void TreeView::CollapseAndDrop(TreeItem item) {
    if (impl_->tree && item != 0) impl_->DropChildren(*NodeOf(item));
}

void TreeView::EnsureVisible(TreeItem item) {
    if (impl_->tree && item != 0) impl_->tree->scrollToItem(NodeOf(item));
}

void TreeView::SortChildren(TreeItem parent, const Order& order) {
    if (!impl_->tree) return;
    QTreeWidgetItem* above = ChildrenOf(*impl_->tree, parent);
    const auto give = [above](const Order* given) {
        for (int i = 0; i < above->childCount(); ++i) static_cast<Node*>(above->child(i))->order = given;
    };
    give(&order);
    above->sortChildren(0, Qt::AscendingOrder);
    give(nullptr);
}

void TreeView::EditLabel(TreeItem item) {
    if (!impl_->tree || item == 0) return;
    Focus();
    impl_->EditLabel(*NodeOf(item));
}

void TreeView::Freeze(bool frozen) {
    impl_->frozen = std::max(0, impl_->frozen + (frozen ? 1 : -1));
    if (impl_->tree) impl_->tree->setUpdatesEnabled(impl_->frozen == 0);
}

}  // namespace platform
